// How much work a drawing is, told before anything is drawn.
#pragma once

#include "engine/native/pictures/svg_frame.h"

namespace pagivo::native {

// About a nanosecond each, on a machine of ten years ago.
inline constexpr double kMaximumSvgWork = 2e9;
// What groups that are drawn apart before they come onto the picture may take at one time.
inline constexpr double kMaximumSvgLayerBytes = 192 << 20;

// Whether the SVG library can draw the file at that many pixels within the bounds. `own` is the
// file's own size, which fills the pixels.
//
// Nothing stops that library once it draws. So all that it will do is counted: elements, `use`
// followed, with their outlines at the size that they will have, the pixels that they can cover,
// what is drawn apart for opacity, masks, patterns and markers. Where the place of something is not
// told easily, it counts as if it covered everything.
bool SvgWorkIsBounded(const SvgNode& root, const SvgIds& ids, SvgSize own, SvgSize pixels);

}  // namespace pagivo::native
