// Texts in other kinds, as the users of this system know it from all their programs: Windows
// converts them itself, elsewhere they are in our own notation (see ParseNumber).
//
// Each raises ErrorNumber::TypeMismatch for a text that has no counterpart in the wanted kind, and
// ErrorNumber::Overflow for one outside its range.
#pragma once

#include <cstdint>
#include <string>

namespace pagivo {

bool BooleanIn(const std::string& text);
std::int16_t IntegerIn(const std::string& text);
std::int32_t LongIn(const std::string& text);
float SingleIn(const std::string& text);
double DoubleIn(const std::string& text);

}  // namespace pagivo
