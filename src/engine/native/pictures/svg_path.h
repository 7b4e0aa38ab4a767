// Outlines as SVG writes them.
#pragma once

#include <string_view>
#include <vector>

#include "engine/native/pictures/svg_values.h"

namespace pagivo::native {

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
