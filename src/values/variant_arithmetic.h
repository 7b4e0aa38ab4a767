// Arithmetic on tagged values, with the usual promotion of kinds.
#pragma once

#include <cmath>

#include "pagivo/variant.h"

namespace pagivo {

// The product keeps the wider of the two kinds (Integer and Single give Single, Long and Single
// give Double); an overflow widens the result, a Single's to Double. A numeric text counts as
// Double, Empty as Integer 0, True as Integer -1; a Null operand gives Null. Raises TypeMismatch
// for anything else, Overflow past Double.
Variant Multiply(const Variant& left, const Variant& right);

// Multiply(value, factor), where the factor becomes a Variant: apart, so that InTwips has none to
// destroy.
Variant MultiplyBySingle(const Variant& value, float factor);

// The product of a length and the twips of its unit; at once for what nearly all lengths are, a
// Double.
inline Variant InTwips(const Variant& length, float twips) {
  if (const double* number = length.GetIf<double>()) {
    const double product = *number * double{twips};
    if (!std::isinf(product)) return product;
  }
  return MultiplyBySingle(length, twips);
}

// The quotient is a Single when both operands are Integer or Single, else a Double; Null as above.
// Raises DivisionByZero, Overflow, TypeMismatch.
Variant Divide(const Variant& left, const Variant& right);

}  // namespace pagivo
