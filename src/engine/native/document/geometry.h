// Points, rectangles and areas on a page: twips (1/1440 inch), y down, not rounded to whole twips.
#pragma once

#include <cstdint>

#include "values/measures.h"

namespace pagivo::native {

struct Point {
  float x = 0;
  float y = 0;
  friend bool operator==(const Point&, const Point&) = default;
  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
};

// Where a float's digits are too few: far beyond a page, or counted in small parts.
struct ExactPoint {
  double x = 0;
  double y = 0;
};

// Edges as the host gave them: x1 may exceed x2, which mirrors a picture and does not matter to a
// rectangle.
struct Rectangle {
  float x1 = 0;
  float y1 = 0;
  float x2 = 0;
  float y2 = 0;
  friend bool operator==(const Rectangle&, const Rectangle&) = default;
  friend Rectangle operator+(const Rectangle& rectangle, Point by) {
    return {rectangle.x1 + by.x, rectangle.y1 + by.y, rectangle.x2 + by.x, rectangle.y2 + by.y};
  }
};

// What lies inside an outline that crosses itself.
enum class FillRule : std::uint8_t { NonZero, EvenOdd };

}  // namespace pagivo::native
