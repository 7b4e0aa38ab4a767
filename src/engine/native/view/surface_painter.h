// The ground of the surface and what surrounds the pages on it.
#pragma once

#include "engine/native/view/page_layout.h"
#include "window/surface.h"

namespace pagivo::native {

// Everything is clipped to the bitmap.
void PaintGround(const SurfaceBitmap& surface, const SurfaceColors& colors);

// A soft shadow and a thin edge around the paper; a chosen page has a broader edge in the highlight
// colour. Lines grow with the scale (device pixels that a 96th of an inch has). The shadow reaches
// under the paper, which is drawn afterwards.
void PaintAround(const PlacedPage& placed, double scale, const SurfaceBitmap& surface,
                 const SurfaceColors& colors);

}  // namespace pagivo::native
