// What gdk-pixbuf tells of a picture without decoding it.
#pragma once

#include <cstdint>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

// Counts the pixels that a file's header announces, in any format that gdk-pixbuf knows; 0 in
// another.
std::int64_t HeaderPixels(PictureBytes bytes);

}  // namespace pagivo::native
