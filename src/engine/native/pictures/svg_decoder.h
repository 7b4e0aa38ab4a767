// Decoding of SVG.
#pragma once

#include <functional>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/svg_document.h"

namespace pagivo::native {

// The pixels of all pictures that stand in a file, by what their headers say.
inline constexpr std::int64_t kMaximumSvgPicturePixels = std::int64_t{1} << 24;
// A picture of more pixels is made smaller than this.
inline constexpr std::int64_t kMaximumSvgOnePicturePixels = std::int64_t{1} << 22;

// Decodes a picture that stands in the file.
using DecodeEmbedded = std::function<PictureImage::Pixels(PictureBytes)>;

// Draws the picture once, at the size that picture_loader.h states, or smaller where that would be
// too much work (svg_work.h). Nothing outside the file is loaded; `decode` decodes the pictures in
// it. Refuses what is no SVG and what is too much work at kSvgShortestLongSide, too.
PictureImage::Pixels DecodeSvg(PictureBytes bytes, const DecodeEmbedded& decode);

}  // namespace pagivo::native
