#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine/native/pictures/pixbuf/svg_work.h"

namespace pagivo::native {
namespace {

// The straight pieces that a curve of that length comes to at a tenth of a pixel's precision.
double PiecesOf(double length) {
  return 2 + 1.5 * std::sqrt(length);
}

double LengthOf(const SvgNode& node, std::string_view key, const SvgUnits& units) {
  return SvgLength(node.Property(key), units).value_or(0);
}

SvgBox BoxAround(double x, double y, double radiusX, double radiusY) {
  return {x - radiusX, y - radiusY, 2 * radiusX, 2 * radiusY};
}

std::vector<SvgSegment> Rectangle(const SvgNode& node, const SvgUnits& units) {
  const double x = LengthOf(node, "x", units);
  const double y = LengthOf(node, "y", units);
  const double right = x + LengthOf(node, "width", units);
  const double bottom = y + LengthOf(node, "height", units);
  std::vector<SvgSegment> segments;
  AddSvgLines(segments, {{x, y}, {right, y}, {right, bottom}, {x, bottom}, {x, y}});
  const bool round = !node.Property("rx").empty() || !node.Property("ry").empty();
  if (round) AddSvgRound(segments, {x, y, right - x, bottom - y});
  return segments;
}

std::vector<SvgSegment> Round(const SvgNode& node, const SvgUnits& units) {
  const double radius = LengthOf(node, "r", units);
  const double radiusX = std::max({radius, LengthOf(node, "rx", units)});
  const double radiusY = std::max({radius, LengthOf(node, "ry", units)});
  // One radius that is left to itself is the other one.
  const double large = std::max(radiusX, radiusY);
  std::vector<SvgSegment> segments;
  AddSvgRound(segments, BoxAround(LengthOf(node, "cx", units), LengthOf(node, "cy", units),
                                  radiusX > 0 ? radiusX : large, radiusY > 0 ? radiusY : large));
  return segments;
}

std::vector<SvgSegment> Points(const SvgNode& node) {
  const std::vector<double> numbers = SvgNumbersIn(node.Attribute("points"));
  std::vector<SvgPoint> points;
  for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
    points.push_back({numbers[i], numbers[i + 1]});
  }
  if (!points.empty()) points.push_back(points.front());
  std::vector<SvgSegment> segments;
  AddSvgLines(segments, points);
  return segments;
}

void Include(SvgOutline& outline, SvgPoint point) {
  outline.left = std::min(outline.left, point.x);
  outline.right = std::max(outline.right, point.x);
  outline.top = std::min(outline.top, point.y);
  outline.bottom = std::max(outline.bottom, point.y);
}

void Inherit(std::string_view& value, const SvgNode& node, std::string_view key) {
  const std::string_view own = node.Property(key);
  if (!own.empty() && own != "inherit") value = own;
}

}  // namespace

std::optional<std::vector<SvgSegment>> SvgSegmentsOf(const SvgNode& node, const SvgUnits& units) {
  if (node.name == "path") return ReadSvgPath(node.Attribute("d")).segments;
  if (node.name == "rect") return Rectangle(node, units);
  if (node.name == "circle" || node.name == "ellipse") return Round(node, units);
  if (node.name == "polyline" || node.name == "polygon") return Points(node);
  if (node.name != "line") return std::nullopt;
  std::vector<SvgSegment> segments;
  AddSvgLines(segments, {{LengthOf(node, "x1", units), LengthOf(node, "y1", units)},
                         {LengthOf(node, "x2", units), LengthOf(node, "y2", units)}});
  return segments;
}

SvgOutline OutlineOf(std::span<const SvgSegment> segments, const SvgMatrix& matrix) {
  SvgOutline outline;
  if (segments.empty()) return outline;
  const SvgPoint begin = matrix.Apply(segments.front().from);
  outline.left = outline.right = begin.x;
  outline.top = outline.bottom = begin.y;
  for (const SvgSegment& segment : segments) {
    const SvgPoint points[] = {matrix.Apply(segment.from), matrix.Apply(segment.control1),
                               matrix.Apply(segment.control2), matrix.Apply(segment.to)};
    double length = 0;
    for (std::size_t i = 0; i < std::size(points); ++i) {
      Include(outline, points[i]);
      if (i == 0) continue;
      length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
      outline.rise += std::abs(points[i].y - points[i - 1].y);
    }
    outline.length += length;
    outline.edges += segment.isCurve ? PiecesOf(length) : 1;
  }
  // A closing edge, which an outline without one is given where it is filled.
  outline.edges += 1;
  outline.rise += outline.bottom - outline.top;
  outline.corners = static_cast<double>(segments.size()) + 1;
  return outline;
}

SvgOutline OutlineAnywhere(std::span<const SvgSegment> segments, double width, double height) {
  SvgOutline outline;
  for (const SvgSegment& segment : segments) {
    outline.edges += segment.isCurve ? PiecesOf(3 * (width + height)) : 1;
  }
  const auto count = static_cast<double>(segments.size());
  outline.rise = 3 * count * height;
  outline.length = 3 * count * (width + height);
  outline.corners = count + 1;
  outline.right = width;
  outline.bottom = height;
  return outline;
}

SvgOutline Stroked(const SvgOutline& outline, const SvgStroke& stroke) {
  constexpr double kFinestPeriod = 0.1;  // what is finer is drawn as if unbroken
  SvgOutline stroked = outline;
  const double period = std::accumulate(stroke.dashes.begin(), stroke.dashes.end(), 0.0);
  const double dashes = period < kFinestPeriod
                            ? 0
                            : outline.length / period * static_cast<double>(stroke.dashes.size());
  // Both sides of every edge, and a round or square end at both ends of a dash.
  const double ends = outline.corners + 2 * dashes;
  const double edgesOfAnEnd = 4 + std::sqrt(stroke.width);
  stroked.edges = 2 * outline.edges + ends * edgesOfAnEnd;
  stroked.rise = 2 * outline.rise + 2 * (ends + outline.edges) * stroke.width;
  const double reach = stroke.width * std::max(1.0, stroke.miter / 2);
  stroked.left -= reach;
  stroked.right += reach;
  stroked.top -= reach;
  stroked.bottom += reach;
  return stroked;
}

double SvgFrame::Scale() const {
  return isAnywhere ? std::max(extent.width, extent.height) : matrix.Scale();
}

double SvgFrame::LeastScale() const {
  constexpr double kLeast = 1e-3;
  if (isAnywhere) return kLeast;
  return std::abs(matrix.xx * matrix.yy - matrix.xy * matrix.yx) / std::max(matrix.Scale(), 1e-9);
}

void InheritSvgStyle(SvgFrame& frame, const SvgNode& node) {
  InheritSvgFont(frame, node);
  Inherit(frame.fill, node, "fill");
  Inherit(frame.stroke, node, "stroke");
  Inherit(frame.strokeWidth, node, "stroke-width");
  Inherit(frame.dashes, node, "stroke-dasharray");
  Inherit(frame.miter, node, "stroke-miterlimit");
}

void InheritSvgFont(SvgFrame& frame, const SvgNode& node) {
  for (const char* key : {"font-family", "font-weight", "font-style", "font-stretch", "font"}) {
    if (!node.Property(key).empty()) frame.font.append("|").append(node.Property(key));
  }
  const SvgUnits units{frame.fontSize, frame.fontSize};
  if (const auto size = SvgLength(node.Property("font-size"), units)) frame.fontSize = *size;
  for (const double number : SvgNumbersIn(node.Property("font"))) {
    constexpr double kLargestUnit = 300;  // an inch
    frame.fontSize = std::max(frame.fontSize, number * kLargestUnit);
  }
}

void TranslateSvg(const SvgNode& node, SvgFrame& frame) {
  const double x = SvgLength(node.Property("x"), frame.Units()).value_or(0);
  const double y = SvgLength(node.Property("y"), frame.Units()).value_or(0);
  frame.matrix = frame.matrix.After({1, 0, 0, 1, x, y});
}

void EnterSvgViewport(const SvgNode& node, const SvgNode& size, SvgFrame& frame) {
  const auto side = [&](std::string_view key, double whole) {
    std::string_view text = size.Property(key);
    if (text.empty()) text = node.Property(key);
    return SvgLength(text, {frame.fontSize, whole}).value_or(whole);
  };
  SvgBox viewport{0, 0, side("width", frame.viewport.width), side("height", frame.viewport.height)};
  if (node.name == "svg") TranslateSvg(node, frame);
  const std::optional<SvgBox> viewBox = SvgViewBox(node.Attribute("viewBox"));
  if (viewBox) {
    frame.matrix =
        frame.matrix.After(SvgFit(*viewBox, viewport, node.Attribute("preserveAspectRatio")));
  }
  frame.viewport = viewBox.value_or(viewport);
}

SvgStroke SvgStrokeIn(const SvgFrame& frame) {
  SvgStroke stroke;
  stroke.width = SvgLength(frame.strokeWidth, frame.Units()).value_or(1) * frame.Scale();
  stroke.miter = SvgLength(frame.miter, {}).value_or(4);
  std::string_view dashes = frame.dashes;
  while (!dashes.empty()) {
    const std::size_t end = std::min(dashes.find_first_of(", \t\r\n"), dashes.size());
    const auto dash = SvgLength(dashes.substr(0, end), frame.Units());
    // The least that a length can shrink counts for dashes.
    if (dash) stroke.dashes.push_back(*dash * frame.LeastScale());
    dashes.remove_prefix(std::min(end + 1, dashes.size()));
  }
  return stroke;
}

}  // namespace pagivo::native
