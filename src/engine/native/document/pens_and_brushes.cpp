#include "engine/native/document/pens_and_brushes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <numeric>

namespace pagivo::native {
namespace {

// --- Pens -------------------------------------------------------------------------------------

// A dot and a gap are three widths of the pen, so that at 96 dots an inch those of a hairline are
// one pixel; a dash is three dots.
constexpr float kDot = 3;
constexpr float kDash = 9;
constexpr float kGap = 3;

constexpr float kDashed[] = {kDash, kGap};
constexpr float kDotted[] = {kDot, kGap};
constexpr float kDashDotted[] = {kDash, kGap, kDot, kGap};
constexpr float kDashDotDotted[] = {kDash, kGap, kDot, kGap, kDot, kGap};

// --- Brushes ----------------------------------------------------------------------------------

// Along an axis, diagonal lines are further apart than across.
constexpr float kDiagonalDistance = kHatchDistance * std::numbers::sqrt2_v<float>;

// Calls add(k * distance) for all multiples between the limits.
template <typename Add>
void ForMultiples(float from, float to, float distance, Add add) {
  const auto last = static_cast<std::int64_t>(std::floor(to / distance));
  for (auto k = static_cast<std::int64_t>(std::ceil(from / distance)); k <= last; ++k) {
    add(static_cast<float>(k) * distance);
  }
}

void AddHorizontal(const Rectangle& bounds, std::vector<HatchLine>& lines) {
  ForMultiples(bounds.y1, bounds.y2, kHatchDistance, [&](float y) {
    lines.push_back({{bounds.x1, y}, {bounds.x2, y}});
  });
}

void AddVertical(const Rectangle& bounds, std::vector<HatchLine>& lines) {
  ForMultiples(bounds.x1, bounds.x2, kHatchDistance, [&](float x) {
    lines.push_back({{x, bounds.y1}, {x, bounds.y2}});
  });
}

// Where y + x is constant.
void AddUpward(const Rectangle& bounds, std::vector<HatchLine>& lines) {
  ForMultiples(bounds.x1 + bounds.y1, bounds.x2 + bounds.y2, kDiagonalDistance, [&](float sum) {
    lines.push_back({{sum - bounds.y2, bounds.y2}, {sum - bounds.y1, bounds.y1}});
  });
}

// Where y - x is constant.
void AddDownward(const Rectangle& bounds, std::vector<HatchLine>& lines) {
  ForMultiples(bounds.y1 - bounds.x2, bounds.y2 - bounds.x1, kDiagonalDistance, [&](float rise) {
    lines.push_back({{bounds.y1 - rise, bounds.y1}, {bounds.y2 - rise, bounds.y2}});
  });
}

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

std::vector<HatchLine> HatchLines(BrushStyle style, const Rectangle& bounds) {
  std::vector<HatchLine> lines;
  const bool cross = style == BrushStyle::Cross;
  const bool diagonalCross = style == BrushStyle::DiagonalCross;
  if (style == BrushStyle::Horizontal || cross) AddHorizontal(bounds, lines);
  if (style == BrushStyle::Vertical || cross) AddVertical(bounds, lines);
  if (style == BrushStyle::UpwardDiagonal || diagonalCross) AddUpward(bounds, lines);
  if (style == BrushStyle::DownwardDiagonal || diagonalCross) AddDownward(bounds, lines);
  return lines;
}

}  // namespace pagivo::native
