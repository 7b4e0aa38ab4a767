// Bringing decoded pixels into the form that a picture keeps.
#pragma once

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Makes premultiplied colours straight. Only for pixels with alpha.
void MakeAlphaStraight(PictureImage::Pixels& pixels);

// Most files with an alpha channel make no use of it; without it their pixels take less room and
// are drawn faster.
void DropUnusedAlpha(PictureImage::Pixels& pixels);

}  // namespace pagivo::native
