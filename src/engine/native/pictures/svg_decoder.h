// Decoding of SVG.
#pragma once

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Draws the picture once, at the size that picture_loader.h states. Nothing outside the file is
// loaded. Refuses what is no SVG.
PictureImage::Pixels DecodeSvg(PictureBytes bytes);

}  // namespace pagivo::native
