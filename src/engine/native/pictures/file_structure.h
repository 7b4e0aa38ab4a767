// The outer structure of BMP, GIF and ICO files. The decoder behind us forgives files that end
// early and reads animations to their end; these checks come first and do neither.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

// Refuses a BMP that holds fewer bytes of pixels than its header announces.
void RequireWholeBmp(PictureBytes bytes);

// A GIF of the first frame alone. Refuses a file that ends before that frame does.
std::vector<std::uint8_t> FirstGifFrame(PictureBytes bytes);

// The largest picture of an icon file, of equally large ones that with the most colours: as a PNG
// when it is stored as one, else as an icon file of its own.
std::vector<std::uint8_t> LargestIcon(PictureBytes bytes);

}  // namespace pagivo::native
