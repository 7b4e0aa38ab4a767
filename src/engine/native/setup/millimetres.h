// Lengths as users read and type them: millimetres with a decimal comma.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pagivo::native {

// `25,4`: rounded to one decimal, whatever the regional settings. For 0 and more.
std::string FormatMillimetres(double millimetres);

// The whole text as a number of millimetres, blanks around it allowed: digits with a comma or a
// point before the decimals, no exponent and no unit. Nothing when it is no number.
std::optional<double> ParseMillimetres(std::string_view text);

}  // namespace pagivo::native
