#include <algorithm>
#include <array>
#include <charconv>

#include "values/conversions.h"

namespace pagivo {

namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

// Room for a sign, the digits, a separator, leading zeros down to 1E-04 and an exponent.
using NumberText = std::array<char, 32>;

template <typename Number>
std::string Format(Number value, int digits, char decimalSeparator) {
  if (value == 0) return "0";  // without the sign of a negative zero
  NumberText text;
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                          std::chars_format::general, digits);
  std::replace(text.data(), end, '.', decimalSeparator);
  std::replace(text.data(), end, 'e', 'E');
  return {text.data(), end};
}

}  // namespace

std::string FormatGeneral(float value, char decimalSeparator) {
  return Format(value, kSingleDigits, decimalSeparator);
}

std::string FormatGeneral(double value, char decimalSeparator) {
  return Format(value, kDoubleDigits, decimalSeparator);
}

}  // namespace pagivo
