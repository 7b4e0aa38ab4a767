// A surface that a test draws on and looks at in pixels.
#pragma once

#include <cstdint>
#include <vector>

#include "window/surface.h"

namespace pagivo::native {

class DrawnSurface {
 public:
  // Filled with a colour that nothing else has.
  static constexpr std::uint32_t kUntouched = 0x12345678;

  DrawnSurface(std::int32_t width, std::int32_t height)
      : width_(width),
        height_(height),
        pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), kUntouched) {}

  SurfaceBitmap Bitmap() { return {width_, height_, pixels_}; }
  std::uint32_t At(std::int32_t x, std::int32_t y) const {
    return pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                      static_cast<std::size_t>(x));
  }
  const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

 private:
  std::int32_t width_;
  std::int32_t height_;
  std::vector<std::uint32_t> pixels_;
};

}  // namespace pagivo::native
