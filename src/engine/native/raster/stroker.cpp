#include "engine/native/raster/stroker.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "engine/native/document/arcs.h"

namespace pagivo::native {
namespace {

// From a line's middle to its edge, a quarter turn from its direction.
struct Normal {
  double x = 0;
  double y = 0;
};

// Every piece winds the same way, so pieces that overlap add up.
class StrokeMaker {
 public:
  StrokeMaker(AreaFiller& filler, double width)
      : filler_(filler), radius_(width / 2), chord_(ChordAngle(radius_, kChordTolerance)) {}

  Normal AddSegment(PixelPoint from, PixelPoint to) {
    const double scale = radius_ / std::hypot(to.x - from.x, to.y - from.y);
    const Normal normal{(from.y - to.y) * scale, (to.x - from.x) * scale};
    const std::array corners{
        PixelPoint{from.x - normal.x, from.y - normal.y},
        PixelPoint{to.x - normal.x, to.y - normal.y},
        PixelPoint{to.x + normal.x, to.y + normal.y},
        PixelPoint{from.x + normal.x, from.y + normal.y},
    };
    filler_.Add(corners);
    return normal;
  }

  // The gap at the outer side of a corner.
  void AddJoin(PixelPoint corner, Normal before, Normal after) {
    const double cross = before.x * after.y - before.y * after.x;
    const double turn = std::atan2(std::abs(cross), before.x * after.x + before.y * after.y);
    AddFan(corner, cross > 0 ? Normal{-before.x, -before.y} : after, turn);
  }

  // A sector that starts at the normal's end.
  void AddFan(PixelPoint center, Normal normal, double turn) {
    const double steps = std::max(1.0, std::ceil(turn / chord_));
    const double cosine = std::cos(turn / steps);
    const double sine = std::sin(turn / steps);
    fan_.assign({center, {center.x + normal.x, center.y + normal.y}});
    for (double step = 0; step < steps; ++step) {
      normal = {normal.x * cosine - normal.y * sine, normal.x * sine + normal.y * cosine};
      fan_.push_back({center.x + normal.x, center.y + normal.y});
    }
    filler_.Add(fan_);
  }

  double Radius() const { return radius_; }

 private:
  AreaFiller& filler_;
  double radius_;
  double chord_;
  std::vector<PixelPoint> fan_;
};

bool AreEqual(const PixelPoint& one, const PixelPoint& other) {
  return one.x == other.x && one.y == other.y;
}

}  // namespace

void AddStroke(AreaFiller& filler, const Outline& outline, double width) {
  StrokeMaker maker(filler, width);
  std::vector<PixelPoint> points = outline.points;
  if (outline.closed) points.push_back(points.front());
  points.erase(std::unique(points.begin(), points.end(), AreEqual), points.end());
  if (points.size() == 1) {
    maker.AddFan(points[0], {maker.Radius(), 0}, 2 * std::numbers::pi);
    return;
  }
  const Normal first = maker.AddSegment(points[0], points[1]);
  Normal last = first;
  for (std::size_t i = 2; i < points.size(); ++i) {
    const Normal next = maker.AddSegment(points[i - 1], points[i]);
    maker.AddJoin(points[i - 1], last, next);
    last = next;
  }
  if (outline.closed) {
    maker.AddJoin(points[0], last, first);
  } else {
    maker.AddFan(points.front(), first, std::numbers::pi);
    maker.AddFan(points.back(), {-last.x, -last.y}, std::numbers::pi);
  }
}

}  // namespace pagivo::native
