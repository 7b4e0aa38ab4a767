// Rectangles of whole device pixels on a surface.
#pragma once

#include <algorithm>
#include <cstdint>

#include "window/surface.h"

namespace pagivo::native {

// Right and bottom are the first pixels outside.
struct SurfaceBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  std::int32_t Width() const noexcept { return right - left; }
  std::int32_t Height() const noexcept { return bottom - top; }
  bool IsEmpty() const noexcept { return left >= right || top >= bottom; }
  bool Contains(SurfacePoint point) const noexcept {
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
  }
  SurfaceBox Grown(std::int32_t pixels) const noexcept {
    return {left - pixels, top - pixels, right + pixels, bottom + pixels};
  }
  SurfaceBox Moved(std::int32_t x, std::int32_t y) const noexcept {
    return {left + x, top + y, right + x, bottom + y};
  }
  friend bool operator==(const SurfaceBox&, const SurfaceBox&) = default;
};

inline SurfaceBox Intersection(const SurfaceBox& one, const SurfaceBox& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top),
          std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
}

}  // namespace pagivo::native
