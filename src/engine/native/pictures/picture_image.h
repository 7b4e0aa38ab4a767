// A loaded picture: what a Variant holding a picture object refers to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "pagivo/picture.h"

namespace pagivo::native {

// Pixels are immutable once loaded. An empty picture has neither width nor height and draws
// nothing.
class PictureImage : public Picture {
 public:
  struct Pixels {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool hasAlpha = false;
    // Rows top down without padding; RGB (3 bytes a pixel), or RGBA with straight (not
    // premultiplied) alpha (4 bytes) when hasAlpha.
    std::vector<std::uint8_t> data;
  };

  PictureImage() = default;
  // `jpeg`: the file's own bytes when it is a JPEG that PDF readers take as it is, else empty.
  PictureImage(Pixels pixels, std::vector<std::uint8_t> jpeg)
      : pixels_(std::move(pixels)), jpeg_(std::move(jpeg)) {}

  bool IsEmpty() const noexcept { return pixels_.width == 0 || pixels_.height == 0; }
  const Pixels& GetPixels() const noexcept { return pixels_; }
  const std::vector<std::uint8_t>& Jpeg() const noexcept { return jpeg_; }

 private:
  Pixels pixels_;
  std::vector<std::uint8_t> jpeg_;
};

using PictureImageRef = std::shared_ptr<const PictureImage>;

}  // namespace pagivo::native
