// Numbers written as text and read from it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pagivo {

// The general number format: at most seven significant digits for a Single, fifteen for a Double,
// no trailing zeros, an exponent below 1E-04 and beyond the digits ("1,5E+07"). A negative zero is
// "0"; infinity and NaN give words without digits, which ParseNumber refuses.
std::string FormatGeneral(float value, char decimalSeparator);
std::string FormatGeneral(double value, char decimalSeparator);

// What the text that FormatGeneral writes is read back as.
float RoundToText(float value);

// The whole text as a number, blanks around it allowed, in the regional notation: a sign, digits
// with the regional decimal separator and no other, an exponent. Raises TypeMismatch when it is
// none, Overflow beyond Double; what is too small for a Double is 0.
double ParseNumber(std::string_view text);

// The number at the start of a text, with a decimal point whatever the regional settings; 0 when
// there is none. Blanks, tabs and line breaks are skipped wherever they stand. Raises Overflow
// beyond Double.
double LeadingNumber(std::string_view text);

// Lengths as users read and type them: millimetres with a decimal comma.
//
// Writes `25,4`, rounded to one decimal, whatever the regional settings are. Takes 0 and more.
std::string FormatMillimetres(double millimetres);

// Reads the whole text as a number of millimetres: digits with a comma or a point before the
// decimals, without an exponent or a unit; blanks may stand around it. Answers nothing when the
// text is no such number.
std::optional<double> ParseMillimetres(std::string_view text);

}  // namespace pagivo
