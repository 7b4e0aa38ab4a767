// Bringing decoded pixels into the form that a picture keeps.
#pragma once

#include <span>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Makes premultiplied colours straight: four bytes a pixel, red first.
void MakeAlphaStraight(std::span<std::uint8_t> data);

// Most files with an alpha channel make no use of it; without it their pixels take less room and
// are drawn faster.
void DropUnusedAlpha(PictureImage::Pixels& pixels);

}  // namespace pagivo::native
