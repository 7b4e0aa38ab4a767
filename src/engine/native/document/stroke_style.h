// How pens draw, the same for every player. Joins are always round; an unbroken line has round
// ends, too, and the dashes of a broken one are cut off straight.
#pragma once

#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

inline bool DrawsLines(const Pen& pen) {
  return pen.style != PenStyle::Invisible;
}

// Twips. No line is thinner than a hairline.
inline float StrokeWidth(const Pen& pen) {
  return pen.width > kHairlineWidth ? pen.width : kHairlineWidth;
}

inline bool IsBroken(const Pen& pen) {
  return !DashMultiples(pen.style).empty();
}

// How far along its dashes, in twips, a line is that begins `start` twips after its first dash.
inline double DashPhase(const Pen& pen, double start) {
  const std::span<const float> multiples = DashMultiples(pen.style);
  const double pattern = std::accumulate(multiples.begin(), multiples.end(), 0.0);
  return pattern > 0 ? std::fmod(start, pattern * StrokeWidth(pen)) : 0;
}

// The pens that draw figures: one of style InsideSolid is no wider than its figure is across, or it
// would leave it. No reader of PDF needs to draw a curve with a pen that is wider than the curve's
// radius, for some leave a hole there: such a circle is a dot.
inline Pen PenOfRectangle(const Rectangle& figure, Pen pen) {
  const float across = std::min(std::abs(figure.x2 - figure.x1), std::abs(figure.y2 - figure.y1));
  if (pen.style == PenStyle::InsideSolid) pen.width = std::min(pen.width, across);
  return pen;
}

inline Pen PenOfCircle(float radius, Pen pen) {
  if (pen.style == PenStyle::InsideSolid && pen.width >= radius) pen.width = 2 * radius;
  return pen;
}

inline Pen PenOfSector(float radius, Pen pen) {
  if (pen.style == PenStyle::InsideSolid) pen.width = std::min(pen.width, radius);
  return pen;
}

// How far inside a rectangle, circle or sector the pen's middle runs: a pen of style InsideSolid
// stays inside whole.
inline float StrokeInset(const Pen& pen) {
  return pen.style == PenStyle::InsideSolid ? StrokeWidth(pen) / 2 : 0;
}

// The rectangle that the pen's middle follows, its edges in order. Fills end there, too, or they
// would show around the outline's round corners.
inline Rectangle StrokedRectangle(const Rectangle& rectangle, const Pen& pen) {
  const auto [left, right] = std::minmax(rectangle.x1, rectangle.x2);
  const auto [top, bottom] = std::minmax(rectangle.y1, rectangle.y2);
  const float insetX = std::min(StrokeInset(pen), (right - left) / 2);
  const float insetY = std::min(StrokeInset(pen), (bottom - top) / 2);
  return {left + insetX, top + insetY, right - insetX, bottom - insetY};
}

// The radius of the circle or sector that the pen's middle follows.
inline float StrokedRadius(float radius, const Pen& pen) {
  return std::max(radius - StrokeInset(pen), 0.0F);
}

}  // namespace pagivo::native
