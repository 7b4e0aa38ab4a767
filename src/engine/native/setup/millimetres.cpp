#include "engine/native/setup/millimetres.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "values/characters.h"

namespace pagivo::native {

std::string FormatMillimetres(double millimetres) {
  const long long tenths = std::llround(millimetres * 10);
  std::string text = std::to_string(tenths / 10);
  if (tenths % 10 != 0) text += ',' + std::to_string(std::abs(tenths % 10));
  return text;
}

std::optional<double> ParseMillimetres(std::string_view text) {
  std::string number(Trim(text));
  std::ranges::replace(number, ',', '.');
  const char* end = number.data() + number.size();
  double millimetres = 0;
  const auto [stop, failure] =
      std::from_chars(number.data(), end, millimetres, std::chars_format::fixed);
  if (failure != std::errc() || stop != end || !std::isfinite(millimetres)) return std::nullopt;
  return millimetres;
}

}  // namespace pagivo::native
