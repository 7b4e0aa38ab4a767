// Decoding of JPEG with libjpeg-turbo, and what a file's markers say before that.
#pragma once

#include <cstdint>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

struct JpegStructure {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t decodedWidth = 0;  // of the pixels that DecodeJpeg gives
  std::int32_t decodedHeight = 0;
  int components = 0;
  // Every PDF reader shows the file's bytes with the colours that DecodeJpeg gives: the file is
  // baseline or progressive, has 8 bits a sample, and is grey or of a colour space that it names
  // beyond doubt. CMYK does not suit, for readers differ in how they bring it to the screen.
  bool suitsPdf = false;
};

// Walks the file from its first marker to its last. Refuses a file that has no end marker or no
// frame, that is too short for the blocks of its frame, whose pixels or scans are too many to
// decode in bounded time, and all else that the decoder would refuse: what went through here,
// DecodeJpeg decodes. It takes about as long as copying the file.
JpegStructure ReadJpegStructure(PictureBytes bytes);

// The pixels of a file that ReadJpegStructure has let through. A large file is decoded to a half, a
// quarter or an eighth of its sides.
PictureImage::Pixels DecodeJpeg(PictureBytes bytes);

}  // namespace pagivo::native
