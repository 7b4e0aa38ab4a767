#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "engine/native/document/pens_and_brushes.h"
#include "engine/native/raster/drawn_page.h"

namespace pagivo::native {
namespace {

using Figures = DrawnPage;

constexpr auto kQuarterTurn = std::numbers::pi_v<float> / 2;

TEST_F(Figures, FillOfARectangleCoversExactlyItsPixels) {
  UseNoPen();
  UseBrush(BrushStyle::Solid, kRed);
  Page().DrawRectangle(Pixels(50, 60, 100, 80));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkBoxOf(bitmap), (InkBox{50, 60, 100, 80}));
  EXPECT_EQ(PixelAt(bitmap, 50, 60), kRedPixel);
  EXPECT_EQ(PixelAt(bitmap, 99, 79), kRedPixel);
}

TEST_F(Figures, FillOfHalfAPixelIsHalfAsDark) {
  UseNoPen();
  UseBrush(BrushStyle::Solid, 0);
  Page().DrawRectangle(Pixels(50.5F, 60, 100, 80));
  EXPECT_NEAR(InkAt(Draw(), 50, 70), 128, 2);
}

TEST_F(Figures, RectangleDoesNotMindTheOrderOfItsEdges) {
  UseBrush(BrushStyle::Solid, kRed);
  Page().DrawRectangle(Pixels(100, 80, 50, 60));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(PixelAt(bitmap, 75, 70), kRedPixel);
  EXPECT_EQ(PixelAt(bitmap, 50, 70), kBlackPixel);
}

TEST_F(Figures, HairlineIsOnePixelOfFullColour) {
  for (const float offset : {0.0F, 0.3F, 0.5F, 0.8F}) {
    Page().DrawLine(PointAt(20 + offset, 20), PointAt(20 + offset, 100));
    Page().DrawLine(PointAt(40, 150 + offset), PointAt(100, 150 + offset));
  }
  const Bitmap bitmap = Draw();
  for (int x = 0; x < 40; ++x) {
    EXPECT_TRUE(InkAt(bitmap, x, 50) == 0 || InkAt(bitmap, x, 50) == 255) << x;
  }
  for (int y = 140; y < 160; ++y) {
    EXPECT_TRUE(InkAt(bitmap, 70, y) == 0 || InkAt(bitmap, 70, y) == 255) << y;
  }
}

TEST_F(Figures, HairlineLiesWithinHalfAPixelOfItsPlace) {
  Page().DrawLine(PointAt(20.5F, 20), PointAt(20.5F, 100));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkAt(bitmap, 19, 50), 0);
  EXPECT_EQ(InkAt(bitmap, 20, 50), 255);
  EXPECT_EQ(InkAt(bitmap, 21, 50), 0);
}

TEST_F(Figures, SlantedHairlineDoesNotFade) {
  Page().DrawLine(PointAt(20, 20), PointAt(180, 90));
  const Bitmap bitmap = Draw();
  for (int x = 30; x < 170; ++x) {
    int ink = 0;
    for (int y = 0; y < 200; ++y) ink += InkAt(bitmap, x, y);
    EXPECT_GT(ink, 230) << x;
  }
}

TEST_F(Figures, PenWidthIsInTwips) {
  Page().SetPen({PenStyle::Solid, 10 * kTwips, 0});
  Page().DrawLine(PointAt(50, 100), PointAt(150, 100));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkAt(bitmap, 100, 94), 0);
  EXPECT_EQ(InkAt(bitmap, 100, 95), 255);
  EXPECT_EQ(InkAt(bitmap, 100, 104), 255);
  EXPECT_EQ(InkAt(bitmap, 100, 105), 0);
}

TEST_F(Figures, UnbrokenLineHasRoundEnds) {
  Page().SetPen({PenStyle::Solid, 20 * kTwips, 0});
  Page().DrawLine(PointAt(50, 100), PointAt(150, 100));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkAt(bitmap, 42, 100), 255);  // 8 of the 10 pixels that the end stands out
  EXPECT_EQ(InkAt(bitmap, 42, 91), 0);     // but not in the corner
}

TEST_F(Figures, InvisiblePenDrawsNothing) {
  UseNoPen();
  Page().DrawLine(PointAt(20, 20), PointAt(100, 100));
  Page().DrawRectangle(Pixels(20, 20, 100, 100));
  EXPECT_TRUE(HasNoInk(Draw()));
}

TEST_F(Figures, InsideSolidPenStaysInside) {
  Page().SetPen({PenStyle::InsideSolid, 10 * kTwips, 0});
  Page().DrawRectangle(Pixels(50, 50, 150, 100));
  EXPECT_EQ(InkBoxOf(Draw()), (InkBox{50, 50, 150, 100}));
}

TEST_F(Figures, InsideSolidPenStaysInsideACircle) {
  Page().SetPen({PenStyle::InsideSolid, 10 * kTwips, 0});
  Page().DrawCircle(PointAt(100, 100), 50 * kTwips);
  EXPECT_EQ(InkBoxOf(Draw()), (InkBox{50, 50, 150, 150}));
}

TEST_F(Figures, InsideSolidPenStaysInsideASectorsRadius) {
  Page().SetPen({PenStyle::InsideSolid, 20 * kTwips, 0});
  Page().DrawArc({PointAt(100, 100), 50 * kTwips, 0, kQuarterTurn, true, true});
  const InkBox box = InkBoxOf(Draw());
  EXPECT_EQ(box.top, 50);
  EXPECT_EQ(box.right, 150);
}

TEST_F(Figures, InsideSolidPenStaysInsideHoweverWide) {
  for (const float width : {60.0F, 100.0F, 1000.0F}) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({3000, 3000});
    recorder.SetPen({PenStyle::InsideSolid, width * kTwips, 0});
    recorder.DrawRectangle(Pixels(20, 30, 80, 70));
    recorder.DrawCircle(PointAt(150, 150), 30 * kTwips);
    const Bitmap bitmap = DrawWholePage(document, 1, 96);
    EXPECT_EQ(InkBoxOf(bitmap), (InkBox{20, 30, 180, 180})) << width;
    EXPECT_EQ(PixelAt(bitmap, 50, 50), kBlackPixel);
    EXPECT_EQ(PixelAt(bitmap, 150, 150), kBlackPixel);
    EXPECT_EQ(PixelAt(bitmap, 95, 50), kWhitePixel);
    EXPECT_EQ(PixelAt(bitmap, 115, 150), kWhitePixel);
  }
}

TEST_F(Figures, FillDoesNotShowOutsideAnInsideSolidPensRoundCorners) {
  Page().SetPen({PenStyle::InsideSolid, 30 * kTwips, 0});
  UseBrush(BrushStyle::Solid, kRed);
  Page().DrawRectangle(Pixels(50, 50, 150, 150));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(PixelAt(bitmap, 51, 51), kWhitePixel);
  EXPECT_EQ(PixelAt(bitmap, 100, 100), kRedPixel);
}

TEST_F(Figures, NoLineIsThinnerThanAHairline) {
  constexpr double kFineDotsPerInch = 2400;
  const auto drawn = [](float width) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({300, 300});
    recorder.SetPen({PenStyle::Solid, width, 0});
    recorder.DrawLine({20, 20}, {250, 130});
    recorder.DrawCircle({150, 200}, 50);
    return DrawWholePage(document, 1, kFineDotsPerInch).pixels;
  };
  EXPECT_EQ(drawn(1), drawn(0));
  EXPECT_NE(drawn(10), drawn(0));
}

TEST_F(Figures, DashesAreMultiplesOfThePenWidth) {
  Page().SetPen({PenStyle::Dash, 2 * kTwips, 0});
  Page().DrawLine(PointAt(10, 100), PointAt(190, 100));
  const Bitmap bitmap = Draw();
  const auto multiples = DashMultiples(PenStyle::Dash);
  const auto on = static_cast<int>(2 * multiples[0]);
  const auto off = static_cast<int>(2 * multiples[1]);
  for (int x = 10; x < 10 + 2 * (on + off); ++x) {
    EXPECT_EQ(InkAt(bitmap, x, 100), (x - 10) % (on + off) < on ? 255 : 0) << x;
  }
}

TEST_F(Figures, EveryBrokenPenLeavesGaps) {
  float y = 10;
  for (const PenStyle style :
       {PenStyle::Dash, PenStyle::Dot, PenStyle::DashDot, PenStyle::DashDotDot}) {
    Page().SetPen({style, 2 * kTwips, 0});
    Page().DrawLine(PointAt(10, y), PointAt(190, y));
    const Bitmap bitmap = Draw();
    int inked = 0;
    for (int x = 10; x < 190; ++x) inked += InkAt(bitmap, x, static_cast<int>(y)) > 128;
    EXPECT_GT(inked, 60);
    EXPECT_LT(inked, 160);
    y += 20;
  }
}

TEST_F(Figures, CircleReachesItsRadius) {
  UseNoPen();
  UseBrush(BrushStyle::Solid, 0);
  Page().DrawCircle(PointAt(100, 100), 50 * kTwips);
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkBoxOf(bitmap), (InkBox{50, 50, 150, 150}));
  EXPECT_EQ(InkAt(bitmap, 52, 52), 0);
}

TEST_F(Figures, ArcRunsCounterClockwiseFromThreeOClock) {
  Page().DrawArc({PointAt(100, 100), 50 * kTwips, 0, kQuarterTurn, false, false});
  const InkBox box = InkBoxOf(Draw());
  EXPECT_NEAR(box.left, 100, 1);
  EXPECT_NEAR(box.top, 50, 1);
  EXPECT_NEAR(box.right, 150, 1);
  EXPECT_NEAR(box.bottom, 100, 1);
}

TEST_F(Figures, ArcOverTheStartGoesTheLongWayRound) {
  Page().DrawArc({PointAt(100, 100), 50 * kTwips, kQuarterTurn, 0, false, false});
  const Bitmap bitmap = Draw();
  EXPECT_GT(InkAt(bitmap, 50, 100) + InkAt(bitmap, 49, 100), 200);
  EXPECT_EQ(InkAt(bitmap, 135, 65), 0);
}

TEST_F(Figures, SectorIsFilledWhicheverLinesItHas) {
  UseBrush(BrushStyle::Solid, kRed);
  for (const bool atStart : {false, true}) {
    for (const bool atEnd : {false, true}) {
      Document document;
      Recorder recorder(document);
      recorder.BeginPage({3000, 3000});
      recorder.SetPen({PenStyle::Solid, 4 * kTwips, 0});
      recorder.SetBrush({BrushStyle::Solid, kRed});
      recorder.DrawArc({PointAt(100, 100), 50 * kTwips, 0, kQuarterTurn, atStart, atEnd});
      const Bitmap bitmap = DrawWholePage(document, 1, 96);
      EXPECT_EQ(PixelAt(bitmap, 115, 85), kRedPixel);
      EXPECT_EQ(PixelAt(bitmap, 135, 65), kBlackPixel) << "the arc";
      EXPECT_EQ(PixelAt(bitmap, 125, 99), atStart ? kBlackPixel : kRedPixel);
      EXPECT_EQ(PixelAt(bitmap, 100, 75), atEnd ? kBlackPixel : kRedPixel);
      EXPECT_EQ(PixelAt(bitmap, 90, 110), kWhitePixel);
    }
  }
}

TEST_F(Figures, RadiusLineRunsFromTheCentre) {
  Page().DrawArc({PointAt(100, 100.5F), 50 * kTwips, 0, kQuarterTurn, true, false});
  const Bitmap bitmap = Draw();
  EXPECT_GT(InkAt(bitmap, 120, 100), 200);
  EXPECT_EQ(InkAt(bitmap, 100, 80), 0);
}

constexpr std::array kSelfCrossingStar{Point{1500, 300}, Point{2200, 2500}, Point{350, 1100},
                                       Point{2650, 1100}, Point{800, 2500}};

TEST_F(Figures, PolygonIsFilledEvenOdd) {
  UseNoPen();
  UseBrush(BrushStyle::Solid, kRed);
  Page().DrawPolygon(kSelfCrossingStar);
  const Bitmap bitmap = Draw();
  EXPECT_EQ(PixelAt(bitmap, 100, 40), kRedPixel);
  EXPECT_EQ(PixelAt(bitmap, 100, 100), kWhitePixel);
}

TEST_F(Figures, PolylineIsNeitherClosedNorFilled) {
  UseBrush(BrushStyle::Solid, kRed);
  const std::array corner{PointAt(50, 50), PointAt(150, 50), PointAt(150, 150)};
  Page().DrawPolyline(corner);
  const Bitmap bitmap = Draw();
  EXPECT_EQ(PixelAt(bitmap, 130, 70), kWhitePixel);
  EXPECT_EQ(PixelAt(bitmap, 100, 100), kWhitePixel);
}

TEST_F(Figures, TransparentBrushLeavesTheGround) {
  UseBrush(BrushStyle::Transparent, kRed);
  Page().DrawRectangle(Pixels(50, 50, 150, 150));
  EXPECT_EQ(PixelAt(Draw(), 100, 100), kWhitePixel);
}

TEST_F(Figures, HatchLinesStandTheirDistanceApartFromThePagesCorner) {
  UseNoPen();
  UseBrush(BrushStyle::Vertical, 0);
  Page().DrawRectangle(Pixels(10, 10, 190, 190));
  const Bitmap bitmap = Draw(192);
  const int distance = static_cast<int>(kHatchDistance / 1440 * 192);
  for (int x = 32; x < 360; ++x) {
    const int fromLine = std::min(x % distance, distance - 1 - x % distance);
    EXPECT_EQ(InkAt(bitmap, x, 100) > 100, fromLine == 0) << x;
    if (fromLine > 0) {
      EXPECT_EQ(InkAt(bitmap, x, 100), 0) << x;
    }
  }
}

TEST_F(Figures, EveryHatchLeavesTheGroundBetweenItsLines) {
  UseNoPen();
  for (const BrushStyle style :
       {BrushStyle::Horizontal, BrushStyle::Vertical, BrushStyle::UpwardDiagonal,
        BrushStyle::DownwardDiagonal, BrushStyle::Cross, BrushStyle::DiagonalCross}) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({3000, 3000});
    recorder.SetPen({PenStyle::Invisible, 0, 0});
    recorder.SetBrush({style, 0});
    recorder.DrawRectangle(Pixels(50, 50, 150, 150));
    for (const double dotsPerInch : {24.0, 96.0}) {
      const Bitmap bitmap = DrawWholePage(document, 1, dotsPerInch);
      double ink = 0;
      const int low = static_cast<int>(60 * dotsPerInch / 96);
      const int high = static_cast<int>(140 * dotsPerInch / 96);
      for (int y = low; y < high; ++y) {
        for (int x = low; x < high; ++x) ink += InkAt(bitmap, x, y) / 255.0;
      }
      const double share = ink / (high - low) / (high - low);
      EXPECT_GT(share, 0.05);
      EXPECT_LT(share, 0.55);
    }
  }
}

TEST_F(Figures, HatchStaysInsideItsFigure) {
  UseNoPen();
  UseBrush(BrushStyle::DiagonalCross, 0);
  Page().DrawCircle(PointAt(100, 100), 50 * kTwips);
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkAt(bitmap, 55, 55), 0);
  const InkBox box = InkBoxOf(bitmap);
  EXPECT_GE(box.left, 49);
  EXPECT_LE(box.right, 151);
}

TEST_F(Figures, DashesOfARectangleStartAtItsLowerLeftCorner) {
  Page().SetPen({PenStyle::Dash, 4 * kTwips, 0});
  Page().DrawRectangle(Pixels(50, 50, 150, 150));
  const Bitmap bitmap = Draw();
  EXPECT_EQ(InkAt(bitmap, 70, 150), 255);  // the first dash is 36 pixels long
  EXPECT_EQ(InkAt(bitmap, 92, 150), 0);    // and then there are 12 of gap
}

TEST_F(Figures, ArcFromAnAngleToItselfIsAWholeTurn) {
  Page().DrawArc({PointAt(100, 100), 50 * kTwips, 1, 1, false, false});
  const InkBox box = InkBoxOf(Draw());
  EXPECT_NEAR(box.right - box.left, 100, 2);
  EXPECT_NEAR(box.bottom - box.top, 100, 2);
}

TEST_F(Figures, DashesOfALineThatComesFromAfarGoOnAsIfAllOfItWereDrawn) {
  Page().SetPen({PenStyle::Dash, 2 * kTwips, 0});  // on for 18 pixels and off for 6
  Page().DrawLine(PointAt(-2'400'008, 100), PointAt(2'400'000, 100));
  const Bitmap bitmap = Draw();
  for (int x = 0; x < 200; ++x) {
    EXPECT_EQ(InkAt(bitmap, x, 100), (x + 8) % 24 < 18 ? 255 : 0) << x;
  }
}

TEST_F(Figures, LineThatRunsFarOffThePageKeepsItsDirection) {
  for (const PenStyle style : {PenStyle::Solid, PenStyle::Dot}) {
    Page().SetPen({style, 4 * kTwips, 0});
    Page().DrawLine({0, 0}, {1e9F, 5e8F});
    const InkBox box = InkBoxOf(Draw());
    EXPECT_NEAR(box.right, 200, 1);
    EXPECT_NEAR(box.bottom, 102, 3);
  }
}

TEST_F(Figures, CircleOfAVastRadiusPassesWhereItShould) {
  Page().DrawCircle({-5e6F, 1500}, 5e6F + 1500);
  const Bitmap bitmap = Draw();
  for (const int y : {10, 100, 190}) {
    EXPECT_GT(InkAt(bitmap, 99, y) + InkAt(bitmap, 100, y), 200) << y;
    EXPECT_EQ(InkAt(bitmap, 90, y) + InkAt(bitmap, 110, y), 0) << y;
  }
}

TEST_F(Figures, OfNoNumbersAreNotDrawn) {
  const float none = std::numeric_limits<float>::quiet_NaN();
  UseBrush(BrushStyle::Solid, kRed);
  Page().DrawLine({0, none}, {1000, 1000});
  Page().DrawRectangle({0, 0, none, 1000});
  Page().DrawCircle({1000, 1000}, none);
  Page().DrawArc({{none, 0}, 100, 0, 1, true, true});
  Page().DrawPolyline(std::array{Point{0, 0}, Point{none, 1000}, Point{1000, 0}});
  Page().DrawPolygon(std::array{Point{0, 0}, Point{none, 1000}, Point{1000, 0}});
  Page().DrawText({none, 100}, "nergens");
  EXPECT_TRUE(HasNoInk(Draw()));
}

TEST_F(Figures, FarAwayAndImpossibleCoordinatesDoNoHarm) {
  const float huge = 1e30F;
  const float infinite = std::numeric_limits<float>::infinity();
  const float none = std::numeric_limits<float>::quiet_NaN();
  for (const float far : {huge, -huge, infinite, none}) {
    for (const PenStyle pen : {PenStyle::Solid, PenStyle::Dot, PenStyle::InsideSolid}) {
      Page().SetPen({pen, 0, 0});
      UseBrush(BrushStyle::DiagonalCross, kRed);
      Page().DrawLine({0, 0}, {far, far});
      Page().DrawRectangle({far, 0, 100, far});
      Page().DrawCircle({far, 0}, 100);
      Page().DrawCircle({100, 100}, far);
      Page().DrawArc({{far, far}, far, 0, 1, true, true});
      Page().DrawPolyline(std::array{Point{0, 0}, Point{far, 0}, Point{0, far}});
      Page().DrawPolygon(std::array{Point{0, 0}, Point{far, 0}, Point{0, far}});
      Page().DrawText({far, 0}, "ver weg");
    }
    Page().SetPen({PenStyle::Solid, far, 0});
    Page().DrawLine({0, 0}, {100, 100});
  }
  EXPECT_EQ(Draw().width, 200);
}

}  // namespace
}  // namespace pagivo::native
