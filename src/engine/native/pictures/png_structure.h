// The structure of PNG files, looked at before libpng gets them, and what of them PDF takes as it
// is.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Refuses a file that would take too much work or memory, by what its header says, and one that
// announces more than its bytes can stand for.
void RequireBoundedPng(PictureBytes bytes);

// The file as PDF takes it, when PDF readers unpack its data as PNG decoders do: a file of opaque
// rows, not interlaced, of eight bits a sample, smaller than its pixels. All its chunks are there
// and their checksums are right, which is trusted for its rows: they are unpacked only to see that
// each index into a table of colours has its colour, for readers do not agree on one that has none,
// and files with a table are small. What is not needed is taken out of the file. None for another
// file, which is left for DecodePng and may have lost the same. Refuses what DecodePng refuses by
// the header.
std::optional<StoredPicture> TakePackedPng(std::vector<std::uint8_t>& file);

}  // namespace pagivo::native
