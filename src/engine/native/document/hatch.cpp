#include "engine/native/document/hatch.h"

#include <cmath>
#include <numbers>

namespace pagivo::native {
namespace {

// Along an axis, diagonal lines are further apart than across.
constexpr float kDiagonalDistance = kHatchDistance * std::numbers::sqrt2_v<float>;

// Calls add(k * distance) for all multiples between the limits.
template <typename Add>
void ForMultiples(float from, float to, float distance, Add add) {
  const auto last = static_cast<long>(std::floor(to / distance));
  for (auto k = static_cast<long>(std::ceil(from / distance)); k <= last; ++k) {
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
