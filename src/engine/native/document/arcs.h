// Arcs: their angles as the host gives them, and as chords.
#pragma once

#include <numbers>
#include <vector>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

inline constexpr double kFullTurn = 2 * std::numbers::pi;

// How far the arc between two angles goes round.
enum class Turn { None, Part, Full };

// Radians, counter-clockwise from three o'clock; a negative angle stands for its absolute value and
// asks for a radius line to that end. So does -0.0, the start of a sector at three o'clock.
struct ArcAngles {
  double start = 0;
  double end = 0;

  bool RadiusLineAtStart() const noexcept;
  bool RadiusLineAtEnd() const noexcept;
  // The absolute values within [0, 2 pi).
  double NormalStart() const noexcept;
  double NormalEnd() const noexcept;
  // None for equal angles, Full for angles that differ by whole turns.
  Turn GetTurn() const noexcept;
};

// The end of the radius at an angle, y down.
Point PointOnCircle(Point center, double radius, double angle) noexcept;

// How far the arc goes round, above 0.
inline double TurnOf(const Arc& arc) {
  const double turn = double{arc.end} - arc.start;
  return turn > 0 ? turn : turn + kFullTurn;
}

// The arc with both lines to the centre: the area that the brush fills.
inline Arc SectorOf(Arc arc) {
  arc.radiusLineAtStart = arc.radiusLineAtEnd = true;
  return arc;
}

// How many radians a chord may span so that it leaves its circle by no more than `tolerance`.
double ChordAngle(double radius, double tolerance);

// Adds points of the arc that begins at the angle `start` and goes on for `turn` radians, both
// counter-clockwise from three o'clock, y down; its ends are among them.
void AddArc(std::vector<ExactPoint>& points, const ExactPoint& center, double radius, double start,
            double turn, double tolerance);

}  // namespace pagivo::native
