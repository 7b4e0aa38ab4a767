// Outlines and the shapes that pens draw along them.
#pragma once

#include <vector>

#include "engine/native/raster/area_filler.h"

namespace pagivo::native {

struct Outline {
  std::vector<PixelPoint> points;
  bool closed = false;
};

// How many radians a chord may span so that it does not leave its circle visibly.
double ChordAngle(double radius);

// Adds the shape of an unbroken line along the outline, to be filled by FillRule::NonZero. Joins
// are round.
void AddStroke(AreaFiller& filler, const Outline& outline, double width, bool roundEnds);

}  // namespace pagivo::native
