// From twips on a page to the page's pixels.
#pragma once

#include <algorithm>
#include <cmath>

#include "engine/native/document/geometry.h"
#include "engine/native/raster/canvas.h"

namespace pagivo::native {

// Figures of other numbers are not drawn.
template <typename... Number>
bool AreFinite(Number... numbers) {
  return (std::isfinite(numbers) && ...);
}

// Texts and pictures that lie further out are drawn as if they lay here, and lines are no wider. It
// keeps numbers within what cairo can count.
inline constexpr float kFarthestTwips = 1e6F;

constexpr float WithinReach(float twips) {
  return std::clamp(twips, -kFarthestTwips, kFarthestTwips);
}

// Thin horizontal and vertical lines look blurred unless they meet the pixels' edges.
inline constexpr double kThinPixels = 2;

// Where the middle of a thin line goes so that its first edge is a pixel's. A touch more than the
// half, so that rounding errors do not decide on halves.
inline double AlignedMiddle(double middle, double width) {
  return std::floor(middle - width / 2 + 0.5 + 1e-6) + width / 2;
}

class PageScale {
 public:
  explicit PageScale(double pixelsPerTwip) : pixelsPerTwip_(pixelsPerTwip) {}

  double PixelsPerTwip() const noexcept { return pixelsPerTwip_; }
  double Pixels(double twips) const noexcept { return twips * pixelsPerTwip_; }
  double PixelAt(float twips) const noexcept { return Pixels(double{WithinReach(twips)}); }

  // Its edges stand as they were given.
  PixelRectangle Pixels(const Rectangle& rectangle) const noexcept {
    return {PixelAt(rectangle.x1), PixelAt(rectangle.y1), PixelAt(rectangle.x2),
            PixelAt(rectangle.y2)};
  }

 private:
  double pixelsPerTwip_;
};

}  // namespace pagivo::native
