#include "engine/native/document/hatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace pagivo::native {
namespace {

constexpr Rectangle kBounds{100, 200, 700, 500};

TEST(Hatch, OnlyHatchingStylesHaveLines) {
  for (const BrushStyle style : {BrushStyle::Solid, BrushStyle::Transparent}) {
    EXPECT_FALSE(IsHatched(style));
    EXPECT_TRUE(HatchLines(style, kBounds).empty());
  }
  for (const BrushStyle style :
       {BrushStyle::Horizontal, BrushStyle::Vertical, BrushStyle::UpwardDiagonal,
        BrushStyle::DownwardDiagonal, BrushStyle::Cross, BrushStyle::DiagonalCross}) {
    EXPECT_TRUE(IsHatched(style));
    EXPECT_FALSE(HatchLines(style, kBounds).empty());
  }
}

TEST(Hatch, HorizontalLinesCountFromThePagesTop) {
  const auto lines = HatchLines(BrushStyle::Horizontal, kBounds);
  ASSERT_EQ(lines.size(), 3U);  // 240, 360, 480
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const float y = 240 + static_cast<float>(i) * kHatchDistance;
    EXPECT_EQ(lines[i].from, (Point{100, y}));
    EXPECT_EQ(lines[i].to, (Point{700, y}));
  }
}

TEST(Hatch, VerticalLinesCountFromThePagesLeft) {
  const auto lines = HatchLines(BrushStyle::Vertical, kBounds);
  ASSERT_EQ(lines.size(), 5U);  // 120 to 600
  EXPECT_EQ(lines.front().from, (Point{120, 200}));
  EXPECT_EQ(lines.front().to, (Point{120, 500}));
}

// The distance of a line from the page's corner, along the line's normal.
float DistanceOf(const HatchLine& line, float side) {
  return (line.from.x + side * line.from.y) / std::numbers::sqrt2_v<float>;
}

TEST(Hatch, DiagonalLinesAreAsFarApartAsOthersAndCoverTheBounds) {
  for (const auto& [style, side] : {std::pair(BrushStyle::UpwardDiagonal, 1.0F),
                                    std::pair(BrushStyle::DownwardDiagonal, -1.0F)}) {
    const auto lines = HatchLines(style, kBounds);
    ASSERT_GT(lines.size(), 3U);
    for (const HatchLine& line : lines) {
      const float multiple = DistanceOf(line, side) / kHatchDistance;
      EXPECT_NEAR(multiple, std::round(multiple), 1e-3);
      EXPECT_NEAR(DistanceOf(line, side), DistanceOf({line.to, line.from}, side), 1e-2);
      EXPECT_EQ(std::abs(line.from.y - line.to.y), kBounds.y2 - kBounds.y1);
    }
  }
}

TEST(Hatch, AnUpwardLineRisesToTheRight) {
  for (const HatchLine& line : HatchLines(BrushStyle::UpwardDiagonal, kBounds)) {
    EXPECT_LT((line.to.y - line.from.y) * (line.to.x - line.from.x), 0);
  }
  for (const HatchLine& line : HatchLines(BrushStyle::DownwardDiagonal, kBounds)) {
    EXPECT_GT((line.to.y - line.from.y) * (line.to.x - line.from.x), 0);
  }
}

TEST(Hatch, ACrossIsBothOfItsHalves) {
  const auto count = [](BrushStyle style) { return HatchLines(style, kBounds).size(); };
  EXPECT_EQ(count(BrushStyle::Cross), count(BrushStyle::Horizontal) + count(BrushStyle::Vertical));
  EXPECT_EQ(count(BrushStyle::DiagonalCross),
            count(BrushStyle::UpwardDiagonal) + count(BrushStyle::DownwardDiagonal));
}

}  // namespace
}  // namespace pagivo::native
