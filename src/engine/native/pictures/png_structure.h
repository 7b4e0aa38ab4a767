// What a PNG file's chunks say.
#pragma once

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

// Refuses a PNG whose chunks do not lead to its end chunk, whose pixels are too many, or whose
// compressed data holds fewer rows than its header announces: our decoder would leave those rows
// to chance.
void RequireWholePng(PictureBytes bytes);

}  // namespace pagivo::native
