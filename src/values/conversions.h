// Conversions between kinds of values: those of Variant by other names, so that a number and a
// Variant are converted alike, and what they are made of.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pagivo/variant.h"

namespace pagivo {

// Rounded to the nearest whole number, exact halves to the even neighbour. Raises
// ErrorNumber::Overflow outside the range and for what is no number (NaN).
std::int16_t ToInteger(double value);
std::int32_t ToLong(double value);
// Rounded to the nearest Single; raises ErrorNumber::Overflow beyond, infinity included. NaN stays
// NaN, as it does in ToDouble.
float ToSingle(double value);

// See Variant.
inline std::int16_t ToInteger(const Variant& value) {
  return value.ToInteger();
}
inline std::int32_t ToLong(const Variant& value) {
  return value.ToLong();
}
inline float ToSingle(const Variant& value) {
  return value.ToSingle();
}
inline double ToDouble(const Variant& value) {
  return value.ToDouble();
}
inline bool ToBoolean(const Variant& value) {
  return value.ToBoolean();
}
inline std::string ToText(const Variant& value) {
  return value.ToText();
}
inline ObjectRef ToObject(const Variant& value) {
  return value.ToObject();
}

// Gives `variable` a value in its own kind, or in the value's where its own cannot hold that.
void AssignKeepingKind(Variant& variable, const Variant& value);

// The general number format: at most seven significant digits for a Single, fifteen for a Double,
// no trailing zeros, an exponent below 1E-04 and beyond the digits ("1,5E+07"). A negative zero is
// "0"; infinity and NaN give words without digits, which ParseNumber refuses.
std::string FormatGeneral(float value, char decimalSeparator);
std::string FormatGeneral(double value, char decimalSeparator);

// The whole text as a number, blanks around it allowed, in the regional notation: a sign, digits
// with the regional decimal separator and no other, an exponent. Raises TypeMismatch when it is
// none, Overflow beyond Double; what is too small for a Double is 0.
double ParseNumber(std::string_view text);

// The number at the start of a text, with a decimal point whatever the regional settings; 0 when
// there is none. Blanks, tabs and line breaks are skipped wherever they stand. Raises Overflow
// beyond Double.
double LeadingNumber(std::string_view text);

// Leading, trailing, or both kinds of blanks (U+0020 only) removed.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

}  // namespace pagivo
