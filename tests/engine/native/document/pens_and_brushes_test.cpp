#include "engine/native/document/pens_and_brushes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace pagivo::native {
namespace {

TEST(StrokeStyle, AWidthOfZeroIsAHairline) {
  EXPECT_EQ(StrokeWidth({PenStyle::Solid, 0, 0}), kHairlineWidth);
  EXPECT_EQ(StrokeWidth({PenStyle::Solid, 30, 0}), 30);
}

TEST(StrokeStyle, NoWidthIsThinnerThanAHairline) {
  for (const float width : {0.001F, 1.0F, 4.9F, -3.0F, std::nanf("")}) {
    EXPECT_EQ(StrokeWidth({PenStyle::Solid, width, 0}), kHairlineWidth) << width;
  }
}

TEST(StrokeStyle, PensWithDashesAreBroken) {
  EXPECT_FALSE(IsBroken({PenStyle::Solid, 0, 0}));
  EXPECT_FALSE(IsBroken({PenStyle::InsideSolid, 0, 0}));
  for (const PenStyle style :
       {PenStyle::Dash, PenStyle::Dot, PenStyle::DashDot, PenStyle::DashDotDot}) {
    EXPECT_TRUE(IsBroken({style, 0, 0}));
  }
}

TEST(StrokeStyle, AnInsidePenRunsHalfItsWidthInside) {
  const Pen pen{PenStyle::InsideSolid, 40, 0};
  EXPECT_EQ(StrokedRectangle({300, 200, 100, 100}, pen), (Rectangle{120, 120, 280, 180}));
  EXPECT_EQ(StrokedRadius(100, pen), 80);
}

TEST(StrokeStyle, AnInsidePenIsNoWiderThanItsFigure) {
  const Pen pen{PenStyle::InsideSolid, 4000, 0};
  EXPECT_EQ(PenOfRectangle({300, 100, 100, 200}, pen).width, 100);
  EXPECT_EQ(PenOfCircle(80, pen).width, 160);
  EXPECT_EQ(PenOfCircle(4000, pen).width, 8000) << "a dot";
  EXPECT_EQ(PenOfSector(80, pen).width, 80);
  EXPECT_EQ(PenOfRectangle({0, 0, 8000, 8000}, pen), pen);
  EXPECT_EQ(PenOfCircle(8000, pen), pen);
  EXPECT_EQ(PenOfSector(8000, pen), pen);
}

TEST(StrokeStyle, OtherPensAreAsWideInAnyFigure) {
  const Pen pen{PenStyle::Solid, 4000, 0};
  EXPECT_EQ(PenOfRectangle({300, 100, 100, 200}, pen), pen);
  EXPECT_EQ(PenOfCircle(80, pen), pen);
  EXPECT_EQ(PenOfSector(80, pen), pen);
}

TEST(StrokeStyle, AnInsidePenNeverTurnsAFigureInsideOut) {
  const Pen pen{PenStyle::InsideSolid, 4000, 0};
  EXPECT_EQ(StrokedRectangle({100, 100, 300, 200}, pen), (Rectangle{200, 150, 200, 150}));
  EXPECT_EQ(StrokedRadius(100, pen), 0);
}

TEST(StrokeStyle, OtherPensFollowTheEdges) {
  const Pen pen{PenStyle::Dash, 40, 0};
  EXPECT_EQ(StrokedRectangle({300, 200, 100, 100}, pen), (Rectangle{100, 100, 300, 200}));
  EXPECT_EQ(StrokedRadius(100, pen), 100);
}

TEST(StrokeStyle, DashesGoOnWhereTheirPatternIs) {
  const Pen pen{PenStyle::Dash, 10, 0};  // on for 90 and off for 30
  EXPECT_EQ(DashPhase(pen, 0), 0);
  EXPECT_EQ(DashPhase(pen, 100), 100);
  EXPECT_EQ(DashPhase(pen, 1200 + 7.5), 7.5);
  EXPECT_EQ(DashPhase({PenStyle::Solid, 10, 0}, 100), 0);
}

TEST(Dashes, UnbrokenPensHaveNone) {
  for (const PenStyle style : {PenStyle::Solid, PenStyle::Invisible, PenStyle::InsideSolid}) {
    EXPECT_TRUE(DashMultiples(style).empty());
  }
}

TEST(Dashes, BrokenPensGoOnAndOffInTurn) {
  const std::vector<std::pair<PenStyle, std::size_t>> lengths = {
      {PenStyle::Dash, 2}, {PenStyle::Dot, 2}, {PenStyle::DashDot, 4}, {PenStyle::DashDotDot, 6}};
  for (const auto& [style, count] : lengths) {
    const auto dashes = DashMultiples(style);
    ASSERT_EQ(dashes.size(), count);
    for (const float length : dashes) EXPECT_GT(length, 0);
  }
  EXPECT_GT(DashMultiples(PenStyle::Dash)[0], DashMultiples(PenStyle::Dot)[0]);
}

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
