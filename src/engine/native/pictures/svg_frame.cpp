#include "engine/native/pictures/svg_frame.h"

#include <algorithm>

namespace pagivo::native {
namespace {

void Inherit(std::string_view& value, const SvgNode& node, std::string_view key) {
  const std::string_view own = node.Property(key);
  if (!own.empty() && own != "inherit") value = own;
}

}  // namespace

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
