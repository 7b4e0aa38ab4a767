// Points and rectangles on a page: twips (1/1440 inch), y down, not rounded to whole twips.
#pragma once

namespace pagivo::native {

struct Point {
  float x = 0;
  float y = 0;
  friend bool operator==(const Point&, const Point&) = default;
  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
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

inline constexpr double kTwipsPerInch = 1440.0;
inline constexpr double kTwipsPerPoint = 20.0;

}  // namespace pagivo::native
