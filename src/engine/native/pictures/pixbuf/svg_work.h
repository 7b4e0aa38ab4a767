// How much work a drawing is, told before anything is drawn: outlines and frames are what it is
// reckoned with.
#pragma once

#include <cmath>
#include <optional>
#include <span>
#include <string>

#include "engine/native/pictures/pixbuf/svg_document.h"
#include "engine/native/pictures/pixbuf/svg_values.h"

namespace pagivo::native {

// An outline in the pixels that it is drawn to, as far as the work for it goes.
struct SvgOutline {
  double edges = 0;    // curves in the straight pieces that they are drawn as
  double rise = 0;     // sum of the heights of all edges
  double length = 0;   // sum of their lengths
  double corners = 0;  // where segments meet
  double left = 0, top = 0, right = 0, bottom = 0;
};

// Gives the segments of a basic shape or path, and none for another element.
std::optional<std::vector<SvgSegment>> SvgSegmentsOf(const SvgNode& node, const SvgUnits& units);

SvgOutline OutlineOf(std::span<const SvgSegment> segments, const SvgMatrix& matrix);

// Tells of segments whose place is not known: each counts as if it were as large as the box.
SvgOutline OutlineAnywhere(std::span<const SvgSegment> segments, double width, double height);

struct SvgStroke {
  double width = 0;            // pixels
  double miter = 4;            // how many times its width a corner may stick out
  std::vector<double> dashes;  // pixels; empty for an unbroken line
};
SvgOutline Stroked(const SvgOutline& outline, const SvgStroke& stroke);

struct SvgSize {
  double width = 0;
  double height = 0;
};

// What holds for an element and those in it.
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

// Goes over to the coordinates of an svg or symbol element. `size` is the element that says how
// large: the one itself, or the `use` that shows it.
void EnterSvgViewport(const SvgNode& node, const SvgNode& size, SvgFrame& frame);

SvgStroke SvgStrokeIn(const SvgFrame& frame);

// A unit of work took about a nanosecond on a machine of ten years ago.
inline constexpr double kMaximumSvgWork = 2e9;
// So many bytes may be taken at one time by groups that are drawn apart before they come onto the
// picture.
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
