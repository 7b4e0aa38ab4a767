// Lengths as users read and type them: millimetres with a decimal comma.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pagivo::native {

// Writes `25,4`, rounded to one decimal, whatever the regional settings are. Takes 0 and more.
std::string FormatMillimetres(double millimetres);

// Reads the whole text as a number of millimetres: digits with a comma or a point before the
// decimals, without an exponent or a unit; blanks may stand around it. Answers nothing when the
// text is no such number.
std::optional<double> ParseMillimetres(std::string_view text);

}  // namespace pagivo::native
