// A decimal separator for the length of a test.
#pragma once

#include "system/regional_settings.h"

namespace pagivo {

class DecimalSeparatorInTest {
 public:
  explicit DecimalSeparatorInTest(char decimalSeparator) {
    constexpr std::uint32_t kDutch = 0x413;  // as Windows counts them
    constexpr std::uint32_t kAmerican = 0x409;
    UseRegionalSettings({.decimalSeparator = decimalSeparator,
                         .locale = decimalSeparator == ',' ? kDutch : kAmerican});
  }
  ~DecimalSeparatorInTest() { UseRegionalSettings(before_); }
  DecimalSeparatorInTest(const DecimalSeparatorInTest&) = delete;
  DecimalSeparatorInTest& operator=(const DecimalSeparatorInTest&) = delete;

 private:
  RegionalSettings before_ = CurrentRegionalSettings();
};

}  // namespace pagivo
