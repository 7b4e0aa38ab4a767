// Conversions between kinds of values. Those of Variant stand here by other names, so that a number
// and a Variant are converted alike.
#pragma once

#include <cstdint>
#include <string>

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

// The nearest whole number, exact halves to the even neighbour, whatever rounding mode the host has
// set. Infinity and NaN stay as they are.
double RoundToEven(double value);

// Arithmetic on 16-bit Integers. A result outside their range raises ErrorNumber::Overflow.
std::int16_t AddIntegers(std::int16_t left, std::int16_t right);
std::int16_t SubtractIntegers(std::int16_t left, std::int16_t right);

}  // namespace pagivo
