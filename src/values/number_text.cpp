#include "values/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "pagivo/error.h"
#include "system/regional_settings.h"
#include "values/characters.h"
#include "values/conversions.h"

namespace pagivo {
namespace {

// --- Writing ----------------------------------------------------------------------------------

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
bool HasNoExponent(float value) {
  const double magnitude = std::abs(double{value});
  return magnitude >= 1e-4 && magnitude < 1e7;
}

// As many as a Decimal has decimals.
constexpr std::array<double, 12> kPowersOfTen = {1,   1e1, 1e2, 1e3, 1e4,  1e5,
                                                 1e6, 1e7, 1e8, 1e9, 1e10, 1e11};

// Seven digits or fewer, without their sign: `digits` / 10^`decimals`.
struct Decimal {
  std::uint32_t digits = 0;
  int decimals = 0;
};

// Of a Single that has no exponent: its 24 bits times a power of ten up to 10^12 are exact in a
// Double.
Decimal DecimalOf(float value) {
  double scaled = std::abs(double{value});
  Decimal decimal;
  for (; scaled < 1e6; scaled *= 10) ++decimal.decimals;  // until it has seven digits
  decimal.digits = static_cast<std::uint32_t>(RoundToEven(scaled));
  return decimal;
}

// The same as Format for a Single without an exponent, at a fraction of the cost.
std::string FormatWithoutExponent(float value, char decimalSeparator) {
  Decimal decimal = DecimalOf(value);
  for (; decimal.decimals > 0 && decimal.digits % 10 == 0; decimal.digits /= 10) {
    --decimal.decimals;
  }

  NumberText text;
  char* const end = text.data() + text.size();
  char* begin = end;
  const auto putDigit = [&] {
    *--begin = static_cast<char>('0' + decimal.digits % 10);
    decimal.digits /= 10;
  };
  for (int i = 0; i < decimal.decimals; ++i) putDigit();
  if (decimal.decimals > 0) *--begin = decimalSeparator;
  do putDigit();
  while (decimal.digits > 0);
  if (value < 0) *--begin = '-';
  return {begin, end};
}

// --- Reading ----------------------------------------------------------------------------------

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

struct NumberPrefix {
  double value = 0;
  std::size_t length = 0;  // 0: the text does not start with a number
};

// The exponent of a well-formed number; beyond kFarExponent only its sign counts.
constexpr std::int64_t kFarExponent = std::int64_t{1} << 60;

std::int64_t ExponentOf(std::string_view number) {
  const std::size_t mark = number.find_first_of("eE");
  if (mark == std::string_view::npos) return 0;
  std::string_view digits = number.substr(mark + 1);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  std::int64_t exponent = digits.starts_with('-') ? -kFarExponent : kFarExponent;
  std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  return std::clamp(exponent, -kFarExponent, kFarExponent);
}

// Whether a number without a sign that no Double can hold is too large rather than too small: its
// first digit that counts then stands before the decimal point.
bool IsTooLarge(std::string_view number) {
  const auto point =
      static_cast<std::int64_t>(std::min(number.find_first_of(".eE"), number.size()));
  const auto firstDigit = static_cast<std::int64_t>(number.find_first_not_of("0."));
  return point - firstDigit + ExponentOf(number) > 0;
}

// The longest number at the start of a text, with a decimal point. One too small for a Double is 0;
// raises Overflow for one too large.
NumberPrefix ParsePrefix(std::string_view text) {
  const bool negative = text.starts_with('-');
  const std::size_t signLength = negative || text.starts_with('+') ? 1 : 0;
  const std::string_view number = text.substr(signLength);
  // Keeps out the names of infinity and "not a number", which from_chars knows.
  if (number.empty() || !(IsDigit(number.front()) || number.front() == '.')) return {};
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc::invalid_argument) return {};
  const auto length = static_cast<std::size_t>(end - number.data());
  if (error == std::errc::result_out_of_range) {
    if (IsTooLarge(number.substr(0, length))) ThrowOverflow();
    value = 0;
  }
  return {negative ? -value : value, signLength + length};
}

bool IsSkippedInNumbers(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::string FormatGeneral(float value, char decimalSeparator) {
  return HasNoExponent(value) ? FormatWithoutExponent(value, decimalSeparator)
                              : Format(value, kSingleDigits, decimalSeparator);
}

std::string FormatGeneral(double value, char decimalSeparator) {
  return Format(value, kDoubleDigits, decimalSeparator);
}

// Both numbers of the quotient are exact in a Double, so it is the Double nearest to the text.
float RoundToText(float value) {
  if (!HasNoExponent(value)) {
    return static_cast<float>(LeadingNumber(Format(value, kSingleDigits, '.')));
  }
  const auto [digits, decimals] = DecimalOf(value);
  const double magnitude = digits / kPowersOfTen.at(static_cast<std::size_t>(decimals));
  return static_cast<float>(value < 0 ? -magnitude : magnitude);
}

double ParseNumber(std::string_view text) {
  std::string number(Trim(text));
  const char separator = CurrentRegionalSettings().decimalSeparator;
  if (separator != '.') {
    if (number.find('.') != std::string::npos) ThrowTypeMismatch();
    std::replace(number.begin(), number.end(), separator, '.');
  }
  const NumberPrefix prefix = ParsePrefix(number);
  if (prefix.length == 0 || prefix.length != number.size()) ThrowTypeMismatch();
  return prefix.value;
}

double LeadingNumber(std::string_view text) {
  std::string number(text);
  std::erase_if(number, IsSkippedInNumbers);
  return ParsePrefix(number).value;
}

std::string FormatMillimetres(double millimetres) {
  const long long tenths = std::llround(millimetres * 10);
  std::string text = std::to_string(tenths / 10);
  if (tenths % 10 != 0) text += ',' + std::to_string(std::abs(tenths % 10));
  return text;
}

std::optional<double> ParseMillimetres(std::string_view text) {
  std::string number(Trim(text));
  std::ranges::replace(number, ',', '.');
  const char* end = number.data() + number.size();
  double millimetres = 0;
  const auto [stop, failure] =
      std::from_chars(number.data(), end, millimetres, std::chars_format::fixed);
  if (failure != std::errc() || stop != end || !std::isfinite(millimetres)) return std::nullopt;
  return millimetres;
}

}  // namespace pagivo
