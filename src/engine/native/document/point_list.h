// Points written as a text.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/document/geometry.h"

namespace pagivo::native {

// Coordinates beyond this many twips either way (some 17 km) are taken for mistakes.
inline constexpr double kMaximumCoordinate = 1e9;

// "x y x y ...": numbers separated by blanks, tabs or line breaks, with a decimal point or a
// decimal comma and perhaps an exponent, whatever the regional settings. Nothing when their count
// is odd, when something is no number, or when a number exceeds kMaximumCoordinate. An empty text
// has no points.
std::optional<std::vector<Point>> ParsePointList(std::string_view text);

// The points of numbers, x and y in turn. Nothing when one exceeds kMaximumCoordinate.
std::optional<std::vector<Point>> PointsOf(std::span<const float> numbers);

}  // namespace pagivo::native
