#include "engine/native/document/line_cutting.h"

#include <algorithm>
#include <cmath>

#include "engine/native/document/pens_and_brushes.h"

namespace pagivo::native {
namespace {

// Twips beyond the page's edges and the pen's own width: ten inches.
constexpr float kReach = 14400;

// Which part of a segment is left, from 0 at its start to 1 at its end; empty when `from` is not
// below `to`.
struct Share {
  double from = 0;
  double to = 1;

  // Keeps what lies between two limits in one direction, along which the segment goes `by`.
  void Keep(double at, double by, double low, double high) {
    if (by == 0) {
      if (at < low || at > high) to = from;
      return;
    }
    const auto [first, last] = std::minmax({(low - at) / by, (high - at) / by});
    from = std::max(from, first);
    to = std::min(to, last);
  }
};

Share ShareWithin(const Rectangle& reach, const ExactPoint& begin, const ExactPoint& end) {
  Share share;
  share.Keep(begin.x, end.x - begin.x, reach.x1, reach.x2);
  share.Keep(begin.y, end.y - begin.y, reach.y1, reach.y2);
  return share;
}

ExactPoint Between(const ExactPoint& begin, const ExactPoint& end, double share) {
  if (share == 1) return end;
  return {begin.x + share * (end.x - begin.x), begin.y + share * (end.y - begin.y)};
}

}  // namespace

Rectangle ReachOf(const PageGeometry& page, const Pen& pen) {
  const float room = kReach + StrokeWidth(pen);
  return {-room, -room, page.width + room, page.height + room};
}

std::vector<LinePart> PartsWithin(const Rectangle& reach, std::span<const ExactPoint> line) {
  std::vector<LinePart> parts;
  bool goesOn = false;  // the last part ends where the segment begins
  double start = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const ExactPoint& begin = line[i - 1];
    const ExactPoint& end = line[i];
    const double length = std::hypot(end.x - begin.x, end.y - begin.y);
    const Share share = ShareWithin(reach, begin, end);
    const bool isSeen = share.from < share.to;
    if (isSeen) {
      if (!goesOn || share.from > 0) {
        parts.push_back({{Between(begin, end, share.from)}, start + share.from * length});
      }
      parts.back().points.push_back(Between(begin, end, share.to));
    }
    goesOn = isSeen && share.to == 1;
    start += length;
  }
  return parts;
}

}  // namespace pagivo::native
