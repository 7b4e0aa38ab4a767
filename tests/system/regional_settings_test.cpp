#include <gtest/gtest.h>

#include "system/decimal_separator_in_test.h"

namespace pagivo {
namespace {

TEST(UseRegionalSettings, ReplacesTheSettingsInUse) {
  const char before = CurrentRegionalSettings().decimalSeparator;
  {
    const DecimalSeparatorInTest semicolon(';');
    EXPECT_EQ(CurrentRegionalSettings().decimalSeparator, ';');
  }
  EXPECT_EQ(CurrentRegionalSettings().decimalSeparator, before);
}

}  // namespace
}  // namespace pagivo
