#include "values/characters.h"
#include "values/conversions.h"
#include "values/number_text.h"
#include "values/text_conversions.h"

namespace pagivo {

bool BooleanIn(const std::string& text) {
  if (EqualInAnyCase(text, "True")) return true;
  if (EqualInAnyCase(text, "False")) return false;
  return ParseNumber(text) != 0;
}

std::int16_t IntegerIn(const std::string& text) {
  return ToInteger(ParseNumber(text));
}

std::int32_t LongIn(const std::string& text) {
  return ToLong(ParseNumber(text));
}

float SingleIn(const std::string& text) {
  return ToSingle(ParseNumber(text));
}

double DoubleIn(const std::string& text) {
  return ParseNumber(text);
}

}  // namespace pagivo
