#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "engine/native/engine_test.h"

namespace pagivo::native {
namespace {

constexpr double kPi = std::numbers::pi;

class DrawingTest : public ComposingTest {
 protected:
  // What a line draws, the pen's part only.
  std::string PenInUse() {
    engine->NewPage();
    engine->DrawLine(0.0, 0.0, 1.0, 1.0);
    return Page().substr(Page().find("pen"));
  }
  std::string BrushInUse() {
    engine->NewPage();
    engine->DrawRectangle(0.0, 0.0, 1.0, 1.0);
    return Page().substr(Page().find("brush"));
  }
  std::string Circle(const Variant& start, const Variant& end) {
    engine->NewPage();
    engine->DrawCircle(1000.0, 1000.0, 100.0, start, end);
    return Page();
  }
};

TEST_F(DrawingTest, PenStyles) {
  const std::vector<const char*> names = {"solid",        "dash",      "dot",         "dash-dot",
                                          "dash-dot-dot", "invisible", "inside-solid"};
  for (std::size_t style = 0; style < names.size(); ++style) {
    engine->PutPenStyle(static_cast<std::int32_t>(style));
    EXPECT_EQ(PenInUse(), std::string("pen ") + names[style] + " 0 000000\n");
  }
  for (const std::int32_t style : {-1, 7, 100}) {
    ExpectInvalidValue([&] { engine->PutPenStyle(style); });
  }
  EXPECT_EQ(PenInUse(), "pen inside-solid 0 000000\n");
}

TEST_F(DrawingTest, BrushStyles) {
  const std::vector<const char*> names = {"solid",    "transparent",     "horizontal",
                                          "vertical", "upward-diagonal", "downward-diagonal",
                                          "cross",    "diagonal-cross"};
  for (std::size_t style = 0; style < names.size(); ++style) {
    engine->PutBrushStyle(static_cast<std::int32_t>(style));
    EXPECT_EQ(BrushInUse(), std::string("brush ") + names[style] + " FFFFFF\n");
  }
  for (const std::int32_t style : {-1, 8, 100}) {
    ExpectInvalidValue([&] { engine->PutBrushStyle(style); });
  }
  EXPECT_EQ(BrushInUse(), "brush diagonal-cross FFFFFF\n");
}

TEST_F(DrawingTest, PenWidthTakesEveryKindOfNumber) {
  const std::vector<std::pair<Variant, std::string>> widths = {
      {std::int16_t{20}, "20"}, {std::int32_t{40}, "40"}, {7.5F, "7.5"},
      {0.25, "0.25"},           {Variant("15"), "15"},    {std::int16_t{0}, "0"}};
  for (const auto& [width, text] : widths) {
    engine->PutPenWidth(width);
    EXPECT_EQ(PenInUse(), "pen solid " + text + " 000000\n");
  }
}

TEST_F(DrawingTest, OtherPenWidthsAreErrorsThatChangeNothing) {
  engine->PutPenWidth(20.0);
  for (const Variant& width : std::vector<Variant>{Missing, Null, Variant("dik")}) {
    ExpectError(ErrorNumber::TypeMismatch, [&] { engine->PutPenWidth(width); });
  }
  for (const double width : {-1.0, std::nan(""), 1e12}) {
    ExpectInvalidValue([&] { engine->PutPenWidth(width); });
  }
  EXPECT_EQ(PenInUse(), "pen solid 20 000000\n");
}

TEST_F(DrawingTest, ColoursHaveRedInTheLowestByte) {
  engine->PutPenColor(0x0000FF);
  engine->PutBrushColor(0xFF8000);
  EXPECT_EQ(PenInUse(), "pen solid 0 FF0000\n");
  EXPECT_EQ(BrushInUse(), "brush transparent 0080FF\n");
}

TEST_F(DrawingTest, PenColourReadsBackAsPutAndDrawsAsResolved) {
  const auto highlight = static_cast<std::int32_t>(0x8000000D);
  engine->PutPenColor(highlight);
  engine->PutBrushColor(highlight);
  EXPECT_EQ(engine->GetPenColor(), highlight);
  EXPECT_EQ(PenInUse(), "pen solid 0 0078D7\n");
  EXPECT_EQ(BrushInUse(), "brush transparent 0078D7\n");
}

TEST_F(DrawingTest, OtherColoursAreErrorsThatChangeNothing) {
  engine->PutPenColor(0x0000FF);
  for (const std::int32_t color : {-1, 0x1000000, static_cast<std::int32_t>(0x80000063)}) {
    ExpectInvalidValue([&] { engine->PutPenColor(color); });
    ExpectInvalidValue([&] { engine->PutBrushColor(color); });
  }
  EXPECT_EQ(engine->GetPenColor(), 0x0000FF);
  EXPECT_EQ(PenInUse(), "pen solid 0 FF0000\n");
  EXPECT_EQ(BrushInUse(), "brush transparent FFFFFF\n");
}

TEST_F(DrawingTest, LinesAndRectanglesGoWhereTheyAreTold) {
  engine->DrawLine(std::int16_t{1}, std::int32_t{2}, 3.5F, 4.25);
  engine->DrawRectangle(9.0, 8.0, 7.0, 6.0);
  EXPECT_EQ(Page(),
            "line 1 2 3.5 4.25 pen solid 0 000000\n"
            "rectangle 9 8 7 6 pen solid 0 000000 brush transparent FFFFFF\n");
}

TEST_F(DrawingTest, CoordinatesThatAreNoneAreErrorsThatDrawNothing) {
  const std::vector<Variant> values = {
      Null, Missing, Variant("x"), std::nan(""), 1.1e9, -std::numeric_limits<double>::infinity()};
  for (const Variant& value : values) {
    EXPECT_THROW(engine->DrawLine(value, 0.0, 0.0, 0.0), Error);
    EXPECT_THROW(engine->DrawLine(0.0, 0.0, 0.0, value), Error);
    EXPECT_THROW(engine->DrawRectangle(0.0, value, 0.0, 0.0), Error);
    EXPECT_THROW(engine->DrawCircle(value, 0.0, 1.0, Missing, Missing), Error);
    EXPECT_THROW(engine->DrawCircle(0.0, 0.0, value, Missing, Missing), Error);
    EXPECT_THROW(engine->PutX1(value), Error);
    EXPECT_THROW(engine->PutY1(value), Error);
  }
  EXPECT_THROW(engine->PutX2(std::nan("")), Error);
  EXPECT_THROW(engine->PutY2(1e300), Error);
  EXPECT_EQ(Page(), "");
}

TEST_F(DrawingTest, ACircleWithoutAnglesIsFull) {
  EXPECT_EQ(Circle(Missing, Missing),
            "circle 1000 1000 100 pen solid 0 000000 brush transparent FFFFFF\n");
}

TEST_F(DrawingTest, OneAngleAloneIsAnError) {
  EXPECT_THROW(Circle(Missing, 1.0), Error);
  EXPECT_THROW(Circle(1.0, Missing), Error);
}

TEST_F(DrawingTest, ANegativeRadiusIsAnError) {
  ExpectInvalidValue([&] { engine->DrawCircle(0.0, 0.0, -1.0, Missing, Missing); });
  engine->DrawCircle(0.0, 0.0, 0.0, Missing, Missing);
}

TEST_F(DrawingTest, AnglesThatAreNoNumbersAreErrors) {
  for (const Variant& angle : std::vector<Variant>{Null, Variant("x"), std::nan("")}) {
    EXPECT_THROW(Circle(angle, 1.0), Error);
    EXPECT_THROW(Circle(1.0, angle), Error);
  }
}

struct ArcCase {
  Variant start;
  Variant end;
  std::string trace;  // from its start angle on
};

TEST_F(DrawingTest, AnglesArePositiveWithinOneTurnAndSignsAreRadiusLines) {
  const std::vector<ArcCase> cases = {
      {0.0, 1.5, "from 0 to 1.5"},
      {std::int16_t{1}, std::int32_t{2}, "from 1 to 2"},
      {2.0, 1.0, "from 2 to 1"},
      {-0.5, 1.0, "from 0.5 radius-line to 1"},
      {0.5, -1.0, "from 0.5 to 1 radius-line"},
      {-0.5, -1.0, "from 0.5 radius-line to 1 radius-line"},
      {-0.0, -1.0, "from 0 radius-line to 1 radius-line"},
      {2 * kPi + 1, 2.0, "from 1 to 2"},
      {-1.0, -2 * kPi, "from 1 radius-line to 0 radius-line"},
  };
  for (const ArcCase& c : cases) {
    EXPECT_EQ(Circle(c.start, c.end),
              "arc 1000 1000 100 " + c.trace + " pen solid 0 000000 brush transparent FFFFFF\n");
  }
}

TEST_F(DrawingTest, AWholeTurnIsAFullCircle) {
  for (const double end : {2 * kPi, -2 * kPi, 4 * kPi}) {
    EXPECT_TRUE(Circle(0.0, end).starts_with("circle 1000 1000 100 ")) << end;
  }
  EXPECT_TRUE(Circle(0.0, static_cast<float>(2 * kPi)).starts_with("circle 1000 1000 100 "));
  EXPECT_TRUE(Circle(1.0, 1.0 + 2 * kPi).starts_with("circle 1000 1000 100 "));
}

TEST_F(DrawingTest, AWholeTurnKeepsItsRadiusLine) {
  EXPECT_EQ(Circle(-0.0, -2 * kPi),
            "circle 1000 1000 100 pen solid 0 000000 brush transparent FFFFFF\n"
            "line 1000 1000 1100 1000 pen solid 0 000000\n");
}

TEST_F(DrawingTest, EqualAnglesDrawNoArc) {
  EXPECT_EQ(Circle(1.0, 1.0), "");
  EXPECT_EQ(Circle(-0.0, -0.0), "line 1000 1000 1100 1000 pen solid 0 000000\n");
}

TEST_F(DrawingTest, ARadiusLineGoesUpForAQuarterTurn) {
  const std::string line = Circle(-kPi / 2, -kPi / 2);
  EXPECT_EQ(line, "line 1000 1000 1000 900 pen solid 0 000000\n");
}

TEST_F(DrawingTest, PointListsDrawOpenAndClosedFigures) {
  engine->PutPolyline("0 0 10 0 20 10 ");
  engine->PutPolygon("0 0 10,5 0 20 10.5 ");
  EXPECT_EQ(Page(),
            "polyline 0 0 10 0 20 10 pen solid 0 000000\n"
            "polygon 0 0 10.5 0 20 10.5 pen solid 0 000000 brush transparent FFFFFF\n");
}

TEST_F(DrawingTest, PointListsAsNumbersDrawWhatTheirTextDraws) {
  engine->PutPolyline("0 0 10 0 20 10.5 ");
  engine->PutPolygon("5 6 ");
  engine->PutPolygon("");
  const std::string drawn = Page();
  engine->NewPage();
  engine->DrawPolyline(std::array{0.0F, 0.0F, 10.0F, 0.0F, 20.0F, 10.5F});
  engine->DrawPolygon(std::array{5.0F, 6.0F});
  engine->DrawPolygon({});
  EXPECT_EQ(Page(), drawn);
  ExpectInvalidValue([&] { engine->DrawPolyline(std::array{1.0F, 1.1e9F}); }, "beyond");
  EXPECT_EQ(Page(), drawn);
}

TEST_F(DrawingTest, BadPointListsAreErrorsThatDrawNothing) {
  for (const char* points : {"1", "1 2 3", "a b", "1 2 x 4", "1.2.3 4", "nan 1"}) {
    ExpectInvalidValue([&] { engine->PutPolyline(points); }, points);
    ExpectInvalidValue([&] { engine->PutPolygon(points); }, points);
  }
  EXPECT_EQ(Page(), "");
}

TEST_F(DrawingTest, ASinglePointIsDrawnAsTwoEqualOnes) {
  for (const char* points : {"5 6 ", "5 6 5 6"}) {
    engine->NewPage();
    engine->PutPolyline(points);
    engine->PutPolygon(points);
    EXPECT_EQ(Page(),
              "polyline 5 6 5 6 pen solid 0 000000\n"
              "polygon 5 6 5 6 pen solid 0 000000 brush transparent FFFFFF\n");
  }
}

TEST_F(DrawingTest, NoPointsDrawNothing) {
  for (const char* points : {"", "  "}) {
    engine->PutPolyline(points);
    engine->PutPolygon(points);
  }
  EXPECT_EQ(Page(), "");
}

TEST_F(DrawingTest, APictureFillsTheRectangleThatWasPut) {
  engine->PutX1(std::int16_t{50});
  engine->PutY1(std::int16_t{60});
  engine->PutX2(11806.5);
  engine->PutY2(16738);
  engine->PutPicture(OnePixel());
  engine->PutX1(20000.0);
  engine->PutPicture(OnePixel());
  EXPECT_EQ(Page(),
            "picture 50 60 11806.5 16738 of 1 x 1\n"
            "picture 20000 60 11806.5 16738 of 1 x 1\n");
}

TEST_F(DrawingTest, AnEmptyPictureDrawsNothing) {
  engine->PutPicture(std::make_shared<PictureImage>());
  EXPECT_EQ(Page(), "");
}

TEST_F(DrawingTest, WhatIsNoPictureIsAnError) {
  ExpectError(ErrorNumber::InvalidPicture, [&] { engine->PutPicture(nullptr); });
  ExpectError(ErrorNumber::InvalidPicture, [&] { engine->PutPicture(engine); });
  EXPECT_EQ(Page(), "");
}

}  // namespace
}  // namespace pagivo::native
