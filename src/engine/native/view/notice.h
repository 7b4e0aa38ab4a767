// A line of text across the top of the surface, over the pages.
#pragma once

#include <string_view>

#include "window/surface.h"

namespace pagivo::native {

// White on red, for what the user must not miss. It is lost where the text does not fit; it grows
// with the scale (device pixels that a 96th of an inch has).
void PaintNotice(std::string_view text, double scale, const SurfaceBitmap& surface);

}  // namespace pagivo::native
