// Decoding of SVG.
#pragma once

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/svg_plain.h"

namespace pagivo::native {

// Draws the picture once, at the size that picture_loader.h states, or smaller where that would be
// too much work (svg_work.h). Nothing outside the file is loaded; `decode` decodes the pictures in
// it. Refuses what is no SVG and what is too much work at kSvgShortestLongSide, too.
PictureImage::Pixels DecodeSvg(PictureBytes bytes, const DecodeEmbedded& decode);

}  // namespace pagivo::native
