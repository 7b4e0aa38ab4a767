#include "engine/native/document/arcs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pagivo::native {
namespace {

TEST(ArcPoints, LieOnTheCircleFromEndToEndCounterClockwise) {
  std::vector<ExactPoint> points;
  AddArc(points, {1000, 2000}, 500, 0, kFullTurn / 4, 0.5);
  EXPECT_NEAR(points.front().x, 1500, 1e-9);
  EXPECT_NEAR(points.front().y, 2000, 1e-9);
  EXPECT_NEAR(points.back().x, 1000, 1e-9);
  EXPECT_NEAR(points.back().y, 1500, 1e-9);
  for (const ExactPoint& point : points) {
    EXPECT_NEAR(std::hypot(point.x - 1000, point.y - 2000), 500, 1e-9);
  }
}

TEST(ArcPoints, AreAsCloseAsTheToleranceAsks) {
  for (const double radius : {1.0, 100.0, 1e5}) {
    const double sagitta = radius * (1 - std::cos(ChordAngle(radius, 0.1) / 2));
    EXPECT_LE(sagitta, 0.1000001) << radius;
  }
}

TEST(ArcPoints, AreNeverCloserThanAnyPageShows) {
  std::vector<ExactPoint> points;
  AddArc(points, {0, 0}, 1e30, 0, kFullTurn, 0.1);
  EXPECT_LT(points.size(), 100'000U);
}

TEST(ArcPoints, TheTurnOverTheStartGoesTheLongWayRound) {
  EXPECT_NEAR(TurnOf({{0, 0}, 1, 1, 2}), 1, 1e-6);
  EXPECT_NEAR(TurnOf({{0, 0}, 1, 2, 1}), kFullTurn - 1, 1e-6);
  EXPECT_NEAR(TurnOf({{0, 0}, 1, 2, 2}), kFullTurn, 1e-6);
}

}  // namespace
}  // namespace pagivo::native
