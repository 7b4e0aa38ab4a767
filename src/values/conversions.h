// Conversions between kinds of values.
//
// Every function raises ErrorNumber::TypeMismatch for a value that has no counterpart in the wanted
// kind (Null, Missing, an object, an array, a text that is no number) and ErrorNumber::Overflow
// for one outside its range, infinity included. Empty converts to zero, False and the empty text;
// True converts to -1.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pagivo/variant.h"

namespace pagivo {

// Rounded to the nearest whole number, exact halves to the even neighbour. What is no number (NaN)
// overflows.
std::int16_t ToInteger(double value);
std::int16_t ToInteger(const Variant& value);
std::int32_t ToLong(double value);
std::int32_t ToLong(const Variant& value);

// Rounded to the nearest Single. NaN stays NaN, as it does in ToDouble.
float ToSingle(double value);
float ToSingle(const Variant& value);
double ConvertToDouble(const Variant& value);
inline double ToDouble(const Variant& value) {
  const double* number = value.GetIf<double>();  // as most are already
  return number != nullptr ? *number : ConvertToDouble(value);
}

// Any number but 0 is true; the texts True and False in any case, and numeric texts.
bool ToBoolean(const Variant& value);

// Numbers in the general number format with the regional decimal separator.
std::string ToText(const Variant& value);

ObjectRef ToObject(const Variant& value);

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
