#include "engine/native/document/stroke_style.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pagivo::native {
namespace {

// A dot and a gap are three widths of the pen, so that at 96 dots an inch those of a hairline are
// one pixel; a dash is three dots.
constexpr float kDot = 3;
constexpr float kDash = 9;
constexpr float kGap = 3;

constexpr float kDashed[] = {kDash, kGap};
constexpr float kDotted[] = {kDot, kGap};
constexpr float kDashDotted[] = {kDash, kGap, kDot, kGap};
constexpr float kDashDotDotted[] = {kDash, kGap, kDot, kGap, kDot, kGap};

}  // namespace

std::span<const float> DashMultiples(PenStyle style) {
  switch (style) {
    case PenStyle::Dash:
      return kDashed;
    case PenStyle::Dot:
      return kDotted;
    case PenStyle::DashDot:
      return kDashDotted;
    case PenStyle::DashDotDot:
      return kDashDotDotted;
    case PenStyle::Solid:
    case PenStyle::Invisible:
    case PenStyle::InsideSolid:
      break;
  }
  return {};
}

double DashPhase(const Pen& pen, double start) {
  const std::span<const float> multiples = DashMultiples(pen.style);
  const double pattern = std::accumulate(multiples.begin(), multiples.end(), 0.0);
  return pattern > 0 ? std::fmod(start, pattern * StrokeWidth(pen)) : 0;
}

Pen PenOfRectangle(const Rectangle& figure, Pen pen) {
  const float across = std::min(std::abs(figure.x2 - figure.x1), std::abs(figure.y2 - figure.y1));
  if (pen.style == PenStyle::InsideSolid) pen.width = std::min(pen.width, across);
  return pen;
}

Pen PenOfCircle(float radius, Pen pen) {
  if (pen.style == PenStyle::InsideSolid && pen.width >= radius) pen.width = 2 * radius;
  return pen;
}

Pen PenOfSector(float radius, Pen pen) {
  if (pen.style == PenStyle::InsideSolid) pen.width = std::min(pen.width, radius);
  return pen;
}

Rectangle StrokedRectangle(const Rectangle& rectangle, const Pen& pen) {
  const auto [left, right] = std::minmax(rectangle.x1, rectangle.x2);
  const auto [top, bottom] = std::minmax(rectangle.y1, rectangle.y2);
  const float insetX = std::min(StrokeInset(pen), (right - left) / 2);
  const float insetY = std::min(StrokeInset(pen), (bottom - top) / 2);
  return {left + insetX, top + insetY, right - insetX, bottom - insetY};
}

float StrokedRadius(float radius, const Pen& pen) {
  return std::max(radius - StrokeInset(pen), 0.0F);
}

}  // namespace pagivo::native
