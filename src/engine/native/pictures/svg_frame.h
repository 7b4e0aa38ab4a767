// What holds for an element of an SVG file and those in it.
#pragma once

#include <cmath>
#include <string>

#include "engine/native/pictures/svg_outline.h"

namespace pagivo::native {

struct SvgSize {
  double width = 0;
  double height = 0;
};

struct SvgFrame {
  SvgMatrix matrix;
  SvgBox viewport;          // user units
  bool isAnywhere = false;  // the place of things is not known, only that they lie in `extent`
  SvgSize extent;           // pixels
  SvgOutline clip;          // of all clip paths together; no edges where there are none
  double layerBytes = 0;
  double fontSize = 12;
  std::string_view fill = "black";
  std::string_view stroke = "none";
  std::string_view strokeWidth = "1";
  std::string_view dashes;
  std::string_view miter = "4";
  std::string_view markers;
  std::string font;

  SvgUnits Units() const { return {fontSize, std::hypot(viewport.width, viewport.height)}; }

  // The most that a length in user units grows to in pixels, and the least.
  double Scale() const;
  double LeastScale() const;
};

void InheritSvgStyle(SvgFrame& frame, const SvgNode& node);
void InheritSvgFont(SvgFrame& frame, const SvgNode& node);

// Moves by the element's x and y.
void TranslateSvg(const SvgNode& node, SvgFrame& frame);

// Into the coordinates of an svg or symbol element. `size` is the element that says how large: the
// one itself, or the `use` that shows it.
void EnterSvgViewport(const SvgNode& node, const SvgNode& size, SvgFrame& frame);

SvgStroke SvgStrokeIn(const SvgFrame& frame);

}  // namespace pagivo::native
