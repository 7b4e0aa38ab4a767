// Bitmaps as PNG files.
#pragma once

#include <string>

#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {

// Writes the file, replacing one that is there. Raises ErrorNumber::FileAccess with a Dutch
// description naming the file when it cannot be written; nothing of it is left behind then.
void WritePng(const Bitmap& bitmap, const std::string& path);

}  // namespace pagivo::native
