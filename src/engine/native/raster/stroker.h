// Outlines and the shapes that pens draw along them.
#pragma once

#include <vector>

#include "engine/native/raster/area_filler.h"

namespace pagivo::native {

struct Outline {
  std::vector<PixelPoint> points;
  bool closed = false;
};

// Pixels between a circle and its chords that nobody sees.
inline constexpr double kChordTolerance = 0.03;

// Adds the shape of an unbroken line along the outline, to be filled by FillRule::NonZero. Joins
// and ends are round.
void AddStroke(AreaFiller& filler, const Outline& outline, double width);

}  // namespace pagivo::native
