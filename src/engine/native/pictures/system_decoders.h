// What decodes the rarer kinds of pictures. The seam to the system's own decoders: each folder
// below this one that a build can take (see src/CMakeLists.txt) defines both functions.
#pragma once

#include <functional>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Decodes a file of BMP, GIF, ICO or TIFF, whose structure has been looked at (raster_structure.h):
// of a GIF the first frame alone, of an icon file its only picture, of a TIFF the first page. The
// size that the decoder finds is checked before it takes memory for the pixels
// (IsTooLargeToDecode), and no more than kMaximumKeptPixels come out. Refuses what the decoder
// refuses.
PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes);

// Decodes a picture that stands in an SVG.
using DecodeEmbedded = std::function<PictureImage::Pixels(PictureBytes)>;

// Draws the SVG once, at the size that picture_loader.h states, or smaller where that would be too
// much work. Nothing outside the file is loaded; `decode` decodes the pictures in it. Refuses what
// is no SVG, what is too much work at kSvgShortestLongSide, too, and on a system that draws no SVG
// any.
PictureImage::Pixels DecodeSvg(PictureBytes bytes, const DecodeEmbedded& decode);

}  // namespace pagivo::native
