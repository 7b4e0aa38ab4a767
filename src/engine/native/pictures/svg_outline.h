// What it takes to draw an outline.
#pragma once

#include <optional>
#include <span>

#include "engine/native/pictures/svg_document.h"
#include "engine/native/pictures/svg_path.h"

namespace pagivo::native {

// An outline in the pixels that it is drawn to, as far as the work for it goes.
struct SvgOutline {
  double edges = 0;    // curves in the straight pieces that they are drawn as
  double rise = 0;     // sum of the heights of all edges
  double length = 0;   // sum of their lengths
  double corners = 0;  // where segments meet
  double left = 0, top = 0, right = 0, bottom = 0;
};

// The segments of a basic shape or path; none for another element.
std::optional<std::vector<SvgSegment>> SvgSegmentsOf(const SvgNode& node, const SvgUnits& units);

SvgOutline OutlineOf(std::span<const SvgSegment> segments, const SvgMatrix& matrix);

// The same segments wherever they may stand: each as large as the box.
SvgOutline OutlineAnywhere(std::span<const SvgSegment> segments, double width, double height);

struct SvgStroke {
  double width = 0;            // pixels
  double miter = 4;            // how many times its width a corner may stick out
  std::vector<double> dashes;  // pixels; empty for an unbroken line
};
SvgOutline Stroked(const SvgOutline& outline, const SvgStroke& stroke);

}  // namespace pagivo::native
