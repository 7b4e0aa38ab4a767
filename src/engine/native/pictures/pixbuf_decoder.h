// Decoding of raster picture formats.
#pragma once

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_format.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// The pixels of a file of one of the raster formats. The size that the decoder finds is checked
// before it takes memory for the pixels. Refuses what the decoder refuses.
PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes);

// Whether the size in the header of a file of any format that the decoder knows, also others than
// ours, is within the bounds. A file of none is.
bool HeaderSizeIsWithinBounds(PictureBytes bytes);

}  // namespace pagivo::native
