// The lines of brushes that hatch, the same for every player. Between the lines the paper shows.
#pragma once

#include <vector>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

// Twips. Lines are counted from the page's upper left corner, so that the hatching of neighbouring
// figures runs on.
inline constexpr float kHatchDistance = 120;
inline constexpr float kHatchWidth = kHairlineWidth;

struct HatchLine {
  Point from;
  Point to;
};

inline bool IsHatched(BrushStyle style) {
  return style != BrushStyle::Solid && style != BrushStyle::Transparent;
}

// Lines that cover `bounds`, whose edges are in order, at least; to be clipped by the figure. Their
// number grows with the bounds, which the caller keeps within the page.
std::vector<HatchLine> HatchLines(BrushStyle style, const Rectangle& bounds);

}  // namespace pagivo::native
