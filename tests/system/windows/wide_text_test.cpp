#include "system/windows/wide_text.h"

#include <gtest/gtest.h>

namespace pagivo {
namespace {

struct Equivalent {
  std::string text;
  std::wstring wide;
};

const Equivalent kEquivalents[] = {
    {"", L""},
    {"abc", L"abc"},
    {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
    {"\u00E9\u20AC", L"\u00E9\u20AC"},
    {"\uD7FF\uE000\uFFFD\uFFFF", L"\uD7FF\uE000\uFFFD\uFFFF"},
    {"\U00010000\U0001D49C\U0010FFFF", L"\xD800\xDC00\xD835\xDC9C\xDBFF\xDFFF"},
};

TEST(WideText, SaysTheSame) {
  for (const Equivalent& row : kEquivalents) {
    EXPECT_EQ(ToWide(row.text), row.wide) << row.text;
    EXPECT_EQ(FromWide(row.wide), row.text);
  }
}

TEST(WideText, HasAReplacementForEachByteThatIsNoUtf8) {
  EXPECT_EQ(ToWide("a\xE9z"), L"a\xFFFDz");
  EXPECT_EQ(ToWide("\xED\xA0\x80"), L"\xFFFD\xFFFD\xFFFD") << "a surrogate";
  EXPECT_EQ(ToWide("\xF0\x9D"), L"\xFFFD\xFFFD");
}

TEST(WideText, HasAReplacementForEachSurrogateAlone) {
  EXPECT_EQ(FromWide(L"a\xD835"), "a\uFFFD");
  EXPECT_EQ(FromWide(L"\xDC9Cz"), "\uFFFDz");
  EXPECT_EQ(FromWide(L"\xD835\xD835\xDC9C"), "\uFFFD\U0001D49C");
  EXPECT_EQ(FromWide(L"\xDC9C\xD835"), "\uFFFD\uFFFD");
}

}  // namespace
}  // namespace pagivo
