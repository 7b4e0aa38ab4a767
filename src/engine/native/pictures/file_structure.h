// The outer structure of BMP, GIF, ICO and TIFF files. The decoder behind us forgives files that
// end early and reads animations to their end; these checks come first and do neither.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

// Refuses a BMP that holds fewer bytes of pixels than its header announces.
void RequireWholeBmp(PictureBytes bytes);

// A GIF of the first frame alone. Refuses a file that ends before that frame does, or whose screen
// has more pixels than its bytes can stand for.
std::vector<std::uint8_t> FirstGifFrame(PictureBytes bytes);

// Refuses a TIFF whose samples take more than kMaximumDecoderBytes before they become pixels.
void RequireBoundedTiff(PictureBytes bytes);

// The largest picture of an icon file, of equally large ones that with the most colours: as a PNG
// when it is stored as one, else as an icon file of its own.
std::vector<std::uint8_t> LargestIcon(PictureBytes bytes);

}  // namespace pagivo::native
