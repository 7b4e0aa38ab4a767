// Pictures as PNG files in memory.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Packed fast rather than small. The picture must not be empty.
std::vector<std::uint8_t> WritePng(const PictureImage::Pixels& pixels);

}  // namespace pagivo::native
