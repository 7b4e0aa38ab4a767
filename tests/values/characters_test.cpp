#include "values/characters.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace pagivo
