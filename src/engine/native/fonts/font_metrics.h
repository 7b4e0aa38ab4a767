// The vertical measures of a face.
#pragma once

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/font_library.h"

namespace pagivo::native {

FontMetrics ReadFontMetrics(const Face& face);

}  // namespace pagivo::native
