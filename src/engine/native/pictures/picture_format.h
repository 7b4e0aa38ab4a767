// What kind of file a picture's bytes are.
#pragma once

#include <cstdint>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

enum class PictureFormat : std::uint8_t { Unknown, Bmp, Gif, Ico, Jpeg, Png, Tiff, Svg };

// By the signature at the start of the file, whatever its name. Any XML counts as SVG.
PictureFormat FormatOf(PictureBytes bytes);

}  // namespace pagivo::native
