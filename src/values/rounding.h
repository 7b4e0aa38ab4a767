// Rounding that does not depend on the rounding mode which the host has set.
#pragma once

#include <cmath>
#include <cstdint>

namespace pagivo {

// The nearest whole number, exact halves to the even neighbour. Infinity and NaN stay as they are.
inline double RoundToEven(double value) {
  constexpr double kWholeFrom = 4503599627370496;  // 2^52: from here on every Double is whole
  if (!(std::abs(value) < kWholeFrom)) return value;
  const auto towardZero = static_cast<std::int64_t>(value);
  const double rest = std::abs(value - static_cast<double>(towardZero));  // exact
  const bool isFarther = rest > 0.5 || (rest == 0.5 && towardZero % 2 != 0);
  const std::int64_t step = value < 0 ? -1 : 1;
  return static_cast<double>(isFarther ? towardZero + step : towardZero);
}

}  // namespace pagivo
