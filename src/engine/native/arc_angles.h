// The two angles of an arc as the host gives them.
#pragma once

#include "engine/native/document/display_list.h"

namespace pagivo::native {

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

}  // namespace pagivo::native
