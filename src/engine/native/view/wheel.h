// The mouse wheel where only whole notches count.
#pragma once

#include <algorithm>
#include <cmath>

namespace pagivo::native {

// Fine wheels and touch pads report fractions of a notch.
class WheelNotches {
 public:
  // The whole notches that are complete now; turning back discards what is not complete.
  int Turn(double notches) {
    if (notches * rest_ < 0) rest_ = 0;
    rest_ = std::clamp(rest_ + notches, -kMost, kMost);
    const double whole = std::trunc(rest_ + std::copysign(kRounding, rest_));
    rest_ -= whole;
    return static_cast<int>(whole);
  }
  void Reset() { rest_ = 0; }

 private:
  static constexpr double kMost = 100;  // at once
  static constexpr double kRounding = 1e-9;

  double rest_ = 0;
};

}  // namespace pagivo::native
