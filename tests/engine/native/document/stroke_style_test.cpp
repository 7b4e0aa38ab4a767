#include "engine/native/document/stroke_style.h"

#include <gtest/gtest.h>

namespace pagivo::native {
namespace {

TEST(StrokeStyle, AWidthOfZeroIsAHairline) {
  EXPECT_EQ(StrokeWidth({PenStyle::Solid, 0, 0}), kHairlineWidth);
  EXPECT_EQ(StrokeWidth({PenStyle::Solid, 30, 0}), 30);
}

TEST(StrokeStyle, OnlyUnbrokenLinesHaveRoundEnds) {
  EXPECT_TRUE(HasRoundEnds({PenStyle::Solid, 0, 0}));
  EXPECT_TRUE(HasRoundEnds({PenStyle::InsideSolid, 0, 0}));
  for (const PenStyle style :
       {PenStyle::Dash, PenStyle::Dot, PenStyle::DashDot, PenStyle::DashDotDot}) {
    EXPECT_FALSE(HasRoundEnds({style, 0, 0}));
  }
}

TEST(StrokeStyle, AnInsidePenRunsHalfItsWidthInside) {
  const Pen pen{PenStyle::InsideSolid, 40, 0};
  EXPECT_EQ(StrokedRectangle({300, 200, 100, 100}, pen), (Rectangle{120, 120, 280, 180}));
  EXPECT_EQ(StrokedRadius(100, pen), 80);
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

TEST(StrokeStyle, FiguresFarBeyondAnyPaperAreNotDashed) {
  const Pen pen{PenStyle::Dot, 0, 0};
  EXPECT_TRUE(DrawsDashes(pen, {0, 0, 288'000, 288'000}));
  EXPECT_FALSE(DrawsDashes(pen, {-1e9F, 0, 1e9F, 0}));
  EXPECT_FALSE(DrawsDashes({PenStyle::Solid, 0, 0}, {0, 0, 1, 1}));
}

}  // namespace
}  // namespace pagivo::native
