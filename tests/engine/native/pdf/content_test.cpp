// What the content of a page is made of, byte for byte where it matters.
#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

#include "engine/native/document/pens_and_brushes.h"
#include "engine/native/document/recorder.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/pdf/font_embedder.h"
#include "engine/native/pdf/image_embedder.h"
#include "engine/native/pdf/page_player.h"
#include "engine/native/pdf/pdf_readers.h"
#include "support/expressions.h"

namespace pagivo::native::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr PageGeometry kPaper{20000, 20000};  // 1000 pt

class Content : public ::testing::Test {
 protected:
  Content() {
    recorder_.BeginPage(kPaper);
    recorder_.SetFont({.name = "Courier New", .size = 10});
    recorder_.SetBrush({BrushStyle::Transparent, 0});
  }

  // Without the line of the first style: solid pens have round ends.
  std::string Played(std::int32_t page = 1) {
    std::string written;
    const ByteSink sink = [](std::span<const std::uint8_t>) {};
    PdfFile file(sink);
    FontEmbedder fonts;
    ImageEmbedder images(file);
    PagePlayer player(fonts, images);
    return std::string(player.Play(document_, page, PdfGeometry(kPaper)));
  }

  // The top of a line of text in the font in use whose baseline is at `y`.
  static float TopOf(float y) {
    Font& font = FontLibrary::Instance().Find("Courier New", false, false);
    return y - static_cast<float>(font.Metrics().ascent * 10 * kTwipsPerPoint);
  }

  Document document_;
  Recorder recorder_{document_};
};

TEST_F(Content, StringsOnOneBaselineShareOneOperator) {
  recorder_.DrawText({200, TopOf(2000)}, "abc");
  recorder_.DrawText({2000, TopOf(2000)}, "def");
  recorder_.DrawText({1000, TopOf(2000)}, "ghi");
  // Three letters of 6 pt each bring the pen to 28, from there it goes to 100; from 118 to 50.
  EXPECT_EQ(Played(), "/F0 10 Tf\nBT\n10 900 Td\n[(abc)-7200(def)6800(ghi)]TJ\nET\n");
}

TEST_F(Content, TheNextLineIsPlacedRelativeToTheOneBefore) {
  recorder_.DrawText({200, TopOf(2000)}, "abc");
  recorder_.DrawText({300, TopOf(2100)}, "def");
  EXPECT_EQ(Played(), "/F0 10 Tf\nBT\n10 900 Td\n[(abc)]TJ\n5 -5 Td\n[(def)]TJ\nET\n");
}

TEST_F(Content, TextSmallerThanSizesAreToldIsWrittenAtTheSmallestOne) {
  recorder_.SetFont({.name = "Courier New", .size = 0.0001F});
  recorder_.DrawText({200, 2000}, "abc");
  recorder_.DrawText({2000, 2000}, "def");
  // From three letters of 0.0006 pt each to the next string they are 89.9982 pt.
  EXPECT_EQ(Played(), "/F0 .001 Tf\nBT\n10 900 Td\n[(abc)-89998200(def)]TJ\nET\n");
}

TEST_F(Content, StylesAreWrittenWhenTheyChangeOnly) {
  recorder_.SetTextColor(0x0000FF);
  recorder_.DrawText({200, 2000}, "a");
  recorder_.SetTextColor(0x0000FF);
  recorder_.DrawText({200, 3000}, "b");
  recorder_.SetPen({PenStyle::Solid, 20, 0xFF0000});
  for (float y : {1.0F, 2.0F, 3.0F}) recorder_.DrawLine({0, y}, {100, y});
  const std::string content = Played();
  EXPECT_EQ(CountOf("1 0 0 rg", content), 1);
  EXPECT_EQ(CountOf("0 0 1 RG", content), 1);
  EXPECT_EQ(CountOf(" Tf", content), 1);
  EXPECT_EQ(CountOf(" J", content), 1);
  EXPECT_EQ(CountOf(" j", content), 1);
  EXPECT_EQ(CountOf(" w\n", content), 0) << "1 pt is what pages start with";
}

TEST_F(Content, BlackTextNeedsNoColour) {
  recorder_.SetTextColor(0);
  recorder_.DrawText({200, 2000}, "a");
  EXPECT_THAT(Played(), Not(ContainsExpression(" r?g\n")));
}

TEST_F(Content, LineOfAHairlinePen) {
  recorder_.SetPen({PenStyle::Solid, 0, 0});
  recorder_.DrawLine({0, 0}, {20, 40});
  EXPECT_EQ(Played(), ".25 w\n1 J\n1 j\n0 1000 m\n1 998 l\nS\n");
}

TEST_F(Content, NoLineIsThinnerThanAHairline) {
  recorder_.SetPen({PenStyle::Solid, 1, 0});
  recorder_.DrawLine({0, 0}, {20, 40});
  EXPECT_THAT(Played(), StartsWith(".25 w\n"));
}

TEST_F(Content, DashesAreMultiplesOfTheWidthAndCutOffStraight) {
  recorder_.SetPen({PenStyle::DashDot, 20, 0});
  recorder_.DrawLine({0, 0}, {20, 40});
  std::string dashes;
  for (const float multiple : DashMultiples(PenStyle::DashDot)) {
    dashes += (dashes.empty() ? "" : " ") + std::to_string(std::lround(multiple));
  }
  EXPECT_EQ(Played(), "1 j\n[" + dashes + "]0 d\n0 1000 m\n1 998 l\nS\n");
}

TEST_F(Content, ASolidPenAfterADashedOneIsUnbroken) {
  recorder_.SetPen({PenStyle::Dot, 20, 0});
  recorder_.DrawLine({0, 0}, {20, 40});
  recorder_.SetPen({PenStyle::Solid, 20, 0});
  recorder_.DrawLine({0, 0}, {20, 40});
  EXPECT_EQ(CountOf("[]0 d\n", Played()), 1);
}

TEST_F(Content, PensWithoutDashesNeverWriteAPattern) {
  for (const float width : {10.0F, 30.0F}) {
    recorder_.SetPen({PenStyle::Solid, width, 0});
    recorder_.DrawLine({0, 0}, {20, 40});
    recorder_.SetPen({PenStyle::InsideSolid, width, 0});
    recorder_.DrawLine({0, 0}, {20, 40});
  }
  EXPECT_THAT(Played(), Not(HasSubstr("0 d\n")));
}

TEST_F(Content, RectanglesAreFilledAndOutlinedByBrushAndPen) {
  const struct {
    BrushStyle brush;
    PenStyle pen;
    const char* end;
  } rows[] = {{BrushStyle::Solid, PenStyle::Solid, "re\nB\n"},
              {BrushStyle::Solid, PenStyle::Invisible, "re\nf\n"},
              {BrushStyle::Transparent, PenStyle::Solid, "re\nS\n"}};
  for (const auto& row : rows) {
    recorder_.SetBrush({row.brush, 0});
    recorder_.SetPen({row.pen, 20, 0});
    recorder_.DrawRectangle({100, 100, 300, 200});
    EXPECT_THAT(Played(), EndsWith(std::string("5 990 10 5 ") + row.end));
  }
}

TEST_F(Content, NothingIsDrawnByAnInvisiblePenAndATransparentBrush) {
  recorder_.SetPen({PenStyle::Invisible, 20, 0});
  recorder_.DrawRectangle({100, 100, 300, 200});
  recorder_.DrawLine({0, 0}, {10, 10});
  recorder_.DrawCircle({500, 500}, 100);
  recorder_.DrawArc({.center = {500, 500}, .radius = 100, .start = 0, .end = 1});
  EXPECT_EQ(Played(), "");
}

TEST_F(Content, ExchangedEdgesDoNotMatterToARectangle) {
  recorder_.DrawRectangle({300, 200, 100, 100});
  EXPECT_THAT(Played(), HasSubstr("5 990 10 5 re\nS\n"));
}

TEST_F(Content, AnInsidePenStaysInsideTheFigure) {
  recorder_.SetPen({PenStyle::InsideSolid, 40, 0});
  recorder_.DrawRectangle({100, 100, 300, 300});
  EXPECT_THAT(Played(), HasSubstr("6 986 8 8 re\nS\n"));
}

TEST_F(Content, AnInsidePenWiderThanTheFigureLeavesNoNegativeSize) {
  recorder_.SetPen({PenStyle::InsideSolid, 4000, 0});
  recorder_.DrawRectangle({100, 100, 300, 200});
  recorder_.DrawCircle({500, 500}, 10);
  const std::string content = Played();
  EXPECT_THAT(content, HasSubstr("5 w\n"));
  EXPECT_THAT(content, HasSubstr("7.5 992.5 5 0 re\nS\n"));
  EXPECT_THAT(content, HasSubstr("1 w\n25 975 m\n"));
}

TEST_F(Content, AnInsidePenStaysWithinASectorsRadius) {
  recorder_.SetPen({PenStyle::InsideSolid, 400, 0});
  recorder_.DrawArc({.center = {10000, 10000}, .radius = 2000, .start = 0, .end = 1});
  EXPECT_THAT(Played(), HasSubstr("20 w\n1 J\n1 j\n590 500 m\n"));
}

TEST_F(Content, PolygonsAreFilledByTheEvenOddRule) {
  recorder_.SetBrush({BrushStyle::Solid, 0});
  const Point points[] = {{0, 0}, {20, 0}, {20, 20}};
  recorder_.DrawPolygon(points);
  EXPECT_THAT(Played(), EndsWith("0 1000 m\n1 1000 l\n1 999 l\nh\nB*\n"));
}

TEST_F(Content, HatchesAreClippedLinesThatCountFromThePagesCorner) {
  recorder_.SetBrush({BrushStyle::Horizontal, 0});
  recorder_.SetPen({PenStyle::Invisible, 0, 0});
  recorder_.DrawRectangle({50, 50, 250, 300});
  EXPECT_EQ(Played(),
            "q\n2.5 985 10 12.5 re\nW n\n.25 w\n"
            "2.5 994 m\n12.5 994 l\n2.5 988 m\n12.5 988 l\nS\nQ\n");
}

TEST_F(Content, StylesSetWithinAHatchDoNotOutliveIt) {
  recorder_.SetBrush({BrushStyle::Vertical, 0x0000FF});
  recorder_.SetPen({PenStyle::Solid, 0, 0});
  recorder_.DrawRectangle({50, 50, 250, 300});
  EXPECT_EQ(CountOf(".25 w\n", Played()), 2);
  EXPECT_EQ(CountOf("RG\n", Played()), 1);
}

TEST_F(Content, AHatchBeyondThePageIsCutOffThere) {
  recorder_.SetBrush({BrushStyle::DiagonalCross, 0});
  recorder_.DrawRectangle({-1e9F, -1e9F, 1e9F, 1e9F});
  EXPECT_LT(Played().size(), 20000U);
}

// The largest distance of a circle's curves from the circle, by the points half-way each curve.
TEST_F(Content, CirclesLeaveTheirRadiusByLessThanThreeTenThousandths) {
  const double handle = 4.0 / 3 * std::tan(std::numbers::pi / 8);
  double worst = 0;
  for (int i = 0; i <= 1000; ++i) {
    const double t = i / 1000.0;
    const double u = 1 - t;
    const double x = u * u * u + 3 * u * u * t + 3 * u * t * t * handle;
    const double y = 3 * u * u * t * handle + 3 * u * t * t + t * t * t;
    worst = std::max(worst, std::abs(std::hypot(x, y) - 1));
  }
  EXPECT_LT(worst, 0.0003);

  recorder_.DrawCircle({10000, 10000}, 2000);
  const std::string length = std::to_string(static_cast<int>(std::lround(handle * 10000)));
  EXPECT_THAT(Played(),
              HasSubstr("600 500 m\n600 " + std::to_string(500 + 55) + "." + length.substr(2, 2) +
                        " 555." + length.substr(2, 2) + " 600 500 600 c\n"));
  EXPECT_EQ(CountOf(" c\n", Played()), 4);
}

TEST_F(Content, ArcsRunCounterClockwiseFromStartToEnd) {
  const auto quarter = static_cast<float>(std::numbers::pi / 2);
  recorder_.DrawArc({.center = {10000, 10000}, .radius = 2000, .start = 0, .end = quarter});
  EXPECT_THAT(Played(), ContainsExpression("600 500 m\n600 [0-9.]+ [0-9.]+ 600 500 600 c\nS\n"));
}

TEST_F(Content, RadiusLinesRunFromTheCentre) {
  const auto quarter = static_cast<float>(std::numbers::pi / 2);
  Arc arc{.center = {10000, 10000}, .radius = 2000, .start = 0, .end = quarter};
  arc.radiusLineAtStart = true;
  recorder_.DrawArc(arc);
  EXPECT_THAT(Played(), ContainsExpression("500 500 m\n600 500 l\n[^c]+c\nS\n"));
}

TEST_F(Content, TheLastRadiusLineRunsBackToTheCentre) {
  const auto quarter = static_cast<float>(std::numbers::pi / 2);
  Arc arc{.center = {10000, 10000}, .radius = 2000, .start = 0, .end = quarter};
  arc.radiusLineAtEnd = true;
  recorder_.DrawArc(arc);
  EXPECT_THAT(Played(), ContainsExpression("600 500 m\n[^c]+c\n500 500 l\nS\n"));
}

TEST_F(Content, ASectorBetweenTwoRadiusLinesIsFilled) {
  recorder_.SetBrush({BrushStyle::Solid, 0});
  recorder_.DrawArc({.center = {10000, 10000},
                     .radius = 2000,
                     .start = 1,
                     .end = 2,
                     .radiusLineAtStart = true,
                     .radiusLineAtEnd = true});
  EXPECT_THAT(Played(), EndsWith("h\nB\n"));
}

TEST_F(Content, ASectorIsFilledWhicheverLinesItHas) {
  recorder_.SetBrush({BrushStyle::Solid, 0});
  const auto quarter = static_cast<float>(std::numbers::pi / 2);
  recorder_.DrawArc({.center = {10000, 10000}, .radius = 2000, .start = 0, .end = quarter});
  EXPECT_THAT(Played(), ContainsExpression("^500 500 m\n600 500 l\n600 [^c]+c\nh\nf\n"
                                           "[^m]+600 500 m\n[^c]+c\nS\n$"));
}

TEST_F(Content, ASectorIsHatchedWhicheverLinesItHas) {
  recorder_.SetBrush({BrushStyle::Horizontal, 0});
  recorder_.SetPen({PenStyle::Invisible, 0, 0});
  recorder_.DrawArc({.center = {10000, 10000}, .radius = 2000, .start = 0, .end = 1});
  EXPECT_THAT(Played(), StartsWith("q\n500 500 m\n600 500 l\n"));
  EXPECT_THAT(Played(), EndsWith("S\nQ\n"));
}

TEST_F(Content, TextLargerThanReadersTakeIsUnderlinedAtTheSizeThatItIsWrittenAt) {
  for (const float size : {1e5F, 1e6F, 9e4F}) {
    recorder_.BeginPage(kPaper);
    recorder_.SetFont({.name = "Courier New", .size = size, .underline = true});
    recorder_.DrawText({200, 2000}, "a");
  }
  EXPECT_THAT(Played(2), EndsWith("re\nf\n"));
  EXPECT_EQ(Played(3), Played(2));
  EXPECT_NE(Played(4), Played(2));
}

TEST_F(Content, UnderlinesAreRectanglesInTheTextsColour) {
  recorder_.SetFont({.name = "Courier New", .size = 10, .underline = true});
  recorder_.SetTextColor(0x0000FF);
  recorder_.DrawText({200, TopOf(2000)}, "abc ");
  const FontMetrics metrics = FontLibrary::Instance().Find("Courier New", false, false).Metrics();
  const double bottom = 900 - 10 * (metrics.underlinePosition + metrics.underlineThickness / 2);
  std::string rectangle = "ET\n10 ";
  AppendHundredths(rectangle, std::lround(bottom * 100));
  rectangle += " 24";
  EXPECT_THAT(Played(), StartsWith("1 0 0 rg\n"));
  EXPECT_THAT(Played(), HasSubstr(rectangle)) << "trailing blanks are underlined, too";
  EXPECT_THAT(Played(), EndsWith("re\nf\n"));
}

TEST_F(Content, AFaceWithoutBoldIsThickenedAndOneWithoutItalicSlanted) {
  recorder_.SetFont({.name = "Standard Symbols PS", .size = 60, .bold = true, .italic = true});
  recorder_.DrawText({200, 2000}, "a");
  recorder_.SetFont({.name = "Courier New", .size = 10});
  recorder_.DrawText({200, 3000}, "b");
  const std::string content = Played();
  EXPECT_THAT(content, ContainsExpression("2 Tr\n2 w\n"));
  EXPECT_THAT(content, ContainsExpression("1 0 .2 1 10 [0-9.]+ Tm\n"));
  EXPECT_THAT(content, ContainsExpression("0 Tr\n"));
  EXPECT_THAT(content, ContainsExpression("1 0 0 1 10 [0-9.]+ Tm\n"));
}

TEST_F(Content, CoordinatesThatAreNoNumbersAreSkipped) {
  const float bad[] = {std::numeric_limits<float>::quiet_NaN(),
                       std::numeric_limits<float>::infinity()};
  for (const float value : bad) {
    const Point points[] = {{0, 0}, {value, 1}, {2, 2}};
    recorder_.DrawText({value, 0}, "x");
    recorder_.DrawLine({0, value}, {1, 1});
    recorder_.DrawRectangle({0, 0, value, 1});
    recorder_.DrawCircle({1, 1}, value);
    recorder_.DrawArc({.center = {1, 1}, .radius = 5, .start = value, .end = 1});
    recorder_.DrawPolyline(points);
    recorder_.DrawPolygon(points);
    recorder_.SetFont({.name = "Arial", .size = value});
    recorder_.DrawText({1, 1}, "x");
  }
  EXPECT_EQ(Played(), "");
}

TEST_F(Content, FontsWithoutASizeDrawNothing) {
  for (const float size : {0.0F, -3.0F}) {
    recorder_.SetFont({.name = "Arial", .size = size});
    recorder_.DrawText({1, 1}, "x");
  }
  EXPECT_EQ(Played(), "");
}

TEST_F(Content, LinesAreCutOffTenInchesAroundThePage) {
  recorder_.DrawLine({-1e9F, 0}, {1e9F, 0});
  EXPECT_THAT(Played(), EndsWith("-720.25 1000 m\n1720.25 1000 l\nS\n"));
}

TEST_F(Content, ALineThatRunsFarOffThePageKeepsItsDirection) {
  recorder_.DrawLine({0, 0}, {1e9F, 5e8F});
  EXPECT_THAT(Played(), EndsWith("0 1000 m\n1720.25 139.88 l\nS\n"));
}

TEST_F(Content, DashesGoOnWhereALineIsCutOff) {
  recorder_.SetPen({PenStyle::Dash, 20, 0});  // on for 180 twips and off for 60
  recorder_.DrawLine({-240'000, 0}, {1e9F, 0});
  // From 14,420 twips before the page, 225,580 after the line's start: 220 after a dash's.
  EXPECT_THAT(Played(), EndsWith("[9 3]11 d\n-721 1000 m\n1721 1000 l\nS\n"));
}

TEST_F(Content, AFigureWithinReachIsDashedFromItsStart) {
  recorder_.SetPen({PenStyle::Dash, 20, 0});
  recorder_.DrawLine({0, 0}, {34'000, 0});
  EXPECT_THAT(Played(), EndsWith("[9 3]0 d\n0 1000 m\n1700 1000 l\nS\n"));
}

// Readers draw each dash, so there must be no more of them than around the page.
TEST_F(Content, EveryDashedFigureThatRunsFarOffThePageIsDashedAndStaysNear) {
  recorder_.SetPen({PenStyle::Dot, 0, 0});
  const Point points[] = {{0, 0}, {1e9F, 1000}, {1e9F, 1e9F}};
  const std::vector<std::function<void()>> drawings = {
      [&] { recorder_.DrawPolyline(points); }, [&] { recorder_.DrawPolygon(points); },
      [&] {
        recorder_.DrawRectangle({1000, 1000, 1e9F, 1e9F});
      },
      [&] {
        recorder_.DrawCircle({-1e8F, 10000}, 1e8F + 10000);
      },
      [&] {
        recorder_.DrawArc({.center = {-1e8F, 0}, .radius = 1e8F, .start = 5, .end = 1});
      }};
  std::size_t before = 0;
  for (const auto& draw : drawings) {
    draw();
    const std::string content = Played();
    const std::string drawn = content.substr(before);
    EXPECT_THAT(drawn, HasSubstr(" l\n"));
    EXPECT_THAT(drawn, Not(ContainsExpression("[0-9]{5}")));
    EXPECT_THAT(content, HasSubstr(" d\n"));
    EXPECT_THAT(content, Not(HasSubstr("[]")));
    before = content.size();
  }
}

TEST_F(Content, FewerThanTwoPointsDrawNothing) {
  const Point point[] = {{1, 1}};
  recorder_.DrawPolyline({});
  recorder_.DrawPolyline(point);
  recorder_.DrawPolygon(point);
  EXPECT_EQ(Played(), "");
}

}  // namespace
}  // namespace pagivo::native::testing
