// Pictures made as small as they are shown.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// The picture at a size that is not larger than its own in either direction, each pixel the mean of
// what it covers: 0xAARRGGBB in the machine's byte order, alpha premultiplied, rows top down.
std::vector<std::uint32_t> ScaledDown(const PictureImage::Pixels& pixels, std::int32_t width,
                                      std::int32_t height);

}  // namespace pagivo::native
