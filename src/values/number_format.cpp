#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "values/conversions.h"
#include "values/rounding.h"

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

// A Single has no exponent from here to there.
constexpr double kLeastWithoutExponent = 1e-4;
constexpr double kFirstWithExponent = 1e7;

// The same as Format for a Single without an exponent, at a fraction of the cost: its 24 bits times
// a power of ten up to 10^12 are exact in a Double.
std::string FormatWithoutExponent(float value, char decimalSeparator) {
  double scaled = std::abs(double{value});
  int decimals = 0;
  for (; scaled < 1e6; scaled *= 10) ++decimals;  // until it has seven digits
  auto digits = static_cast<std::uint32_t>(RoundToEven(scaled));
  for (; decimals > 0 && digits % 10 == 0; digits /= 10) --decimals;

  NumberText text;
  char* const end = text.data() + text.size();
  char* begin = end;
  const auto putDigit = [&] {
    *--begin = static_cast<char>('0' + digits % 10);
    digits /= 10;
  };
  for (int i = 0; i < decimals; ++i) putDigit();
  if (decimals > 0) *--begin = decimalSeparator;
  do putDigit();
  while (digits > 0);
  if (value < 0) *--begin = '-';
  return {begin, end};
}

}  // namespace

std::string FormatGeneral(float value, char decimalSeparator) {
  const double magnitude = std::abs(double{value});
  if (magnitude >= kLeastWithoutExponent && magnitude < kFirstWithExponent) {
    return FormatWithoutExponent(value, decimalSeparator);
  }
  return Format(value, kSingleDigits, decimalSeparator);
}

std::string FormatGeneral(double value, char decimalSeparator) {
  return Format(value, kDoubleDigits, decimalSeparator);
}

}  // namespace pagivo
