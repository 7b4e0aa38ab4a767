// Decoding of BMP, GIF, ICO and TIFF with gdk-pixbuf. It forgives files that end early and reads
// animations to their end; the checks of their structure come first and do neither.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Decodes a file of one of these formats. The size that the decoder finds is checked before it
// takes memory for the pixels. Refuses what the decoder refuses.
PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes);

// Counts the pixels that a file's header announces, in any format that gdk-pixbuf knows; 0 in
// another.
std::int64_t HeaderPixels(PictureBytes bytes);

// Refuses a BMP that holds fewer bytes of pixels than its header announces.
void RequireWholeBmp(PictureBytes bytes);

// Makes a GIF of the first frame alone. Refuses a file that ends before that frame does, or whose
// screen has more pixels than its bytes can stand for.
std::vector<std::uint8_t> FirstGifFrame(PictureBytes bytes);

// Refuses a TIFF whose samples take more than kMaximumDecoderBytes before they become pixels.
void RequireBoundedTiff(PictureBytes bytes);

// Gives the largest picture of an icon file, and of equally large ones that with the most colours:
// as a PNG when it is stored as one, else as an icon file of its own.
std::vector<std::uint8_t> LargestIcon(PictureBytes bytes);

}  // namespace pagivo::native
