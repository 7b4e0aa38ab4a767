#include "engine/native/arc_angles.h"

#include <cmath>

#include "engine/native/document/arc_points.h"

namespace pagivo::native {
namespace {

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

}  // namespace pagivo::native
