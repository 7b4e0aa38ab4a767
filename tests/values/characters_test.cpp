#include "values/characters.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pagivo {
namespace {

struct Trimming {
  std::string_view text;
  std::string_view left;
  std::string_view right;
  std::string_view both;
};

constexpr Trimming kTrimmings[] = {
    {"", "", "", ""},
    {" ", "", "", ""},
    {"    ", "", "", ""},
    {"a", "a", "a", "a"},
    {"  a", "a", "  a", "a"},
    {"a  ", "a  ", "a", "a"},
    {"  a  b  ", "a  b  ", "  a  b", "a  b"},
    // blanks alone are removed
    {"\ta\n", "\ta\n", "\ta\n", "\ta\n"},
    {" \t a ", "\t a ", " \t a", "\t a"},
    {"\xC2\xA0"
     "a",
     "\xC2\xA0"
     "a",
     "\xC2\xA0"
     "a",
     "\xC2\xA0"
     "a"},
    {" \xC3\xA9 ", "\xC3\xA9 ", " \xC3\xA9", "\xC3\xA9"},
};

TEST(TrimLeft, RemovesLeadingBlanks) {
  for (const Trimming& row : kTrimmings) EXPECT_EQ(TrimLeft(row.text), row.left);
}

TEST(TrimRight, RemovesTrailingBlanks) {
  for (const Trimming& row : kTrimmings) EXPECT_EQ(TrimRight(row.text), row.right);
}

TEST(Trim, RemovesBothKindsOfBlanks) {
  for (const Trimming& row : kTrimmings) EXPECT_EQ(Trim(row.text), row.both);
}

TEST(EqualInAnyCase, TakesLatinLettersInEitherCaseForTheSame) {
  EXPECT_TRUE(EqualInAnyCase("", ""));
  EXPECT_TRUE(EqualInAnyCase("VsPPLine", "vspplinE"));
  EXPECT_TRUE(EqualInAnyCase("AZaz09_", "azAZ09_"));
}

TEST(EqualInAnyCase, TellsOtherTextsApart) {
  EXPECT_FALSE(EqualInAnyCase("VsPPLine", "VsPPLin"));
  EXPECT_FALSE(EqualInAnyCase("VsPPLin", "VsPPLine"));
  EXPECT_FALSE(EqualInAnyCase("a", "b"));
  // 32 apart like the cases of a letter, yet no letters
  EXPECT_FALSE(EqualInAnyCase("@", "`"));
  EXPECT_FALSE(EqualInAnyCase("[", "{"));
  EXPECT_FALSE(EqualInAnyCase("\xC3\x89", "\xC3\xA9"));
}

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

}  // namespace
}  // namespace pagivo
