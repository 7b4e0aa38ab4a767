// PNG files, whole or not, and made in memory.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Refuses a PNG whose chunks do not lead to its end chunk, whose pixels are too many, or whose
// compressed data holds fewer rows than its header announces: our decoder would leave those rows
// to chance.
void RequireWholePng(PictureBytes bytes);

// A file of the pixels, packed fast rather than small. There must be pixels.
std::vector<std::uint8_t> WritePng(const PictureImage::Pixels& pixels);

}  // namespace pagivo::native
