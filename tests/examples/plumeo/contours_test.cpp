#include "contours.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

namespace plumeo {
namespace {

// A lattice of 81 x 81 nodes from -1 to 1 both ways.
Field FieldOf(const std::function<double(double, double)>& function) {
  Field field{.columns = 81, .rows = 81, .origin = {-1, -1}, .spacing = 0.025};
  for (std::size_t row = 0; row < field.rows; ++row) {
    for (std::size_t column = 0; column < field.columns; ++column) {
      field.values.push_back(function(-1 + 0.025 * static_cast<double>(column),
                                      -1 + 0.025 * static_cast<double>(row)));
    }
  }
  return field;
}

double Cone(double x, double y) {
  return 1 - std::hypot(x, y);
}
double Ring(double x, double y) {
  return -std::abs(std::hypot(x, y) - 0.5);
}

TEST(TraceContours, FindsTheCircleOfACone) {
  const auto loops = TraceContours(FieldOf(Cone), {0.5});
  ASSERT_EQ(loops.size(), 1u);
  EXPECT_TRUE(loops[0].encloses);
  EXPECT_NEAR(loops[0].area, std::numbers::pi * 0.25, 2e-3);
  for (const Point& point : loops[0].points) EXPECT_NEAR(std::hypot(point.x, point.y), 0.5, 2e-3);
}

TEST(TraceContours, TellsAHoleFromAnArea) {
  const auto loops = TraceContours(FieldOf(Ring), {-0.1});
  ASSERT_EQ(loops.size(), 2u);
  EXPECT_TRUE(loops[0].encloses);
  EXPECT_NEAR(loops[0].area, std::numbers::pi * 0.36, 3e-3);
  EXPECT_FALSE(loops[1].encloses);
  EXPECT_NEAR(loops[1].area, std::numbers::pi * 0.16, 3e-3);
}

TEST(TraceContours, GivesTheLargestLoopFirst) {
  const auto loops = TraceContours(FieldOf(Cone), {0.8, 0.2, 0.5});
  ASSERT_EQ(loops.size(), 3u);
  EXPECT_EQ(loops[0].level, 1u);
  EXPECT_EQ(loops[1].level, 2u);
  EXPECT_EQ(loops[2].level, 0u);
}

TEST(TraceContours, ClosesAreasAlongTheFieldsEdge) {
  const auto loops = TraceContours(FieldOf([](double x, double) { return x; }), {0});
  ASSERT_EQ(loops.size(), 1u);
  EXPECT_NEAR(loops[0].area, 2, 1e-6);
}

TEST(TraceContours, FillsAFieldThatLiesWhollyAbove) {
  const auto loops = TraceContours(FieldOf([](double, double) { return 7.0; }), {1});
  ASSERT_EQ(loops.size(), 1u);
  EXPECT_NEAR(loops[0].area, 4, 1e-9);
}

TEST(TraceContours, FindsNothingAboveTheHighestValue) {
  EXPECT_TRUE(TraceContours(FieldOf(Cone), {2}).empty());
}

TEST(TraceContours, CutsASaddleByItsMiddle) {
  const Field high{2, 2, {0, 0}, 1, {1.0, 0.2, 0.2, 1.0}};
  EXPECT_EQ(TraceContours(high, {0.5}).size(), 1u);
  const Field low{2, 2, {0, 0}, 1, {1.0, -0.5, -0.5, 1.0}};
  EXPECT_EQ(TraceContours(low, {0.5}).size(), 2u);
}

}  // namespace
}  // namespace plumeo
