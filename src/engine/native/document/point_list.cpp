#include "engine/native/document/point_list.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace pagivo::native {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Takes the next word off the text; empty at the end.
std::string_view TakeWord(std::string_view& text) {
  const auto begin = std::find_if_not(text.begin(), text.end(), IsBlank);
  const auto end = std::find_if(begin, text.end(), IsBlank);
  text = {end, text.end()};
  return {begin, end};
}

bool StartsNumber(char c) {
  return (c >= '0' && c <= '9') || c == '.';
}

// The library's own parser takes neither a plus sign nor a comma, but "inf" and "nan".
std::optional<float> ParseCoordinate(std::string_view word) {
  const std::size_t signLength = word.starts_with('+') || word.starts_with('-') ? 1 : 0;
  std::string notation(word);
  std::ranges::replace(notation, ',', '.');
  if (!StartsNumber(notation[signLength])) return std::nullopt;
  const char* begin = notation.data() + (word.starts_with('+') ? 1 : 0);
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

std::optional<std::vector<Point>> PointsOf(std::span<const float> numbers) {
  const auto isPossible = [](float number) { return std::abs(number) <= kMaximumCoordinate; };
  if (!std::ranges::all_of(numbers, isPossible)) return std::nullopt;
  std::vector<Point> points;
  points.reserve(numbers.size() / 2);
  for (; numbers.size() >= 2; numbers = numbers.subspan(2)) {
    points.push_back({numbers[0], numbers[1]});
  }
  return points;
}

}  // namespace pagivo::native
