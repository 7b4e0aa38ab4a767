// A decimal separator for the length of a test.
#pragma once

#include "system/regional_settings.h"

namespace pagivo {

class DecimalSeparatorInTest {
 public:
  explicit DecimalSeparatorInTest(char decimalSeparator) {
    UseRegionalSettings({.decimalSeparator = decimalSeparator});
  }
  ~DecimalSeparatorInTest() { UseRegionalSettings(before_); }
  DecimalSeparatorInTest(const DecimalSeparatorInTest&) = delete;
  DecimalSeparatorInTest& operator=(const DecimalSeparatorInTest&) = delete;

 private:
  RegionalSettings before_ = CurrentRegionalSettings();
};

}  // namespace pagivo
