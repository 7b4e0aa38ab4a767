#include <functional>
#include <limits>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Coordinates : public ApiTest {
 protected:
  // The factors in use, as a Double of 1 shows them.
  void ExpectFactors(float x, float y) {
    EXPECT_EQ(State().ScaleX, x);
    EXPECT_EQ(State().ScaleY, y);
    EXPECT_THAT(LogOf([this] {
                  print.VsPPSetMarginLeft(1.0);
                  print.VsPPSetMarginTop(1.0);
                }),
                ElementsAre(Describe("put MarginLeft", {static_cast<double>(x)}),
                            Describe("put MarginTop", {static_cast<double>(y)})));
  }
};

TEST_F(Coordinates, EveryScaleModeHasItsFactors) {
  struct Row {
    int mode;
    float x;
    float y;
  };
  constexpr auto kMillimetre = 56.69291305541992F;
  constexpr auto kCentimetre = 566.9291381835938F;
  for (const Row& row :
       {Row{1, 1, 1}, Row{2, 20, 20}, Row{3, 15, 12.5F}, Row{4, 120, 240}, Row{5, 1440, 1440},
        Row{6, kMillimetre, kMillimetre}, Row{7, kCentimetre, kCentimetre}}) {
    SCOPED_TRACE(row.mode);
    Engine().Answer("TwipsPerPixelX", 15.0);
    Engine().Answer("TwipsPerPixelY", 12.5);
    UseScale(2, 3);
    print.VsPPSetScaleMode(Integer(row.mode));
    ExpectFactors(row.x, row.y);
  }
}

TEST_F(Coordinates, AnUnknownScaleModeMeansTwips) {
  for (const int mode : {-32768, -1, 0, 8, 9, 32767}) {
    SCOPED_TRACE(mode);
    UseScale(2, 3);
    EXPECT_THAT(LogOf([&] { print.VsPPSetScaleMode(Integer(mode)); }), IsEmpty());
    ExpectFactors(1, 1);
  }
}

TEST_F(Coordinates, OnlyTheModeInPixelsAsksTheEngine) {
  for (const int mode : {1, 2, 4, 5, 6, 7}) {
    EXPECT_THAT(LogOf([&] { print.VsPPSetScaleMode(Integer(mode)); }), IsEmpty()) << mode;
  }
  EXPECT_THAT(LogOf([&] { print.VsPPSetScaleMode(Integer(3)); }),
              ElementsAre("get TwipsPerPixelX", "get TwipsPerPixelY"));
}

TEST_F(Coordinates, AScaleModeBeyondSixteenBitsKeepsTheFactors) {
  UseScale(2, 3);
  print.VsPPSetScaleMode(65536 + 6);
  ExpectFactors(2, 3);
}

TEST_F(Coordinates, AFailingPixelWidthKeepsThatFactorAlone) {
  Engine().Answer("TwipsPerPixelY", 12.0);
  Engine().FailOn("get TwipsPerPixelX");
  UseScale(2, 3);
  print.VsPPSetScaleMode(Integer(3));
  ExpectFactors(2, 12);
}

TEST_F(Coordinates, AFailingPixelHeightKeepsThatFactorAlone) {
  Engine().Answer("TwipsPerPixelX", 15.0);
  Engine().FailOn("get TwipsPerPixelY");
  UseScale(2, 3);
  print.VsPPSetScaleMode(Integer(3));
  ExpectFactors(15, 3);
}

TEST_F(Coordinates, APixelSizeThatNoSingleHoldsKeepsTheFactor) {
  Engine().Answer("TwipsPerPixelX", 1e300);
  Engine().Answer("TwipsPerPixelY", 12.0);
  UseScale(2, 3);
  print.VsPPSetScaleMode(Integer(3));
  ExpectFactors(2, 12);
}

TEST_F(Coordinates, InitMakesUnitsTwipsAgain) {
  print.VsPPSetScaleMode(Integer(4));
  print.VsPPInit();
  ExpectFactors(1, 1);
}

TEST_F(Coordinates, AllObjectsShareTheFactors) {
  PgPrint other;
  other.VsPPSetScaleMode(Integer(5));
  ExpectFactors(1440, 1440);
}

TEST_F(Coordinates, ANewScaleModeLeavesWhatTheEngineHas) {
  print.VsPPSetMarginLeft(Integer(100));
  EXPECT_THAT(LogOf([&] { print.VsPPSetScaleMode(Integer(5)); }), IsEmpty());
  EXPECT_EQ(print.VsPPGetMarginLeft(), 100);
}

// With 2 twips a unit across and 3 down, each quantity shows which factor it takes.
TEST_F(Coordinates, EveryQuantityTakesTheFactorOfItsDirection) {
  const Variant ten = Integer(10);
  const Variant twenty = Integer(20);
  const Variant thirty = Integer(30);
  const Variant forty = Integer(40);
  const auto points = [](std::vector<float> values) {
    return Array<float>::FromValues(std::move(values), 1);
  };
  struct Row {
    std::string_view expected;
    std::function<void()> call;
  };
  const Row rows[] = {
      {"put CurrentX Single 20", [&] { print.VsPPPrint("x", ten); }},
      {"put CurrentX Double 20", [&] { print.VsPPPrintR("x", ten); }},
      {"put CurrentY Single 30", [&] { print.VsPPPrint("x", Missing, ten); }},
      {"put CurrentY Single 30", [&] { print.VsPPPrintR("x", Missing, ten); }},
      {"call DrawLine Single 20, Single 60, Single 60, Single 120",
       [&] { print.VsPPLine(ten, twenty, thirty, forty); }},
      {"call DrawRectangle Single 20, Single 60, Single 60, Single 120",
       [&] { print.VsPPLine(ten, twenty, thirty, forty, true); }},
      {"call DrawCircle Single 20, Single 60, Single 60",
       [&] { print.VsPPCircle(ten, twenty, thirty); }},
      {"put Polyline String \"20 60 \"",
       [&] { print.VsPPDrawPolyline(points({10}), points({20})); }},
      {"put X1 Double 20", [&] { print.VsPPPicture("", 10, 20, 30, 40); }},
      {"put Y1 Double 60", [&] { print.VsPPPicture("", 10, 20, 30, 40); }},
      {"put X2 Double 60", [&] { print.VsPPRealPicture(Missing, 10, 20, 30, 40); }},
      {"put Y2 Double 120", [&] { print.VsPPRealPicture(Missing, 10, 20, 30, 40); }},
      {"put MarginLeft Single 20", [&] { print.VsPPSetMarginLeft(ten); }},
      {"put MarginRight Single 20", [&] { print.VsPPSetMarginRight(ten); }},
      {"put MarginTop Single 30", [&] { print.VsPPSetMarginTop(ten); }},
      {"put MarginBottom Single 30", [&] { print.VsPPSetMarginBottom(ten); }},
      {"put PageWidth Double 20", [&] { print.VsPPSetPageWidth(ten); }},
      {"put PageHeight Double 30", [&] { print.VsPPSetPageHeight(ten); }},
      {"put PaperHeight Single 30", [&] { print.VsPPSetPaperHeight(ten); }},
      {"put PaperWidth Single 30", [&] { print.VsPPSetPaperWidth(ten); }},
      {"put PenWidth Integer 10",
       [&] { print.VsPPLine(ten, ten, ten, ten, false, false, 0, 0, 0, ten); }},
      {"call DrawCircle Single 20, Single 60, Single 60, Integer 10, Integer 20",
       [&] { print.VsPPCircle(ten, twenty, thirty, ten, twenty); }},
      {"put FontSize Single 10", [&] { print.VsPPSetFont(Missing, ten); }},
  };
  UseScale(2, 3);
  for (const Row& row : rows) {
    EXPECT_THAT(LogOf(row.call), ::testing::Contains(std::string(row.expected)));
  }
}

struct ScaledGetter {
  std::string_view name;
  std::string_view property;
  Variant (*read)(PgPrint& print);
  double factor;
};

constexpr ScaledGetter kMarginGetters[] = {
    {"left", "MarginLeft", [](PgPrint& print) { return print.VsPPGetMarginLeftS(); }, 2},
    {"right", "MarginRight", [](PgPrint& print) { return print.VsPPGetMarginRightS(); }, 2},
    {"top", "MarginTop", [](PgPrint& print) { return print.VsPPGetMarginTopS(); }, 4},
    {"bottom", "MarginBottom", [](PgPrint& print) { return print.VsPPGetMarginBottomS(); }, 4},
};

constexpr ScaledGetter kDoubleGetters[] = {
    {"page width", "PageWidth", [](PgPrint& print) { return print.VsPPGetPageWidthS(); }, 2},
    {"paper width", "PageWidth", [](PgPrint& print) { return print.VsPPGetPaperWidthS(); }, 2},
    {"page height", "PageHeight", [](PgPrint& print) { return print.VsPPGetPageHeightS(); }, 4},
    {"paper height", "PageHeight", [](PgPrint& print) { return print.VsPPGetPaperHeightS(); }, 4},
    {"text width", "TextWidth", [](PgPrint& print) { return print.VsPPTextWidthS("abc"); }, 2},
    {"text height", "TextHeight", [](PgPrint& print) { return print.VsPPTextHeightS("abc"); }, 4},
};

std::vector<ScaledGetter> AllScaledGetters() {
  std::vector<ScaledGetter> all(std::begin(kMarginGetters), std::end(kMarginGetters));
  all.insert(all.end(), std::begin(kDoubleGetters), std::end(kDoubleGetters));
  return all;
}

TEST_F(Coordinates, ScaledGettersDivideByTheFactorOfTheirDirection) {
  UseScale(2, 4);
  for (const ScaledGetter& getter : AllScaledGetters()) {
    Engine().Answer(getter.property, 1001.0);
    EXPECT_EQ(getter.read(print), Variant(1001.0 / getter.factor)) << getter.name;
  }
}

TEST_F(Coordinates, AMarginsQuotientIsOfTheKindThatDivisionGives) {
  UseScale(2, 4);
  for (const ScaledGetter& getter : kMarginGetters) {
    SCOPED_TRACE(getter.name);
    const auto factor = static_cast<float>(getter.factor);
    Engine().Answer(getter.property, Integer(1001));
    EXPECT_EQ(getter.read(print), Variant(1001 / factor));
    Engine().Answer(getter.property, 1001.0F);
    EXPECT_EQ(getter.read(print), Variant(1001 / factor));
    Engine().Answer(getter.property, Long(1001));
    EXPECT_EQ(getter.read(print), Variant(1001 / getter.factor));
  }
}

TEST_F(Coordinates, PageAndTextQuotientsAreAlwaysDouble) {
  UseScale(2, 4);
  for (const ScaledGetter& getter : kDoubleGetters) {
    SCOPED_TRACE(getter.name);
    for (const Variant& answer : {Variant(Integer(1001)), Variant(Long(1001)), Variant(1001.0F)}) {
      Engine().Answer(getter.property, answer);
      EXPECT_EQ(getter.read(print), Variant(1001 / getter.factor));
    }
  }
}

TEST_F(Coordinates, TheSingleFactorIsWidenedForADoubleQuotient) {
  print.VsPPSetScaleMode(Integer(6));
  Engine().Answer("PageWidth", 11906.0);
  EXPECT_EQ(print.VsPPGetPageWidthS(), Variant(11906.0 / double{56.69291305541992F}));
}

TEST_F(Coordinates, AScaledGetterIsEmptyWhenTheEngineFails) {
  for (const ScaledGetter& getter : AllScaledGetters()) {
    Engine().Answer(getter.property, 1000.0);
    Engine().FailOn("get " + std::string(getter.property));
    EXPECT_EQ(getter.read(print), Variant()) << getter.name;
    Engine().FailNothing();
  }
}

TEST_F(Coordinates, AScaledGetterIsEmptyForAZeroFactor) {
  UseScale(0, 0);
  for (const ScaledGetter& getter : AllScaledGetters()) {
    Engine().Answer(getter.property, 1000.0);
    EXPECT_EQ(getter.read(print), Variant()) << getter.name;
  }
}

TEST_F(Coordinates, AScaledGetterIsEmptyWhenTheQuotientOverflows) {
  UseScale(1e-30F, 1e-30F);
  for (const ScaledGetter& getter : AllScaledGetters()) {
    Engine().Answer(getter.property, 1e300);
    EXPECT_EQ(getter.read(print), Variant()) << getter.name;
  }
}

TEST_F(Coordinates, AScaledGetterIsEmptyForAnEngineValueThatIsNoNumber) {
  for (const Variant& bad : {Variant("breed"), Variant(Missing)}) {
    for (const ScaledGetter& getter : AllScaledGetters()) {
      Engine().Answer(getter.property, bad);
      EXPECT_EQ(getter.read(print), Variant()) << getter.name;
    }
  }
}

TEST_F(Coordinates, ANullOfTheEngineIsEmptyToTheHost) {
  for (const ScaledGetter& getter : AllScaledGetters()) {
    Engine().Answer(getter.property, Null);
    EXPECT_EQ(getter.read(print), Variant()) << getter.name;
  }
}

struct MarginSetter {
  std::string_view property;
  void (*put)(PgPrint& print, const Variant& margin);
};

constexpr MarginSetter kMarginSetters[] = {
    {"MarginLeft", [](PgPrint& print, const Variant& m) { print.VsPPSetMarginLeft(m); }},
    {"MarginRight", [](PgPrint& print, const Variant& m) { print.VsPPSetMarginRight(m); }},
    {"MarginTop", [](PgPrint& print, const Variant& m) { print.VsPPSetMarginTop(m); }},
    {"MarginBottom", [](PgPrint& print, const Variant& m) { print.VsPPSetMarginBottom(m); }},
};

TEST_F(Coordinates, AProductKeepsTheKindThatMultiplicationGives) {
  struct Row {
    Variant value;
    Variant product;
  };
  const DecimalSeparatorInTest comma(',');
  UseScale(2.5F, 2.5F);
  for (const Row& row :
       {Row{Integer(3), 7.5F}, Row{Long(3), 7.5}, Row{3.0F, 7.5F}, Row{3.0, 7.5}, Row{"3,0", 7.5},
        Row{true, -2.5F}, Row{Variant(), 0.0F}, Row{Null, Null}}) {
    for (const MarginSetter& setter : kMarginSetters) {
      EXPECT_THAT(LogOf([&] { setter.put(print, row.value); }),
                  ElementsAre(Describe("put " + std::string(setter.property), {row.product})));
    }
  }
}

TEST_F(Coordinates, NoProductIsRoundedToWholeTwips) {
  print.VsPPSetScaleMode(Integer(6));
  EXPECT_THAT(LogOf([&] { print.VsPPSetMarginLeft(Integer(25)); }),
              ElementsAre("put MarginLeft Single 1417.3229"));
}

TEST_F(Coordinates, AValueThatCannotBeMultipliedIsNotWritten) {
  UseScale(1e30F, 1e30F);
  for (const Variant& value : {Variant("abc"), Variant(Missing), Variant(1e300),
                               Variant(std::make_shared<NamedObject>("object"))}) {
    for (const MarginSetter& setter : kMarginSetters) {
      EXPECT_THAT(LogOf([&] { setter.put(print, value); }), IsEmpty()) << Describe(value);
    }
  }
}

TEST_F(Coordinates, AFailingMultiplicationLosesThatWriteAlone) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("x", "abc", Integer(5)); }),
              ElementsAre("put CurrentY Single 5", "put Text String \"x\""));
  UseScale(1e30F, 1);
  EXPECT_THAT(
      WritesOf([&] { print.VsPPRealPicture(Missing, 1e300, 2, 3, 4); }),
      ElementsAre("put Y1 Double 2", Describe("put X2", {double{1e30F} * 3}), "put Y2 Double 4"));
}

TEST_F(Coordinates, InCharacterCellsARadiusIsHorizontalAndALineHasBothDirections) {
  print.VsPPSetScaleMode(Integer(4));
  const Variant zero = Integer(0);
  const Variant ten = Integer(10);
  EXPECT_THAT(LogOf([&] { print.VsPPCircle(zero, zero, ten); }),
              ::testing::Contains("call DrawCircle Single 0, Single 0, Single 1200"));
  EXPECT_THAT(LogOf([&] { print.VsPPLine(zero, zero, zero, ten); }),
              ::testing::Contains("call DrawLine Single 0, Single 0, Single 0, Single 2400"));
}

TEST_F(Coordinates, AMarginInMillimetresReadsBackWithinSinglePrecision) {
  print.VsPPSetScaleMode(Integer(6));
  print.VsPPSetMarginLeft(Integer(25));
  const Variant margin = print.VsPPGetMarginLeftS();
  EXPECT_EQ(margin.GetKind(), Variant::Kind::Single);
  EXPECT_NEAR(ToDouble(margin), 25, 25 * std::numeric_limits<float>::epsilon());
  EXPECT_EQ(print.VsPPGetMarginLeft(), 1417);
}

TEST_F(Coordinates, InCharacterCellsThePaperWidthTakesTheVerticalFactor) {
  print.VsPPSetScaleMode(Integer(4));
  EXPECT_THAT(LogOf([&] { print.VsPPSetPaperWidth(Integer(2)); }),
              ElementsAre("put PaperWidth Single 480"));
}

TEST_F(Coordinates, AfterInitScaledGettersEqualTheirTwins) {
  print.VsPPSetScaleMode(Integer(5));
  print.VsPPInit();
  const struct {
    std::string_view property;
    std::int32_t (PgPrint::*plain)();
    Variant (PgPrint::*scaled)();
  } rows[] = {
      {"MarginLeft", &PgPrint::VsPPGetMarginLeft, &PgPrint::VsPPGetMarginLeftS},
      {"MarginRight", &PgPrint::VsPPGetMarginRight, &PgPrint::VsPPGetMarginRightS},
      {"MarginTop", &PgPrint::VsPPGetMarginTop, &PgPrint::VsPPGetMarginTopS},
      {"MarginBottom", &PgPrint::VsPPGetMarginBottom, &PgPrint::VsPPGetMarginBottomS},
      {"PageWidth", &PgPrint::VsPPGetPageWidth, &PgPrint::VsPPGetPageWidthS},
      {"PageHeight", &PgPrint::VsPPGetPageHeight, &PgPrint::VsPPGetPageHeightS},
      {"PageWidth", &PgPrint::VsPPGetPaperWidth, &PgPrint::VsPPGetPaperWidthS},
      {"PageHeight", &PgPrint::VsPPGetPaperHeight, &PgPrint::VsPPGetPaperHeightS},
  };
  for (const auto& row : rows) {
    Engine().Answer(row.property, Long(1701));
    EXPECT_EQ((print.*row.plain)(), 1701) << row.property;
    EXPECT_EQ((print.*row.scaled)(), Variant(1701.0)) << row.property;
  }
}

TEST_F(Coordinates, ATextsExtentIsWholeInTwipsButNotInHostUnits) {
  Engine().Answer("TextWidth", 1701.4);
  Engine().Answer("TextHeight", 240.4);
  EXPECT_EQ(print.VsPPTextWidth("abc"), 1701);
  EXPECT_EQ(print.VsPPTextHeight("abc"), 240);
  EXPECT_EQ(print.VsPPTextWidthS("abc"), Variant(1701.4));
  EXPECT_EQ(print.VsPPTextHeightS("abc"), Variant(240.4));
}

TEST_F(Coordinates, TheScaledTextGettersMeasureTheTextAsItIs) {
  EXPECT_THAT(LogOf([&] { print.VsPPTextWidthS("  abc  "); }),
              ElementsAre("get TextWidth String \"  abc  \""));
  EXPECT_THAT(LogOf([&] { print.VsPPTextHeightS("  abc  "); }),
              ElementsAre("get TextHeight String \"  abc  \""));
}

}  // namespace
}  // namespace pagivo::testing
