#include <functional>
#include <map>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

using PageLayout = ApiTest;

// --- Getters ------------------------------------------------------------------------------------

struct LengthGetter {
  std::string_view property;
  std::int32_t (PgPrint::*plain)();
  Variant (PgPrint::*scaled)();
};

// The paper getters read the page's dimensions.
constexpr LengthGetter kLengthGetters[] = {
    {"MarginLeft", &PgPrint::VsPPGetMarginLeft, &PgPrint::VsPPGetMarginLeftS},
    {"MarginRight", &PgPrint::VsPPGetMarginRight, &PgPrint::VsPPGetMarginRightS},
    {"MarginTop", &PgPrint::VsPPGetMarginTop, &PgPrint::VsPPGetMarginTopS},
    {"MarginBottom", &PgPrint::VsPPGetMarginBottom, &PgPrint::VsPPGetMarginBottomS},
    {"PageHeight", &PgPrint::VsPPGetPageHeight, &PgPrint::VsPPGetPageHeightS},
    {"PageHeight", &PgPrint::VsPPGetPaperHeight, &PgPrint::VsPPGetPaperHeightS},
    {"PageWidth", &PgPrint::VsPPGetPageWidth, &PgPrint::VsPPGetPageWidthS},
    {"PageWidth", &PgPrint::VsPPGetPaperWidth, &PgPrint::VsPPGetPaperWidthS},
};

TEST_F(PageLayout, EveryLengthGetterReadsItsOwnPropertyAndNothingElse) {
  UseScale(2, 3);
  for (const LengthGetter& getter : kLengthGetters) {
    const std::string reading = "get " + std::string(getter.property);
    EXPECT_THAT(LogOf([&] { (print.*getter.plain)(); }), ElementsAre(reading));
    EXPECT_THAT(LogOf([&] { (print.*getter.scaled)(); }), ElementsAre(reading));
  }
}

TEST_F(PageLayout, LengthsAreRoundedWithHalvesToTheEvenNeighbourAndAreZeroOutsideLong) {
  const std::pair<Variant, std::int32_t> rows[] = {
      {720.5, 720},
      {721.5, 722},
      {720.4F, 720},
      {Integer(720), 720},
      {Long(70000), 70000},
      {-720.5, -720},
      {"720", 720},
      {2147483647.0, 2147483647},
      {2147483648.0, 0},
      {-2147483649.0, 0},
      {1e300, 0},
      {"breed", 0},
      {Null, 0},
      {Missing, 0},
      {Variant(), 0},
  };
  UseScale(2, 3);
  for (const LengthGetter& getter : kLengthGetters) {
    for (const auto& [answer, length] : rows) {
      Engine().Answer(getter.property, answer);
      EXPECT_EQ((print.*getter.plain)(), length) << getter.property << Describe(answer);
    }
  }
}

TEST_F(PageLayout, AFailingLengthGetterAnswersZero) {
  for (const LengthGetter& getter : kLengthGetters) {
    Engine().Answer(getter.property, Long(720));
    Engine().FailOn("get " + std::string(getter.property));
    EXPECT_EQ((print.*getter.plain)(), 0) << getter.property;
  }
}

TEST_F(PageLayout, ThePaperGettersAnswerThePageWhateverThePaperWasSetTo) {
  Engine().Answer("PageWidth", 11906.0);
  Engine().Answer("PageHeight", 16838.0);
  print.VsPPSetPaperWidth(Integer(5000));
  print.VsPPSetPaperHeight(Integer(6000));
  EXPECT_EQ(print.VsPPGetPaperWidth(), 11906);
  EXPECT_EQ(print.VsPPGetPaperHeight(), 16838);
  EXPECT_EQ(print.VsPPGetPaperWidthS(), Variant(11906.0));
  EXPECT_EQ(print.VsPPGetPaperHeightS(), Variant(16838.0));
}

TEST_F(PageLayout, OrientationCountsFromOneForTheHost) {
  const std::pair<std::int32_t, std::int16_t> rows[] = {
      {0, 1}, {1, 2}, {-1, 0}, {32766, 32767}, {32767, 0}, {-32770, 0}, {2147483647, 0},
  };
  for (const auto& [engines, hosts] : rows) {
    Engine().Answer("Orientation", engines);
    EXPECT_EQ(print.VsPPGetOrientation(), hosts) << engines;
  }
}

TEST_F(PageLayout, ThePaperSizeIsZeroOutsideSixteenBits) {
  const std::pair<std::int32_t, std::int16_t> rows[] = {
      {9, 9}, {256, 256}, {32767, 32767}, {32768, 0}, {-32768, -32768}, {-32769, 0},
  };
  for (const auto& [code, answered] : rows) {
    Engine().Answer("PaperSize", code);
    EXPECT_EQ(print.VsPPGetPaperSize(), answered) << code;
  }
}

TEST_F(PageLayout, AFailingOrientationOrPaperSizeIsZero) {
  Engine().Answer("Orientation", Long(1));
  Engine().Answer("PaperSize", Long(9));
  Engine().FailOn("get Orientation");
  Engine().FailOn("get PaperSize");
  EXPECT_EQ(print.VsPPGetOrientation(), 0);
  EXPECT_EQ(print.VsPPGetPaperSize(), 0);
}

// --- Setters ------------------------------------------------------------------------------------

using Setter = void (PgPrint::*)(const Variant& value);

struct SetterRow {
  Setter put;
  std::string_view property;
  // What is written for the value of the test below.
  Variant written;
};

TEST_F(PageLayout, EverySetterWritesItsPropertyInItsKind) {
  UseScale(2, 3);
  const SetterRow rows[] = {
      {&PgPrint::VsPPSetMarginLeft, "MarginLeft", 201.0F},
      {&PgPrint::VsPPSetMarginRight, "MarginRight", 201.0F},
      {&PgPrint::VsPPSetMarginTop, "MarginTop", 301.5F},
      {&PgPrint::VsPPSetMarginBottom, "MarginBottom", 301.5F},
      {&PgPrint::VsPPSetOrientation, "Orientation", Long(100)},
      {&PgPrint::VsPPSetPaperSize, "PaperSize", Long(100)},
      {&PgPrint::VsPPSetPageHeight, "PageHeight", 301.5},
      {&PgPrint::VsPPSetPaperHeight, "PaperHeight", 301.5F},
      {&PgPrint::VsPPSetPageWidth, "PageWidth", 201.0},
      {&PgPrint::VsPPSetPaperWidth, "PaperWidth", 301.5F},
  };
  for (const SetterRow& row : rows) {
    EXPECT_THAT(LogOf([&] { (print.*row.put)(100.5F); }),
                ElementsAre(Describe("put " + std::string(row.property), {row.written})));
  }
}

TEST_F(PageLayout, ThePaperWidthTakesTheVerticalFactorAndThePageWidthTheHorizontalOne) {
  UseScale(2, 3);
  EXPECT_THAT(LogOf([&] { print.VsPPSetPaperWidth(Integer(100)); }),
              ElementsAre("put PaperWidth Single 300"));
  EXPECT_THAT(LogOf([&] { print.VsPPSetPageWidth(Integer(100)); }),
              ElementsAre("put PageWidth Double 200"));
}

TEST_F(PageLayout, PageDimensionsAreWrittenAsDoubleAndPaperDimensionsAsSingle) {
  for (const Variant& value :
       {Variant(Integer(3)), Variant(Long(3)), Variant(3.0F), Variant(3.0), Variant("3")}) {
    EXPECT_THAT(LogOf([&] { print.VsPPSetPageWidth(value); }),
                ElementsAre("put PageWidth Double 3"));
    EXPECT_THAT(LogOf([&] { print.VsPPSetPageHeight(value); }),
                ElementsAre("put PageHeight Double 3"));
    EXPECT_THAT(LogOf([&] { print.VsPPSetPaperWidth(value); }),
                ElementsAre("put PaperWidth Single 3"));
    EXPECT_THAT(LogOf([&] { print.VsPPSetPaperHeight(value); }),
                ElementsAre("put PaperHeight Single 3"));
  }
}

TEST_F(PageLayout, OrientationIsReducedByOneBeforeItIsRounded) {
  const std::pair<Variant, std::int32_t> rows[] = {
      {Integer(1), 0}, {Integer(2), 1}, {1.5, 0},   {2.5, 2},
      {"2", 1},        {Variant(), -1}, {true, -2}, {Integer(-32768), -32769},
  };
  for (const auto& [value, written] : rows) {
    EXPECT_THAT(LogOf([&] { print.VsPPSetOrientation(value); }),
                ElementsAre(Describe("put Orientation", {written})));
  }
}

TEST_F(PageLayout, AnOrientationThatWasSetReadsBack) {
  print.VsPPSetOrientation(Integer(2));
  EXPECT_EQ(print.VsPPGetOrientation(), 2);
}

TEST_F(PageLayout, ThePaperSizeIsRoundedToLong) {
  const std::pair<Variant, std::int32_t> rows[] = {
      {Integer(9), 9}, {Long(70000), 70000}, {8.5, 8}, {9.5, 10}, {"9", 9}, {Variant(), 0},
  };
  for (const auto& [value, written] : rows) {
    EXPECT_THAT(LogOf([&] { print.VsPPSetPaperSize(value); }),
                ElementsAre(Describe("put PaperSize", {written})));
  }
}

constexpr Setter kSetters[] = {
    &PgPrint::VsPPSetMarginLeft,   &PgPrint::VsPPSetMarginRight, &PgPrint::VsPPSetMarginTop,
    &PgPrint::VsPPSetMarginBottom, &PgPrint::VsPPSetOrientation, &PgPrint::VsPPSetPaperSize,
    &PgPrint::VsPPSetPageHeight,   &PgPrint::VsPPSetPaperHeight, &PgPrint::VsPPSetPageWidth,
    &PgPrint::VsPPSetPaperWidth,
};

TEST_F(PageLayout, AValueThatIsNoNumberIsNotWritten) {
  for (const Variant& bad :
       {Variant("breed"), Variant(Missing), Variant(std::make_shared<NamedObject>("object"))}) {
    for (const Setter put : kSetters) {
      EXPECT_THAT(LogOf([&] { (print.*put)(bad); }), IsEmpty()) << Describe(bad);
    }
  }
}

TEST_F(PageLayout, NullIsWrittenOnlyWhereNoKindIsForced) {
  for (const Setter put : kSetters) {
    const Lines log = LogOf([&] { (print.*put)(Null); });
    for (const std::string& line : log) {
      EXPECT_THAT(line, StartsWith("put Margin"));
    }
  }
  EXPECT_THAT(LogOf([&] { print.VsPPSetMarginLeft(Null); }), ElementsAre("put MarginLeft Null"));
}

TEST_F(PageLayout, AValueOutsideItsKindIsNotWritten) {
  EXPECT_THAT(LogOf([&] {
                print.VsPPSetOrientation(1e10);
                print.VsPPSetOrientation(Long(std::numeric_limits<std::int32_t>::min()));
                print.VsPPSetPaperSize(1e10);
                print.VsPPSetPaperWidth(1e39);
                print.VsPPSetPaperHeight(1e39);
              }),
              IsEmpty());
}

TEST_F(PageLayout, AValueThatTheEngineRefusesKeepsThePreviousOne) {
  for (const std::string_view property :
       {"MarginLeft", "MarginRight", "MarginTop", "MarginBottom", "Orientation", "PaperSize",
        "PageHeight", "PaperHeight", "PageWidth", "PaperWidth", "PhysicalPage"}) {
    Engine().FailOn("put " + std::string(property));
  }
  const Lines log = LogOf([&] {
    for (const Setter put : kSetters) (print.*put)(Integer(1));
    print.VsPPSetPhysicalPage(true);
  });
  EXPECT_EQ(log.size(), std::size(kSetters) + 1);
  EXPECT_EQ(print.VsPPGetMarginLeft(), 0);
  EXPECT_EQ(print.VsPPGetPageWidth(), 0);
}

TEST_F(PageLayout, ThePhysicalPageSwitchIsPassedOn) {
  EXPECT_THAT(LogOf([&] {
                print.VsPPSetPhysicalPage(true);
                print.VsPPSetPhysicalPage(false);
              }),
              ElementsAre("put PhysicalPage Boolean True", "put PhysicalPage Boolean False"));
}

// --- Paper sizes --------------------------------------------------------------------------------

struct Paper {
  int code;
  std::string_view name;
};

constexpr Paper kPapers[] = {
    {1, "Letter 8 1/2 x 11 inch"},
    {2, "Letter Small 8 1/2 x 11 inch"},
    {3, "Tabloid 11 x 17 inch"},
    {4, "Ledger 17 x 11 inch"},
    {5, "Legal 8 1/2 x 14 inch"},
    {6, "Statement 5 1/2 x 8 1/2 inch"},
    {7, "Executive 7 1/2 x 10 1/2 inch"},
    {8, "A3 297 x 420 mm"},
    {9, "A4 210 x 297 mm"},
    {10, "A4 Small 210 x 297 mm"},
    {11, "A5 148 x 210 mm"},
    {12, "B4 250 x 354 mm"},
    {13, "B5 182 x 257 mm"},
    {14, "Folio 8 1/2 x 13 inch"},
    {15, "Quarto 215 x 275 mm"},
    {16, "10 x 14 inch"},
    {17, "10 x 17 inch"},
    {18, "Note 8 1/2 x 11 inch"},
    {39, "U.S. Standard Fanfold 14 7/8 x 11 inch"},
    {40, "German Standard Fanfold 8 1/2 x 12 inch"},
    {41, "German Legal Fanfold 8 1/2 x 13 inch"},
    {256, "Door de gebruiker gedefinieerd formaat"},
};

class PaperSizes : public ApiTest {
 protected:
  // Fills names and codes anew and checks that they are numbered 0 to the result.
  void List() {
    count = print.VsPPGetPaperSizes(names, codes);
    EXPECT_EQ(names.LowerBound(), 0);
    EXPECT_EQ(codes.LowerBound(), 0);
    EXPECT_EQ(names.UpperBound(), count);
    EXPECT_EQ(codes.UpperBound(), count);
  }

  void ExpectListed(std::int16_t position, const Paper& paper) {
    EXPECT_EQ(names(position), paper.name);
    EXPECT_EQ(codes(position), paper.code);
  }

  void ExpectAllListed() {
    ASSERT_EQ(count, std::ssize(kPapers));
    for (std::int16_t i = 1; i <= count; ++i) {
      ExpectListed(i, kPapers[static_cast<std::size_t>(i - 1)]);
    }
  }

  Array<std::string> names;
  Array<std::int16_t> codes;
  std::int16_t count = 0;
};

TEST_F(PaperSizes, APrinterThatSupportsEverythingHasAllNamedPapersFromOneOn) {
  Engine().Answer("PaperSizes", true);
  List();
  ExpectAllListed();
  EXPECT_EQ(names(0), "");
  EXPECT_EQ(codes(0), 0);
}

TEST_F(PaperSizes, EveryPaperIsListedWhenItIsTheOnlyOne) {
  for (const Paper& paper : kPapers) {
    Engine().AnswerFor("PaperSizes", Long(paper.code), true);
    List();
    ASSERT_EQ(count, 1) << paper.code;
    ExpectListed(1, paper);
    Engine().AnswerFor("PaperSizes", Long(paper.code), false);
  }
}

TEST_F(PaperSizes, APrinterWithoutPapersLeavesOnlyTheIndexZero) {
  List();
  EXPECT_EQ(count, 0);
}

TEST_F(PaperSizes, TheEngineIsAskedForTheNamedCodesInAscendingOrder) {
  Lines expected;
  for (const Paper& paper : kPapers) {
    expected.push_back(Describe("get PaperSizes", {Long(paper.code)}));
  }
  EXPECT_THAT(LogOf([&] { List(); }), ElementsAreArray(expected));
}

TEST_F(PaperSizes, CodesWithoutANameAreNeverListed) {
  for (int code = 19; code <= 38; ++code) Engine().AnswerFor("PaperSizes", Long(code), true);
  List();
  EXPECT_EQ(count, 0);
}

TEST_F(PaperSizes, TheUserDefinedSizeComesLast) {
  Engine().AnswerFor("PaperSizes", Long(256), true);
  Engine().AnswerFor("PaperSizes", Long(9), true);
  List();
  ASSERT_EQ(count, 2);
  ExpectListed(1, {9, "A4 210 x 297 mm"});
  ExpectListed(2, {256, "Door de gebruiker gedefinieerd formaat"});
}

TEST_F(PaperSizes, AProbeThatFailsIsAnUnsupportedSize) {
  Engine().Answer("PaperSizes", true);
  for (const Paper& paper : kPapers) {
    Engine().FailOn(Describe("get PaperSizes", {Long(paper.code)}));
    List();
    EXPECT_EQ(count, std::ssize(kPapers) - 1);
    for (std::int16_t i = 1; i <= count; ++i) EXPECT_NE(codes(i), paper.code);
    Engine().FailNothing();
  }
}

TEST_F(PaperSizes, TheIndexZeroKeepsWhatTheHostHadThere) {
  names = Array<std::string>::FromValues({"kies", "oud", "ouder"}, 0);
  codes = Array<std::int16_t>::FromValues({77, 78, 79}, 0);
  Engine().AnswerFor("PaperSizes", Long(9), true);
  List();
  EXPECT_EQ(names(0), "kies");
  EXPECT_EQ(codes(0), 77);
  ExpectListed(1, {9, "A4 210 x 297 mm"});
}

TEST_F(PaperSizes, ArraysOfAnyBoundsAreResized) {
  names = Array<std::string>::FromValues({"oud"}, 1);
  codes = Array<std::int16_t>(1, 100);
  Engine().Answer("PaperSizes", true);
  List();
  ExpectAllListed();
}

}  // namespace
}  // namespace pagivo::testing
