// The structure of BMP, GIF, ICO and TIFF files, looked at before a system's decoder gets them:
// those forgive files that end early, read animations to their end and take any memory.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

// Refuses a BMP that holds fewer bytes of pixels than its header announces.
void RequireWholeBmp(PictureBytes bytes);

// Makes a GIF of the first frame alone. Refuses a file that ends before that frame does, or whose
// screen has more pixels than its bytes can stand for.
std::vector<std::uint8_t> FirstGifFrame(PictureBytes bytes);

// The screen that a GIF is shown on, and where its first frame stands there; both in pixels.
struct GifPlace {
  std::int32_t screenWidth = 0;
  std::int32_t screenHeight = 0;
  std::int32_t left = 0;
  std::int32_t top = 0;
};
GifPlace PlaceOfFirstGifFrame(PictureBytes bytes);

// Refuses a TIFF whose samples take more than kMaximumDecoderBytes before they become pixels.
void RequireBoundedTiff(PictureBytes bytes);

// Gives the largest picture of an icon file, and of equally large ones that with the most colours:
// as a PNG when it is stored as one, else as an icon file of its own.
std::vector<std::uint8_t> LargestIcon(PictureBytes bytes);

// Refuses an icon file of one bitmap that has no pixels or, by IsTooLargeToDecode, too many: some
// decoders take memory for them before they tell the size.
void RequireBoundedIcon(PictureBytes bytes);

// Whether a picture of that size, each side at most 2^31, passes kMaximumPixels or takes more than
// kMaximumDecoderBytes of memory while it is decoded.
bool IsTooLargeToDecode(PictureFormat format, std::int64_t width, std::int64_t height);

}  // namespace pagivo::native
