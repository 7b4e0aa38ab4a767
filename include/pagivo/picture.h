// Picture objects for PgPrint::VsPPRealPicture.
#pragma once

#include <string>

#include "pagivo/object.h"

namespace pagivo {

// Loads a BMP, GIF, ICO, JPEG, PNG, TIFF or SVG file. An empty path gives an empty picture, which
// draws nothing. Throws pagivo::Error when the file cannot be read or is no picture. A picture that
// is drawn often is stored once, in memory and in a PDF file.
ObjectRef LoadPicture(const std::string& path);

}  // namespace pagivo
