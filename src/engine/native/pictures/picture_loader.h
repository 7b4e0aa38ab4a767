// Picture files: BMP, GIF, ICO, JPEG, PNG, TIFF and SVG.
#pragma once

#include <string>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Pictures of more pixels than this are refused before they are decoded.
inline constexpr std::int64_t kMaximumPixels = std::int64_t{1} << 28;

// Loads a picture file. An empty path gives an empty picture. Raises ErrorNumber::FileAccess when
// the file cannot be read, ErrorNumber::InvalidPicture when it is no picture, is damaged or is too
// large. The same unchanged file gives the same object while somebody holds it.
std::shared_ptr<PictureImage> LoadPictureFile(const std::string& path);

}  // namespace pagivo::native
