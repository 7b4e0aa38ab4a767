// Decoding of BMP, GIF, ICO and TIFF.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// The pixels of a file of one of the raster formats. The size that the decoder finds is checked
// before it takes memory for the pixels. Refuses what the decoder refuses.
PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes);

// The pixels that the header of a file of any format that the decoder knows announces; 0 for a file
// of none.
std::int64_t HeaderPixels(PictureBytes bytes);

// Refuses a BMP that holds fewer bytes of pixels than its header announces.
void RequireWholeBmp(PictureBytes bytes);

// A GIF of the first frame alone. Refuses a file that ends before that frame does, or whose screen
// has more pixels than its bytes can stand for.
std::vector<std::uint8_t> FirstGifFrame(PictureBytes bytes);

// Refuses a TIFF whose samples take more than kMaximumDecoderBytes before they become pixels.
void RequireBoundedTiff(PictureBytes bytes);

// The largest picture of an icon file, of equally large ones that with the most colours: as a PNG
// when it is stored as one, else as an icon file of its own.
std::vector<std::uint8_t> LargestIcon(PictureBytes bytes);

}  // namespace pagivo::native
