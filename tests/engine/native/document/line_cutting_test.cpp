#include "engine/native/document/line_cutting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pagivo::native {
namespace {

constexpr Rectangle kReach{-100, -100, 1100, 2100};

void ExpectPart(const LinePart& part, const std::vector<ExactPoint>& points, double start) {
  ASSERT_EQ(part.points.size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(part.points[i].x, points[i].x, 1e-6) << i;
    EXPECT_NEAR(part.points[i].y, points[i].y, 1e-6) << i;
  }
  EXPECT_NEAR(part.start, start, 1e-6);
}

TEST(LineCutting, ReachesTheSameDistanceAroundThePageAndThePensWidthMore) {
  const Rectangle reach = ReachOf({1000, 2000}, {PenStyle::Dash, 500, 0});
  const float around = -reach.x1;
  EXPECT_EQ(reach, (Rectangle{-around, -around, 1000 + around, 2000 + around}));
  EXPECT_EQ(ReachOf({1000, 2000}, {PenStyle::Dash, 800, 0}).x1, reach.x1 - 300);
  EXPECT_GT(around, 500);
}

TEST(LineCutting, LeavesALineWithinReachWhole) {
  const std::vector<ExactPoint> line{{0, 0}, {500, 0}, {500, 500}};
  const auto parts = PartsWithin(kReach, line);
  ASSERT_EQ(parts.size(), 1U);
  ExpectPart(parts[0], line, 0);
}

TEST(LineCutting, CutsBothEndsAndKeepsTheDirection) {
  const auto parts = PartsWithin(kReach, std::vector<ExactPoint>{{-1e9, -5e8}, {1e9, 5e8}});
  ASSERT_EQ(parts.size(), 1U);
  ExpectPart(parts[0], {{-100, -50}, {1100, 550}}, std::hypot(1e9 - 100, 5e8 - 50));
}

TEST(LineCutting, FindsEveryPartThatComesBack) {
  const std::vector<ExactPoint> line{{0, 0}, {5000, 0}, {5000, 1000}, {0, 1000}, {0, 500}};
  const auto parts = PartsWithin(kReach, line);
  ASSERT_EQ(parts.size(), 2U);
  ExpectPart(parts[0], {{0, 0}, {1100, 0}}, 0);
  ExpectPart(parts[1], {{1100, 1000}, {0, 1000}, {0, 500}}, 5000 + 1000 + 3900);
}

TEST(LineCutting, LeavesOutWhatNeverComesNear) {
  for (const ExactPoint end : {ExactPoint{5000, 9000}, ExactPoint{-200, 9000}}) {
    EXPECT_TRUE(PartsWithin(kReach, std::vector<ExactPoint>{{5000, 2200}, end}).empty());
  }
}

TEST(LineCutting, KeepsAPoint) {
  const auto parts = PartsWithin(kReach, std::vector<ExactPoint>{{5, 6}, {5, 6}});
  ASSERT_EQ(parts.size(), 1U);
  ExpectPart(parts[0], {{5, 6}, {5, 6}}, 0);
}

}  // namespace
}  // namespace pagivo::native
