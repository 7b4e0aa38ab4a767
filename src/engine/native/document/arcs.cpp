#include "engine/native/document/arcs.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {
namespace {

// Shorter chords would only cost time: the largest circle leaves one by a tenth of a pixel.
constexpr double kSmallestChordAngle = 1e-4;

// Angles closer than this are the same: a full turn given as a Single misses 2 pi by 2e-7.
constexpr double kSameAngle = 1e-6;

double Normal(double angle) {
  const double normal = std::fmod(std::abs(angle), kFullTurn);
  return normal < kFullTurn - kSameAngle ? normal : 0;
}

}  // namespace

bool ArcAngles::RadiusLineAtStart() const noexcept {
  return std::signbit(start);
}
bool ArcAngles::RadiusLineAtEnd() const noexcept {
  return std::signbit(end);
}
double ArcAngles::NormalStart() const noexcept {
  return Normal(start);
}
double ArcAngles::NormalEnd() const noexcept {
  return Normal(end);
}

Turn ArcAngles::GetTurn() const noexcept {
  if (std::abs(NormalStart() - NormalEnd()) >= kSameAngle) return Turn::Part;
  const double difference = std::abs(std::abs(start) - std::abs(end));
  return difference < kSameAngle ? Turn::None : Turn::Full;
}

Point PointOnCircle(Point center, double radius, double angle) noexcept {
  return {static_cast<float>(center.x + radius * std::cos(angle)),
          static_cast<float>(center.y - radius * std::sin(angle))};
}

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
