#include "engine/native/document/point_list.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace pagivo::native {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

// Takes the next word off the text; empty at the end.
std::string_view TakeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

// The library's own parser takes neither a plus sign nor a comma, but "inf" and "nan".
std::optional<float> ParseCoordinate(std::string_view word) {
  if (word.find_first_not_of("+-0123456789.,eE") != std::string_view::npos) return std::nullopt;
  std::string notation(word);
  std::ranges::replace(notation, ',', '.');
  const bool hasPlus = notation.starts_with('+') && !notation.starts_with("+-");
  const char* begin = notation.data() + (hasPlus ? 1 : 0);
  const char* end = notation.data() + notation.size();
  double value = 0;
  const auto [parsedEnd, error] = std::from_chars(begin, end, value);
  if (parsedEnd != end || error != std::errc{}) return std::nullopt;
  if (!(std::abs(value) <= kMaximumCoordinate)) return std::nullopt;
  return static_cast<float>(value);
}

}  // namespace

std::optional<std::vector<Point>> ParsePointList(std::string_view text) {
  std::vector<Point> points;
  for (auto word = TakeWord(text); !word.empty(); word = TakeWord(text)) {
    const auto x = ParseCoordinate(word);
    const auto y = ParseCoordinate(TakeWord(text));
    if (!x || !y) return std::nullopt;
    points.push_back({*x, *y});
  }
  return points;
}

}  // namespace pagivo::native
