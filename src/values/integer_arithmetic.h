// Arithmetic on 16-bit Integers; a result outside their range raises ErrorNumber::Overflow.
#pragma once

#include <cstdint>
#include <limits>

#include "pagivo/error.h"

namespace pagivo {

inline std::int16_t CheckedInteger(std::int32_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    ThrowOverflow();
  }
  return static_cast<std::int16_t>(value);
}

inline std::int16_t AddIntegers(std::int16_t left, std::int16_t right) {
  return CheckedInteger(std::int32_t{left} + right);
}

inline std::int16_t SubtractIntegers(std::int16_t left, std::int16_t right) {
  return CheckedInteger(std::int32_t{left} - right);
}

}  // namespace pagivo
