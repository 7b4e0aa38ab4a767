// PNG files decoded and made with libpng.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// The pixels of a PNG file. Refuses one that would take too much work or memory, by what its header
// says, and one that the library does not read to its end chunk.
PictureImage::Pixels DecodePng(PictureBytes bytes);

// The file as PDF takes it, when every reader of PDF finds the same pixels in its data: a file of
// opaque rows, not interlaced, of eight bits a sample, whole and smaller than its pixels. What is
// not needed for that is taken out of it. None for another file, which is left for DecodePng and
// may have lost the same. Refuses what DecodePng refuses by the header.
std::optional<StoredPicture> TakePackedPng(std::vector<std::uint8_t>& file);

// A file of the pixels, packed fast rather than small. There must be pixels.
std::vector<std::uint8_t> WritePng(const PictureImage::Pixels& pixels);

}  // namespace pagivo::native
