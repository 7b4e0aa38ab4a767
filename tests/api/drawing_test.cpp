#include <functional>

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

// --- Options by name ----------------------------------------------------------------------------

TEST_F(Drawing, OptionsByNameHoldTheDefaultsUntilTheyAreGiven) {
  EXPECT_EQ(LogOf([&] { print.VsPPLine(kOne, kTwo, kThree, kFour, LineOptions{}); }),
            LogOf([&] { print.VsPPLine(kOne, kTwo, kThree, kFour); }));
  EXPECT_EQ(LogOf([&] { print.VsPPCircle(kOne, kTwo, kThree, CircleOptions{}); }),
            LogOf([&] { print.VsPPCircle(kOne, kTwo, kThree); }));
  EXPECT_EQ(LogOf([&] { print.VsPPDrawPolyline(Points({1}), Points({2}), PolylineOptions{}); }),
            LogOf([&] { print.VsPPDrawPolyline(Points({1}), Points({2})); }));
}

TEST_F(Drawing, OptionsByNameMakeTheSameCall) {
  const Style style{.filled = true,
                    .color = Color::Navy,
                    .fillStyle = BrushStyle::Cross,
                    .drawStyle = PenStyle::DashDot,
                    .drawWidth = 12.5};
  EXPECT_EQ(LogOf([&] {
              print.VsPPLine(kOne, kTwo, kThree, kFour,
                             {.box = true,
                              .filled = true,
                              .color = Color::Navy,
                              .fillStyle = BrushStyle::Cross,
                              .drawStyle = PenStyle::DashDot,
                              .drawWidth = 12.5});
            }),
            LogOf([&] { Line(true, style); }));
  EXPECT_EQ(LogOf([&] {
              print.VsPPCircle(kOne, kTwo, kThree,
                               {.start = 0.5,
                                .end = 1.5,
                                .filled = true,
                                .color = Color::Navy,
                                .fillStyle = BrushStyle::Cross,
                                .drawStyle = PenStyle::DashDot,
                                .drawWidth = 12.5});
            }),
            LogOf([&] { Circle(0.5, 1.5, style); }));
  EXPECT_EQ(LogOf([&] {
              print.VsPPDrawPolyline(Points({1}), Points({2}),
                                     {.closed = true,
                                      .filled = true,
                                      .color = Color::Navy,
                                      .fillStyle = BrushStyle::Cross,
                                      .drawStyle = PenStyle::DashDot,
                                      .drawWidth = 12.5});
            }),
            LogOf([&] { Polyline(true, style); }));
}

}  // namespace
}  // namespace pagivo::testing
