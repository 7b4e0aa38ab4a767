// PNG files decoded and made with libpng.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// The pixels of a PNG file. Refuses one that would take too much work or memory, by what its header
// says, and one that the library does not read to its end chunk.
PictureImage::Pixels DecodePng(PictureBytes bytes);

// The pixels of a file that TakePackedPng took: the rows up to the first that cannot be read, and
// white below. Refuses nothing; raises std::bad_alloc.
PictureImage::Pixels DecodePackedPng(PictureBytes file);

// A file of the pixels, packed fast rather than small. There must be pixels.
std::vector<std::uint8_t> WritePng(const PictureImage::Pixels& pixels);

}  // namespace pagivo::native
