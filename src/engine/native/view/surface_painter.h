// What is drawn around and over the pages on a surface. Everything is clipped to the bitmap; lines
// and letters grow with the scale (device pixels that a 96th of an inch has).
#pragma once

#include <string_view>

#include "engine/native/view/page_placement.h"
#include "window/surface.h"

namespace pagivo::native {

// The ground that the pages lie on. What will be drawn on in `covered` may be left out.
void PaintGround(const SurfaceBitmap& surface, const SurfaceColors& colors,
                 const SurfaceBox& covered = {});

// A soft shadow and a thin edge around the paper; a chosen page has a broader edge in the highlight
// colour. The shadow reaches under the paper, which is drawn afterwards.
void PaintAround(const PlacedPage& placed, double scale, const SurfaceBitmap& surface,
                 const SurfaceColors& colors);

// A line of text across the top, white on red, for what the user must not miss. What does not fit
// into the width is lost.
void PaintNotice(std::string_view text, double scale, const SurfaceBitmap& surface);

}  // namespace pagivo::native
