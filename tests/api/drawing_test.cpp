#include <functional>
#include <limits>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::string_view kWhite = "put BrushColor Long 16777215";
constexpr std::string_view kTransparent = "put BrushStyle Long 1";

// The arguments that the figures share.
struct Style {
  Variant filled = false;
  Variant color = Long(0);
  Variant fillStyle = Long(0);
  Variant drawStyle = Long(0);
  Variant drawWidth = Integer(0);
};

class Drawing : public ApiTest {
 protected:
  using Figure = std::function<void(const Style& style)>;

  void Line(const Variant& box, const Style& style = {}) {
    print.VsPPLine(kOne, kTwo, kThree, kFour, box, style.filled, style.color, style.fillStyle,
                   style.drawStyle, style.drawWidth);
  }

  void Circle(const Variant& start, const Variant& end, const Style& style = {}) {
    print.VsPPCircle(kOne, kTwo, kThree, start, end, style.filled, style.color, style.fillStyle,
                     style.drawStyle, style.drawWidth);
  }

  void Polyline(const Variant& closed, const Style& style = {}) {
    print.VsPPDrawPolyline(Points({1}), Points({2}), closed, style.filled, style.color,
                           style.fillStyle, style.drawStyle, style.drawWidth);
  }

  // What each figure that has a brush asks the engine to draw at last.
  struct FilledFigure {
    Figure draw;
    std::string_view drawing;
  };
  std::vector<FilledFigure> FilledFigures() {
    return {
        {[this](const Style& style) { Line(true, style); },
         "call DrawRectangle Single 1, Single 2, Single 3, Single 4"},
        {[this](const Style& style) { Circle(Missing, Missing, style); },
         "call DrawCircle Single 1, Single 2, Single 3"},
        {[this](const Style& style) { Polyline(false, style); }, "put Polyline String \"1 2 \""},
    };
  }

  // Those and the plain line.
  std::vector<Figure> AllFigures() {
    std::vector<Figure> figures = {[this](const Style& style) { Line(false, style); }};
    for (const FilledFigure& figure : FilledFigures()) figures.push_back(figure.draw);
    return figures;
  }

  // Points 1 to n.
  static Array<float> Points(std::vector<float> values) {
    return Array<float>::FromValues(std::move(values), 1);
  }

  // The point list that the engine is given.
  std::string PointList(const Array<float>& x, const Array<float>& y) {
    const Lines drawn =
        LinesBeginning("put Polyline ", LogOf([&] { print.VsPPDrawPolyline(x, y); }));
    return drawn.size() == 1 ? drawn.front().substr(std::string_view("put Polyline ").size())
                             : "drawn more or less often than once";
  }

  static Lines LinesBeginning(std::string_view beginning, Lines lines) {
    std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(beginning); });
    return lines;
  }

  const Variant kOne = Integer(1);
  const Variant kTwo = Integer(2);
  const Variant kThree = Integer(3);
  const Variant kFour = Integer(4);
};

// --- Pen ----------------------------------------------------------------------------------------

TEST_F(Drawing, ALineWithItsDefaultsIsBlackThinAndSolidAndTouchesNoBrush) {
  EXPECT_THAT(LogOf([&] { print.VsPPLine(kOne, kTwo, kThree, kFour); }),
              ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 0",
                          "call DrawLine Single 1, Single 2, Single 3, Single 4"));
}

TEST_F(Drawing, EveryFigureSetsThePenFirst) {
  const Style style{.color = 255.0, .drawStyle = "2", .drawWidth = 1.5};
  for (const Figure& figure : AllFigures()) {
    Lines log = LogOf([&] { figure(style); });
    log.resize(3);
    EXPECT_THAT(log, ElementsAre("put PenStyle Long 2", "put PenWidth Double 1.5",
                                 "put PenColor Long 255"));
  }
}

TEST_F(Drawing, StylesAndColoursAreRoundedToLong) {
  struct Row {
    Variant value;
    std::int32_t number;
  };
  for (const Row& row :
       {Row{Integer(3), 3}, Row{Long(-2147483647), -2147483647}, Row{2.5, 2}, Row{3.5, 4},
        Row{2.5F, 2}, Row{"7", 7}, Row{true, -1}, Row{Variant(), 0}}) {
    for (const Figure& figure : AllFigures()) {
      const Lines log = LogOf([&] { figure({.color = row.value, .drawStyle = row.value}); });
      EXPECT_EQ(log[0], Describe("put PenStyle", {row.number}));
      EXPECT_EQ(log[2], Describe("put PenColor", {row.number}));
    }
  }
}

TEST_F(Drawing, ThePenWidthGoesToTheEngineAsItComes) {
  UseScale(2, 3);
  for (const Variant& width : {Variant(Integer(7)), Variant(Long(7)), Variant(0.5F), Variant(0.5),
                               Variant("7"), Variant(), Variant(Null), Variant(Missing)}) {
    for (const Figure& figure : AllFigures()) {
      EXPECT_THAT(LogOf([&] { figure({.drawWidth = width}); }),
                  Contains(Describe("put PenWidth", {width})));
    }
  }
}

TEST_F(Drawing, AStyleThatCannotBeConvertedKeepsTheEnginesAndIsLostAlone) {
  for (const Variant& bad : {Variant("abc"), Variant(Null), Variant(Missing), Variant(1e10)}) {
    SCOPED_TRACE(Describe(bad));
    EXPECT_THAT(
        LogOf([&] { Line(false, {.drawStyle = bad}); }),
        ElementsAre("put PenWidth Integer 0", "put PenColor Long 0", StartsWith("call DrawLine")));
    EXPECT_THAT(
        LogOf([&] { Line(false, {.color = bad}); }),
        ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", StartsWith("call DrawLine")));
  }
}

// --- Brush --------------------------------------------------------------------------------------

TEST_F(Drawing, AnUnfilledFigureHasAWhiteTransparentBrush) {
  for (const FilledFigure& figure : FilledFigures()) {
    EXPECT_THAT(
        LogOf([&] { figure.draw({}); }),
        ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 0",
                    std::string(kWhite), std::string(kTransparent), std::string(figure.drawing)));
  }
}

TEST_F(Drawing, AFilledFigureIsSolidInThePensColour) {
  for (const FilledFigure& figure : FilledFigures()) {
    EXPECT_THAT(LogOf([&] { figure.draw({.filled = true, .color = Long(255)}); }),
                ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0",
                            "put PenColor Long 255", "get PenColor", "put BrushColor Long 255",
                            "put BrushStyle Long 0", std::string(figure.drawing)));
  }
}

TEST_F(Drawing, TheFillTakesTheColourThatThePenReallyHas) {
  for (const FilledFigure& figure : FilledFigures()) {
    Engine().Answer("PenColor", Long(4711));
    Engine().FailOn("put PenColor");
    EXPECT_THAT(LogOf([&] { figure.draw({.filled = true, .color = Long(255)}); }),
                Contains("put BrushColor Long 4711"));
  }
}

// A fill style is tested for its sign before it is put, which copies the colour once more at most.
TEST_F(Drawing, AFillStyleIsPutAfterTheColour) {
  struct Row {
    Variant fillStyle;
    std::string_view put;
  };
  const Row rows[] = {{Integer(2), "put BrushStyle Long 2"}, {Long(7), "put BrushStyle Long 7"},
                      {"3", "put BrushStyle Long 3"},        {4.5, "put BrushStyle Long 4"},
                      {-2.0F, "put BrushStyle Long -2"},     {true, "put BrushStyle Long -1"},
                      {0.25, "put BrushStyle Long 0"}};
  for (const FilledFigure& figure : FilledFigures()) {
    for (const Row& row : rows) {
      Lines log = LogOf(
          [&] { figure.draw({.filled = true, .color = Long(255), .fillStyle = row.fillStyle}); });
      const auto repeated = std::unique(log.begin(), log.end());
      log.erase(repeated, log.end());
      const Lines brush = LinesBeginning("put Brush", log);
      ASSERT_GE(brush.size(), 2U);
      EXPECT_EQ(brush.back(), row.put);
      for (std::size_t i = 0; i + 1 < brush.size(); ++i) {
        EXPECT_EQ(brush[i], "put BrushColor Long 255");
      }
      EXPECT_EQ(log.back(), figure.drawing);
    }
  }
}

TEST_F(Drawing, AMissingFillStyleCopiesTheColourTwiceAndIsNotPut) {
  for (const FilledFigure& figure : FilledFigures()) {
    EXPECT_THAT(
        LogOf([&] { figure.draw({.filled = true, .color = Long(255), .fillStyle = Missing}); }),
        ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 255",
                    "get PenColor", "put BrushColor Long 255", "get PenColor",
                    "put BrushColor Long 255", std::string(figure.drawing)));
  }
}

TEST_F(Drawing, AFillStyleThatIsNoNumberKeepsTheEngines) {
  for (const Variant& bad :
       {Variant("abc"), Variant(Null), Variant(std::make_shared<NamedObject>("object"))}) {
    for (const FilledFigure& figure : FilledFigures()) {
      const Lines log = LogOf([&] { figure.draw({.filled = true, .fillStyle = bad}); });
      EXPECT_THAT(log, Contains("put BrushColor Long 0"));
      EXPECT_THAT(log, Not(Contains(StartsWith("put BrushStyle"))));
      EXPECT_EQ(log.back(), figure.drawing);
    }
  }
}

TEST_F(Drawing, AnEmptyFillStyleIsSolid) {
  for (const FilledFigure& figure : FilledFigures()) {
    EXPECT_THAT(LogOf([&] { figure.draw({.filled = true, .fillStyle = Variant()}); }),
                Contains("put BrushStyle Long 0"));
  }
}

TEST_F(Drawing, FilledIsAnyConditionAndNullIsFalse) {
  const std::pair<Variant, bool> rows[] = {
      {true, true},  {false, false},  {Integer(1), true}, {Integer(0), false},
      {0.25, true},  {"True", true},  {"0", false},       {Variant(), false},
      {Null, false}, {Missing, true}, {"gevuld", true},
  };
  for (const FilledFigure& figure : FilledFigures()) {
    for (const auto& [filled, fills] : rows) {
      const Lines log = LogOf([&] { figure.draw({.filled = filled}); });
      EXPECT_EQ(LinesBeginning(kWhite, log).empty(), fills) << Describe(filled);
      EXPECT_EQ(log.back(), figure.drawing);
    }
  }
}

TEST_F(Drawing, TheBrushKeepsItsColourWhenThePensCannotBeRead) {
  Engine().FailOn("get PenColor");
  EXPECT_THAT(WritesOf([&] { Line(true, {.filled = true}); }),
              ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 0",
                          "put BrushStyle Long 0", StartsWith("call DrawRectangle")));
}

TEST_F(Drawing, EveryFailingStatementIsLostAlone) {
  for (const Figure& figure : AllFigures()) {
    ExpectEveryFailureToBeLostAlone([&] { figure({.drawStyle = Long(1)}); });
  }
}

// --- Lines and boxes ----------------------------------------------------------------------------

TEST_F(Drawing, BoxIsAnyConditionAndNullIsFalse) {
  const std::pair<Variant, bool> rows[] = {
      {true, true},  {false, false},  {Integer(1), true}, {Integer(0), false},
      {0.25, true},  {"True", true},  {"0", false},       {Variant(), false},
      {Null, false}, {Missing, true}, {"kader", true},
  };
  for (const auto& [box, isRectangle] : rows) {
    EXPECT_THAT(LogOf([&] { Line(box); }),
                Contains(StartsWith(isRectangle ? "call DrawRectangle" : "call DrawLine")))
        << Describe(box);
  }
}

TEST_F(Drawing, ABoxAndAFillLeftOutByACallerWithoutDefaultsDrawAFilledRectangle) {
  EXPECT_THAT(
      LogOf([&] { Line(Missing, {.filled = Missing, .color = Long(255), .fillStyle = Missing}); }),
      ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 255",
                  "get PenColor", "put BrushColor Long 255", "get PenColor",
                  "put BrushColor Long 255",
                  "call DrawRectangle Single 1, Single 2, Single 3, Single 4"));
}

TEST_F(Drawing, NothingLeftOutByACallerWithoutDefaultsReachesThePenButItsWidth) {
  EXPECT_THAT(
      LogOf([&] { Line(false, {.color = Missing, .drawStyle = Missing, .drawWidth = Missing}); }),
      ElementsAre("put PenWidth Missing", StartsWith("call DrawLine")));
}

TEST_F(Drawing, ALineAfterAFilledCircleLeavesTheBrush) {
  Circle(Missing, Missing, {.filled = true, .color = Long(255)});
  EXPECT_THAT(LogOf([&] { Line(false); }), Not(Contains(StartsWith("put Brush"))));
}

TEST_F(Drawing, CoordinatesKeepTheKindOfTheirProduct) {
  UseScale(2, 3);
  EXPECT_THAT(LogOf([&] { print.VsPPLine(1.5, Long(2), 1.5F, "4"); }),
              Contains("call DrawLine Double 3, Double 6, Single 3, Double 12"));
}

TEST_F(Drawing, ACoordinateThatIsNoNumberLosesTheDrawingAlone) {
  const Variant good = kOne;
  const Variant bad = "abc";
  const std::function<void()> calls[] = {
      [&] { print.VsPPLine(bad, good, good, good); },
      [&] { print.VsPPLine(good, bad, good, good); },
      [&] { print.VsPPLine(good, good, bad, good); },
      [&] { print.VsPPLine(good, good, good, bad); },
      [&] { print.VsPPLine(good, good, good, Missing); },
  };
  for (const auto& call : calls) {
    EXPECT_THAT(LogOf(call), ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0",
                                         "put PenColor Long 0"));
  }
  for (const auto& values :
       {std::array{bad, good, good}, std::array{good, bad, good}, std::array{good, good, bad}}) {
    EXPECT_THAT(LogOf([&] { print.VsPPCircle(values[0], values[1], values[2]); }),
                ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 0",
                            std::string(kWhite), std::string(kTransparent)));
  }
}

// --- Circles ------------------------------------------------------------------------------------

TEST_F(Drawing, ACircleIsAnArcOnlyWhenBothAnglesAreGiven) {
  const std::string circle = "call DrawCircle Single 1, Single 2, Single 3";
  const struct {
    Variant start;
    Variant end;
    std::string expected;
  } rows[] = {
      {Missing, Missing, circle},
      {0.5, Missing, circle},
      {Missing, 0.5, circle},
      {0.5, 1.5F, circle + ", Double 0.5, Single 1.5"},
      {Integer(-1), Long(2), circle + ", Integer -1, Long 2"},
      {Variant(), Null, circle + ", Empty, Null"},
      {"1", "2", circle + ", String \"1\", String \"2\""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(LogOf([&] { Circle(row.start, row.end); }).back(), row.expected);
  }
}

TEST_F(Drawing, ARadiusIsHorizontalAndAnglesAreNotScaled) {
  UseScale(2, 3);
  EXPECT_EQ(LogOf([&] { Circle(kThree, kFour); }).back(),
            "call DrawCircle Single 2, Single 6, Single 6, Integer 3, Integer 4");
}

// --- Polylines ----------------------------------------------------------------------------------

TEST_F(Drawing, APolylineIsAListOfPointsEachNumberFollowedByASpace) {
  EXPECT_EQ(LogOf([&] {
              print.VsPPDrawPolyline(Points({0, 10, 20}), Points({0, 0, 10}));
            }).back(),
            "put Polyline String \"0 0 10 0 20 10 \"");
}

TEST_F(Drawing, AClosedPolylineIsAPolygon) {
  EXPECT_EQ(LogOf([&] {
              print.VsPPDrawPolyline(Points({0, 10, 20}), Points({0, 0, 10}), true);
            }).back(),
            "put Polygon String \"0 0 10 0 20 10 \"");
}

TEST_F(Drawing, ClosedIsAnyConditionAndNullIsFalse) {
  const std::pair<Variant, bool> rows[] = {
      {true, true},  {false, false},  {Integer(1), true}, {Integer(0), false},
      {0.25, true},  {"True", true},  {"0", false},       {Variant(), false},
      {Null, false}, {Missing, true}, {"gesloten", true},
  };
  for (const auto& [closed, isPolygon] : rows) {
    EXPECT_EQ(LogOf([&] { Polyline(closed); }).back(),
              isPolygon ? "put Polygon String \"1 2 \"" : "put Polyline String \"1 2 \"")
        << Describe(closed);
  }
}

TEST_F(Drawing, PointsAreWrittenWithTheRegionalDecimalSeparator) {
  print.VsPPSetScaleMode(Integer(6));
  {
    const DecimalSeparator comma(',');
    EXPECT_EQ(PointList(Points({10, 25}), Points({0.5F, 20})),
              "String \"566,9291 28,34646 1417,323 1133,858 \"");
  }
  const DecimalSeparator point('.');
  EXPECT_EQ(PointList(Points({10, 25}), Points({0.5F, 20})),
            "String \"566.9291 28.34646 1417.323 1133.858 \"");
}

TEST_F(Drawing, PointsAreWrittenInTheGeneralFormatOfASingle) {
  const DecimalSeparator comma(',');
  EXPECT_EQ(PointList(Points({1.5e7F, 0.00001F, -0.25F}), Points({1234567, 0.1F, -100})),
            "String \"1,5E+07 1234567 1E-05 0,1 -0,25 -100 \"");
}

TEST_F(Drawing, PointsAreMultipliedInDoubleAndRoundedToSingle) {
  const DecimalSeparator point('.');
  UseScale(566.9291381835938F, 3);
  // 566.9291381835938 x 0.1 (as a Single) is 56.69291466...; in Single alone 56.69292.
  EXPECT_EQ(PointList(Points({0.1F}), Points({0})),
            "String \"" + FormatGeneral(ToSingle(566.9291381835938 * double{0.1F}), '.') + " 0 \"");
}

TEST_F(Drawing, TheElementZeroOfAZeroBasedArrayIsNotDrawn) {
  const auto x = Array<float>::FromValues({7, 1, 3}, 0);
  const auto y = Array<float>::FromValues({8, 2, 4}, 0);
  EXPECT_EQ(PointList(x, y), "String \"1 2 3 4 \"");
}

TEST_F(Drawing, PointsTakeTheirNumbersFromBothArraysOwnSubscripts) {
  const auto x = Array<float>::FromValues({1, 3}, 1);
  const auto y = Array<float>::FromValues({9, 2, 4, 9}, 0);
  EXPECT_EQ(PointList(x, y), "String \"1 2 3 4 \"");
}

TEST_F(Drawing, APointWithoutAnElementIsLeftOut) {
  EXPECT_EQ(PointList(Points({1, 3, 5}), Points({2})), "String \"1 2 \"");
  EXPECT_EQ(PointList(Points({1, 3, 5}), Array<float>::FromValues({4, 6}, 2)),
            "String \"3 4 5 6 \"");
  EXPECT_EQ(PointList(Array<float>::FromValues({5}, 3), Points({2, 4, 6})), "String \"5 6 \"");
}

TEST_F(Drawing, APointThatNoSingleHoldsIsLeftOut) {
  UseScale(1e10F, 1);
  EXPECT_EQ(PointList(Points({0, 3e38F, 0}), Points({1, 2, 3})), "String \"0 1 0 3 \"");
}

TEST_F(Drawing, NoPointsMakeAnEmptyList) {
  EXPECT_EQ(PointList(Points({}), Points({})), "String \"\"");
  EXPECT_EQ(PointList({}, {}), "String \"\"");
  EXPECT_EQ(PointList(Array<float>::FromValues({7}, 0), Array<float>::FromValues({8}, 0)),
            "String \"\"");
}

TEST_F(Drawing, TheLastPointThatSixteenBitsCountIsDrawnAndEndsTheList) {
  constexpr std::int32_t kLast = std::numeric_limits<std::int16_t>::max();
  const std::string points = PointList(Array<float>(1, kLast), Array<float>(1, kLast));
  EXPECT_EQ(points.size(), std::string_view("String \"\"").size() + 4 * std::size_t{kLast});
}

TEST_F(Drawing, MorePointsThanSixteenBitsCountAreNoPoints) {
  EXPECT_EQ(PointList(Array<float>(1, 32768), Array<float>(1, 32768)), "String \"\"");
}

// --- Pictures -----------------------------------------------------------------------------------

TEST_F(Drawing, APictureFileIsDrawnIntoTheRectangle) {
  Pictures().AddPicture("logo.png", std::make_shared<NamedObject>("logo"));
  UseScale(2, 3);
  EXPECT_THAT(
      LogOf([&] { print.VsPPPicture("logo.png", 1, 2, 3, 4.5); }),
      ElementsAre("put X1 Double 2", "put Y1 Double 6", "put X2 Double 6", "put Y2 Double 13.5",
                  "load String \"logo.png\"", "put Picture Object logo"));
}

TEST_F(Drawing, TheFactorIsWidenedForAPicturesRectangle) {
  print.VsPPSetScaleMode(Integer(6));
  EXPECT_THAT(LogOf([&] { print.VsPPPicture("logo.png", 0.1, 0, 0, 0); }),
              Contains(Describe("put X1", {double{56.69291305541992F} * 0.1})));
}

TEST_F(Drawing, APictureFileThatCannotBeLoadedLeavesOnlyTheRectangle) {
  EXPECT_THAT(LogOf([&] { print.VsPPPicture("er is niets.png", 1, 2, 3, 4); }),
              ElementsAre("put X1 Double 1", "put Y1 Double 2", "put X2 Double 3",
                          "put Y2 Double 4", "load String \"er is niets.png\""));
}

TEST_F(Drawing, AnEmptyPathLoadsAnEmptyPicture) {
  Pictures().AddPicture("", std::make_shared<NamedObject>("empty picture"));
  EXPECT_EQ(LogOf([&] { print.VsPPPicture("", 1, 2, 3, 4); }).back(),
            "put Picture Object empty picture");
}

TEST_F(Drawing, APictureObjectIsDrawnIntoTheRectangle) {
  UseScale(2, 3);
  const Variant picture = std::make_shared<NamedObject>("logo");
  EXPECT_THAT(LogOf([&] { print.VsPPRealPicture(picture, 1, 2, 3, 4.5); }),
              ElementsAre("put X1 Double 2", "put Y1 Double 6", "put X2 Double 6",
                          "put Y2 Double 13.5", "put Picture Object logo"));
}

TEST_F(Drawing, WhatIsNoPictureObjectLeavesOnlyTheRectangle) {
  for (const Variant& value : {Variant(), Variant(Null), Variant(Missing), Variant(Integer(1)),
                               Variant(1.5), Variant("logo.png"), Variant(true)}) {
    EXPECT_THAT(
        LogOf([&] { print.VsPPRealPicture(value, 1, 2, 3, 4); }),
        ElementsAre("put X1 Double 1", "put Y1 Double 2", "put X2 Double 3", "put Y2 Double 4"))
        << Describe(value);
  }
}

TEST_F(Drawing, EveryFailingStatementOfAPictureIsLostAlone) {
  Pictures().AddPicture("logo.png", std::make_shared<NamedObject>("logo"));
  for (const std::string_view property : {"X1", "Y1", "X2", "Y2"}) {
    Engine().FailOn("put " + std::string(property));
    const Lines log = LogOf([&] { print.VsPPPicture("logo.png", 1, 2, 3, 4); });
    EXPECT_EQ(log.size(), 6U) << property;
    EXPECT_EQ(log.back(), "put Picture Object logo");
    Engine().FailNothing();
  }
}

TEST_F(Drawing, AnEngineThatRefusesThePictureIsNotReported) {
  const Variant picture = std::make_shared<NamedObject>("logo");
  Engine().FailOn("put Picture");
  EXPECT_EQ(LogOf([&] { print.VsPPRealPicture(picture, 1, 2, 3, 4); }).back(),
            "put Picture Object logo (failed)");
}

}  // namespace
}  // namespace pagivo::testing
