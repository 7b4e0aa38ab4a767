// What a JPEG file's markers say.
#pragma once

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

struct JpegStructure {
  // Every PDF reader shows the file's bytes with the colours that our own decoder gives: baseline
  // or progressive, 8 bits, grey or a colour space that the file names beyond doubt. CMYK is not
  // among them: readers differ in how they bring it to the screen.
  bool suitsPdf = false;
};

// Walks the file from its first marker to its last. Refuses it when the end marker or the frame is
// missing, and when its pixels or scans are too many to decode in bounded time.
JpegStructure ReadJpegStructure(PictureBytes bytes);

}  // namespace pagivo::native
