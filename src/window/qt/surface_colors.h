// The colours around the pages of a preview, taken from the desktop's.
#pragma once

#include <QPalette>

#include "window/surface.h"

namespace pagivo::qt {

// A quiet ground, a little darker than windows are, on which white pages stand out in light and in
// dark themes, and an edge that parts the two.
SurfaceColors SurfaceColorsFor(const QPalette& palette);

}  // namespace pagivo::qt
