#include "engine/native/document/arc_points.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {
namespace {

// Shorter chords would only cost time: the largest circle leaves one by a tenth of a pixel.
constexpr double kSmallestChordAngle = 1e-4;

}  // namespace

double ChordAngle(double radius, double tolerance) {
  const double cosine = radius > 0 ? std::max(0.5, 1 - tolerance / radius) : 0.5;
  return std::max(2 * std::acos(cosine), kSmallestChordAngle);
}

void AddArc(std::vector<ExactPoint>& points, const ExactPoint& center, double radius, double start,
            double turn, double tolerance) {
  const double steps = std::ceil(turn / ChordAngle(radius, tolerance));
  for (double step = 0; step <= steps; ++step) {
    const double angle = start + turn * step / steps;
    points.push_back({center.x + radius * std::cos(angle), center.y - radius * std::sin(angle)});
  }
}

}  // namespace pagivo::native
