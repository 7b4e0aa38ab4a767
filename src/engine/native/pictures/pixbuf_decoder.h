// Decoding of raster picture formats.
#pragma once

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_format.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// The pixels of a file of one of the raster formats. The size that the decoder finds is checked
// before it takes memory for the pixels. Refuses what the decoder refuses.
PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes);

// The pixels that the header of a file of any format that the decoder knows announces; 0 for a file
// of none.
std::int64_t HeaderPixels(PictureBytes bytes);

}  // namespace pagivo::native
