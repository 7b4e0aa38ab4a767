// Lines that run far beyond a page, cut off where nobody sees them.
#pragma once

#include <span>
#include <vector>

#include "engine/native/document/display_list.h"
#include "engine/native/document/document.h"

namespace pagivo::native {

// The rectangle, in twips, within which a page's outlines are drawn whole. What leaves it is cut
// off there, so that a broken line costs no more than the dashes around the page.
Rectangle ReachOf(const PageGeometry& page, const Pen& pen);

inline bool Contains(const Rectangle& outer, const Rectangle& inner) {
  return outer.x1 <= inner.x1 && outer.y1 <= inner.y1 && outer.x2 >= inner.x2 &&
         outer.y2 >= inner.y2;
}

// Part of a line, and how far from the line's start, along the line, it begins: dashes go on as if
// the line were whole.
struct LinePart {
  std::vector<ExactPoint> points;
  double start = 0;
};

// The parts of a line of at least two points that lie within a rectangle.
std::vector<LinePart> PartsWithin(const Rectangle& reach, std::span<const ExactPoint> line);

}  // namespace pagivo::native
