#include "engine/native/document/stroke_style.h"

#include <gtest/gtest.h>

#include <cmath>

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

}  // namespace
}  // namespace pagivo::native
