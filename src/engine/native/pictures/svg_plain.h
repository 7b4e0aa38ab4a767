// An SVG file as it is handed on to the SVG library.
#pragma once

#include <functional>

#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/svg_document.h"

namespace pagivo::native {

// Of all pictures that stand in a file, by what their headers say.
inline constexpr std::int64_t kMaximumSvgPicturePixels = std::int64_t{1} << 24;
// Larger ones are made smaller than this.
inline constexpr std::int64_t kMaximumSvgOnePicturePixels = std::int64_t{1} << 22;

// Decodes a picture that stands in the file.
using DecodeEmbedded = std::function<PictureImage::Pixels(PictureBytes)>;

// Leaves what the work for a drawing can be told of: the elements that draw, references within the
// file, path data as far as it is such, transforms as attributes. A picture in the file, however it
// is spelt there, becomes a PNG of ours; one that cannot be decoded and one from outside go.
// Refuses pictures of too many pixels.
void MakeSvgPlain(SvgNode& root, const DecodeEmbedded& decode);

}  // namespace pagivo::native
