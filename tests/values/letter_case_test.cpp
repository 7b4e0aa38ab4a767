#include "values/letter_case.h"

#include <gtest/gtest.h>

namespace pagivo {
namespace {

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
