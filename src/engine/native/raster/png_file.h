// Bitmaps as PNG files.
#pragma once

#include <string>

#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {

// Writes the file as FileReplacement does: a file that is there is replaced when the new one is
// complete, and stays as it is on failure. Raises ErrorNumber::FileAccess with a Dutch description
// naming the file and the cause, ErrorNumber::OutOfMemory.
void WritePng(const Bitmap& bitmap, const std::string& path);

}  // namespace pagivo::native
