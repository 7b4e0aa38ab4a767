#include "system/utf8.h"

#include <gtest/gtest.h>

#include <vector>

namespace pagivo {
namespace {

// Code points and how many bytes each of them takes.
std::vector<std::pair<char32_t, std::size_t>> Decoded(std::string_view text) {
  std::vector<std::pair<char32_t, std::size_t>> found;
  for (std::size_t at = 0; at < text.size(); at += found.back().second) {
    const DecodedCodePoint decoded = DecodeUtf8(text, at);
    found.emplace_back(decoded.codePoint, decoded.length);
  }
  return found;
}

using CodePoints = std::vector<std::pair<char32_t, std::size_t>>;

TEST(Utf8, IsReadInItsFourLengths) {
  EXPECT_EQ(Decoded("a\u00E9\u20AC\U0001D49C"),
            (CodePoints{{U'a', 1}, {0xE9, 2}, {0x20AC, 3}, {0x1D49C, 4}}));
}

TEST(Utf8, CountsEachByteThatBeginsNothingAsAReplacement) {
  EXPECT_EQ(Decoded("\xC3x"), (CodePoints{{0xFFFD, 1}, {U'x', 1}}));
  EXPECT_EQ(Decoded("\xC0\x80"), (CodePoints{{0xFFFD, 1}, {0xFFFD, 1}})) << "an overlong form";
  EXPECT_EQ(Decoded("\xED\xA0\x80"), CodePoints(3, {0xFFFD, 1})) << "a surrogate";
}

TEST(Utf8, TellsWhichBytesGoOnWithACharacter) {
  const std::string text = "a\u20AC";
  std::vector<bool> continued;
  for (const char byte : text) continued.push_back(ContinuesUtf8(byte));
  EXPECT_EQ(continued, (std::vector{false, false, true, true}));
}

TEST(Utf8, IsToldFromOtherBytes) {
  for (const char* text : {"", "a", "\u00E9\u20AC\U0001D49C", "\uFFFD"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
  for (const char* text : {"\xE9", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_FALSE(IsUtf8(text)) << text;
  }
}

TEST(Utf8, IsWrittenAsItIsRead) {
  for (const char32_t codePoint : {U'\0', U'a', U'\x7F', U'\x80', U'\u07FF', U'\u0800', U'\uD7FF',
                                   U'\uE000', U'\uFFFF', U'\U00010000', U'\U0010FFFF'}) {
    std::string text = "a";
    AppendUtf8(text, codePoint);
    EXPECT_EQ(Decoded(text), (CodePoints{{U'a', 1}, {codePoint, text.size() - 1}}));
  }
}

}  // namespace
}  // namespace pagivo
