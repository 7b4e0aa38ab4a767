// Picture objects for PgPrint::VsPPRealPicture.
#pragma once

#include "pagivo/arguments.h"
#include "pagivo/export.h"
#include "pagivo/object.h"

namespace pagivo {

// What a page can show as a picture. A host has its pictures from LoadPicture.
class PAGIVO_EXPORT Picture : public Object {
 protected:
  Picture() = default;
  Picture(const Picture&) = default;
  Picture& operator=(const Picture&) = default;
};

// Loads a BMP, GIF, ICO, JPEG, PNG, TIFF or SVG file. An empty path gives an empty picture, which
// draws nothing. Throws pagivo::Error when the file cannot be read or is no picture. A picture that
// is drawn often is stored once, in memory and in a PDF file.
PAGIVO_EXPORT ObjectRef LoadPicture(const TextArgument& path);

}  // namespace pagivo
