// How pens draw and brushes hatch, the same for every player.
//
// Joins are always round; an unbroken line has round ends, too, and the dashes of a broken one are
// cut off straight. Between the lines of a hatch the paper shows.
#pragma once

#include <span>
#include <vector>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

// --- Pens -------------------------------------------------------------------------------------

inline bool DrawsLines(const Pen& pen) {
  return pen.style != PenStyle::Invisible;
}

// Twips. No line is thinner than a hairline.
inline float StrokeWidth(const Pen& pen) {
  return pen.width > kHairlineWidth ? pen.width : kHairlineWidth;
}

// The dash lengths of a pen, on and off in turn; empty for an unbroken line. One table for every
// player: multiples of the pen's width (at least that of a hairline).
std::span<const float> DashMultiples(PenStyle style);

inline bool IsBroken(const Pen& pen) {
  return !DashMultiples(pen.style).empty();
}

// How far along its dashes, in twips, a line is that begins `start` twips after its first dash.
double DashPhase(const Pen& pen, double start);

// The pens that draw figures. One of style InsideSolid is no wider than its figure is across, for
// it would leave the figure. Some readers of PDF leave a hole where a pen is wider than its curve's
// radius, so they are never asked to: such a circle is drawn as a dot.
Pen PenOfRectangle(const Rectangle& figure, Pen pen);

Pen PenOfCircle(float radius, Pen pen);

Pen PenOfSector(float radius, Pen pen);

// How far inside a rectangle, circle or sector the pen's middle runs: a pen of style InsideSolid
// stays inside whole.
inline float StrokeInset(const Pen& pen) {
  return pen.style == PenStyle::InsideSolid ? StrokeWidth(pen) / 2 : 0;
}

// The rectangle that the pen's middle follows, its edges in order. Fills end there, too, or they
// would show around the outline's round corners.
Rectangle StrokedRectangle(const Rectangle& rectangle, const Pen& pen);

// The radius of the circle or sector that the pen's middle follows.
float StrokedRadius(float radius, const Pen& pen);

// --- Brushes ----------------------------------------------------------------------------------

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
