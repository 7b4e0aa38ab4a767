// How pens draw, the same for every player. Joins are always round; an unbroken line has round
// ends, too, and the dashes of a broken one are cut off straight.
#pragma once

#include <algorithm>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

inline bool DrawsLines(const Pen& pen) {
  return pen.style != PenStyle::Invisible;
}

// Twips.
inline float StrokeWidth(const Pen& pen) {
  return pen.width > 0 ? pen.width : kHairlineWidth;
}

inline bool HasRoundEnds(const Pen& pen) {
  return DashMultiples(pen.style).empty();
}

// A figure whose outline would take more dashes than this is outlined unbroken: it goes far beyond
// any paper, and drawing what nobody sees would take hours.
inline constexpr float kMostDashes = 100'000;

// Whether a figure within `bounds`, whose edges are in order, has a broken outline.
inline bool DrawsDashes(const Pen& pen, const Rectangle& bounds) {
  const std::span<const float> multiples = DashMultiples(pen.style);
  if (multiples.empty()) return false;
  const float shortest = *std::ranges::min_element(multiples) * StrokeWidth(pen);
  return (bounds.x2 - bounds.x1) + (bounds.y2 - bounds.y1) <= kMostDashes * shortest;
}

// How far inside a rectangle or circle the pen's middle runs: a pen of style InsideSolid stays
// inside whole.
inline float StrokeInset(const Pen& pen) {
  return pen.style == PenStyle::InsideSolid ? StrokeWidth(pen) / 2 : 0;
}

// The rectangle that the pen's middle follows, its edges in order.
inline Rectangle StrokedRectangle(const Rectangle& rectangle, const Pen& pen) {
  const auto [left, right] = std::minmax(rectangle.x1, rectangle.x2);
  const auto [top, bottom] = std::minmax(rectangle.y1, rectangle.y2);
  const float insetX = std::min(StrokeInset(pen), (right - left) / 2);
  const float insetY = std::min(StrokeInset(pen), (bottom - top) / 2);
  return {left + insetX, top + insetY, right - insetX, bottom - insetY};
}

// The radius of the circle that the pen's middle follows.
inline float StrokedRadius(float radius, const Pen& pen) {
  return std::max(radius - StrokeInset(pen), 0.0F);
}

}  // namespace pagivo::native
