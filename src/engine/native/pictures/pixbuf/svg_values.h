// Numbers, lengths, transforms and outlines as SVG writes them.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace pagivo::native {

struct SvgPoint {
  double x = 0;
  double y = 0;
};

struct SvgMatrix {
  double xx = 1, yx = 0, xy = 0, yy = 1, x0 = 0, y0 = 0;

  SvgPoint Apply(SvgPoint point) const {
    return {xx * point.x + xy * point.y + x0, yx * point.x + yy * point.y + y0};
  }
  // The matrix that does first what `inner` does and then what this one does.
  SvgMatrix After(const SvgMatrix& inner) const;
  // The most that a length can grow.
  double Scale() const;
};

// Takes the number at the beginning of `text` away, with the blanks and the comma around it. Gives
// none and leaves the text as it was when there is no number.
std::optional<double> TakeSvgNumber(std::string_view& text);

// All numbers that stand there, whatever stands between them.
std::vector<double> SvgNumbersIn(std::string_view text);

// What the relative units of a length are relative to, in user units.
struct SvgUnits {
  double fontSize = 0;
  double whole = 0;  // of per cent
};
// Gives none for what is no length or has an unknown unit.
std::optional<double> SvgLength(std::string_view text, const SvgUnits& units);

// Reads both the attribute's and the style sheets' way of writing; gives the identity for what is
// neither.
SvgMatrix SvgTransform(std::string_view text);

struct SvgBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};
std::optional<SvgBox> SvgViewBox(std::string_view text);

// What fits a view box into a viewport, by preserveAspectRatio.
SvgMatrix SvgFit(const SvgBox& viewBox, const SvgBox& viewport, std::string_view aspectRatio);

// Above any drawing.
inline constexpr std::size_t kMaximumSvgSegments = std::size_t{1} << 20;

// A line or curve and the points that it stays between.
struct SvgSegment {
  SvgPoint from, control1, control2, to;
  bool isCurve = false;
};

struct SvgPath {
  std::vector<SvgSegment> segments;
  std::size_t length = 0;  // of the text up to where it is no path any more
};

// Arcs come as curves whose points lie around them. Refuses more than kMaximumSvgSegments.
SvgPath ReadSvgPath(std::string_view text);

// Adds what goes through the points, from one to the next.
void AddSvgLines(std::vector<SvgSegment>& segments, const std::vector<SvgPoint>& points);
// Adds something round that lies in the box.
void AddSvgRound(std::vector<SvgSegment>& segments, const SvgBox& box);

}  // namespace pagivo::native
