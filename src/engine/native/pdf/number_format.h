// Numbers as PDF spells them: no exponent, no locale, no more digits than they need.
#pragma once

#include <cstdint>
#include <string>

namespace pagivo::native {

void AppendInteger(std::string& out, std::int64_t number);

// `value` / 10^decimals without trailing zeros and without a zero before the point: -5 with two
// decimals is "-.05". At most nine decimals.
void AppendDecimal(std::string& out, std::int64_t value, int decimals);

// Hundredths of the unit in use, the resolution of every position in a file: 0.005 pt is a
// twentieth of the thinnest line's width.
using Hundredths = std::int64_t;

inline void AppendHundredths(std::string& out, Hundredths value) {
  AppendDecimal(out, value, 2);
}

}  // namespace pagivo::native
