#include <functional>
#include <string_view>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Text = ApiTest;

const Variant kFive = Integer(5);
const Variant kSix = Integer(6);

// --- VsPPPrint ----------------------------------------------------------------------------------

TEST_F(Text, PrintSetsPositionThenFontThenPrints) {
  EXPECT_THAT(
      LogOf([&] { print.VsPPPrint("abc", kFive, kSix, "Arial", Integer(12), true, false, true); }),
      ElementsAre("put CurrentX Single 5", "put CurrentY Single 6", "put FontName String \"Arial\"",
                  "put FontSize Single 12", "put FontBold Boolean True",
                  "put FontItalic Boolean True", "put FontUnderline Boolean False",
                  "put Text String \"abc\""));
}

TEST_F(Text, PrintWithOnlyATextSetsNeitherPositionNorFont) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("abc"); }), ElementsAre("put Text String \"abc\""));
}

TEST_F(Text, PrintSetsWhatIsGivenAndNothingElse) {
  const std::pair<std::function<void()>, std::string_view> rows[] = {
      {[&] { print.VsPPPrint("abc", kFive); }, "put CurrentX Single 5"},
      {[&] { print.VsPPPrint("abc", Missing, kFive); }, "put CurrentY Single 5"},
      {[&] { print.VsPPPrint("abc", Missing, Missing, "Arial"); }, "put FontName String \"Arial\""},
      {[&] { print.VsPPPrint("abc", Missing, Missing, Missing, kFive); }, "put FontSize Single 5"},
      {[&] { print.VsPPPrint("abc", Missing, Missing, Missing, Missing, true); },
       "put FontBold Boolean True"},
      {[&] { print.VsPPPrint("abc", Missing, Missing, Missing, Missing, Missing, true); },
       "put FontUnderline Boolean True"},
      {[&] { print.VsPPPrint("abc", Missing, Missing, Missing, Missing, Missing, Missing, true); },
       "put FontItalic Boolean True"},
  };
  for (const auto& [call, line] : rows) {
    EXPECT_THAT(LogOf(call), ElementsAre(std::string(line), "put Text String \"abc\""));
  }
}

TEST_F(Text, PrintKeepsLeadingBlanksAndDropsTrailingOnes) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("  abc  "); }), ElementsAre("put Text String \"  abc\""));
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("   "); }), ElementsAre("put Text String \"\""));
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("\tabc\t"); }),
              ElementsAre("put Text String \"\tabc\t\""));
}

TEST_F(Text, AnEmptyArgumentCountsAsPresent) {
  const Variant empty;
  EXPECT_THAT(
      LogOf([&] { print.VsPPPrint("abc", empty, empty, empty, empty, empty, empty, empty); }),
      ElementsAre("put CurrentX Single 0", "put CurrentY Single 0", "put FontName String \"\"",
                  "put FontSize Single 0", "put FontBold Boolean False",
                  "put FontItalic Boolean False", "put FontUnderline Boolean False",
                  "put Text String \"abc\""));
}

TEST_F(Text, ANullArgumentCountsAsPresentAndFailsWhereItCannotBeConverted) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("abc", Null, Null, Null, Null, Null, Null, Null); }),
              ElementsAre("put CurrentX Null", "put CurrentY Null", "put Text String \"abc\""));
}

TEST_F(Text, EveryFailingStatementOfPrintIsLostAlone) {
  ExpectEveryFailureToBeLostAlone(
      [&] { print.VsPPPrint("abc", kFive, kSix, "Arial", Integer(12), true, false, true); });
}

// --- VsPPPrintR ---------------------------------------------------------------------------------

TEST_F(Text, PrintRMeasuresBeforeItSetsTheFont) {
  Engine().Answer("TextWidth", 1000.0);
  EXPECT_THAT(LogOf([&] {
                print.VsPPPrintR("abc", Integer(5000), kSix, "Arial", Integer(20), true, false,
                                 true);
              }),
              ElementsAre("get TextWidth String \"abc\"", "put CurrentX Double 4000",
                          "put CurrentY Single 6", "put FontName String \"Arial\"",
                          "put FontSize Single 20", "put FontBold Boolean True",
                          "put FontItalic Boolean True", "put FontUnderline Boolean False",
                          "put Text String \"abc\""));
}

TEST_F(Text, PrintRTrimsTheRightToMeasureAndTheLeftToPrint) {
  Engine().AnswerFor("TextWidth", "  abc", 700.0);
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("  abc  ", Integer(5000)); }),
              ElementsAre("get TextWidth String \"  abc\"", "put CurrentX Double 4300",
                          "put Text String \"abc  \""));
}

TEST_F(Text, PrintRScalesThePositionAndNotTheWidth) {
  Engine().Answer("TextWidth", 700.5);
  UseScale(2, 3);
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("abc", Integer(5000), Integer(10)); }),
              ElementsAre("get TextWidth String \"abc\"", "put CurrentX Double 9299.5",
                          "put CurrentY Single 30", "put Text String \"abc\""));
}

TEST_F(Text, PrintRWithoutAnXPositionAlignsNothing) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("  abc  "); }),
              ElementsAre("put Text String \"abc  \""));
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("  abc  ", Missing, kSix, "Arial"); }),
              ElementsAre("put CurrentY Single 6", "put FontName String \"Arial\"",
                          "put Text String \"abc  \""));
}

TEST_F(Text, PrintRPutsTheTextAtTheAlignmentPointWhenItCannotBeMeasured) {
  Engine().Answer("TextWidth", 700.0);
  Engine().FailOn("get TextWidth");
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("abc", Integer(5000)); }),
              ElementsAre("get TextWidth String \"abc\" (failed)", "put CurrentX Double 5000",
                          "put Text String \"abc\""));
}

TEST_F(Text, PrintRLosesOnlyThePositionThatIsNoNumber) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("abc", "links", kSix); }),
              ElementsAre("get TextWidth String \"abc\"", "put CurrentY Single 6",
                          "put Text String \"abc\""));
}

TEST_F(Text, PrintRTakesAnEmptyPositionAsZero) {
  Engine().Answer("TextWidth", 700.0);
  EXPECT_THAT(LogOf([&] { print.VsPPPrintR("abc", Variant()); }),
              ElementsAre("get TextWidth String \"abc\"", "put CurrentX Double -700",
                          "put Text String \"abc\""));
}

TEST_F(Text, EveryFailingWriteOfPrintRIsLostAlone) {
  ExpectEveryFailureToBeLostAlone([&] {
    print.VsPPPrintR("abc", Integer(5000), kSix, "Arial", Integer(12), true, false, true);
  });
}

// --- VsPPSetFont --------------------------------------------------------------------------------

TEST_F(Text, SetFontPutsUnderlineBeforeItalic) {
  EXPECT_THAT(LogOf([&] { print.VsPPSetFont("Arial", Integer(12), true, false, true); }),
              ElementsAre("put FontName String \"Arial\"", "put FontSize Single 12",
                          "put FontBold Boolean True", "put FontUnderline Boolean False",
                          "put FontItalic Boolean True"));
}

TEST_F(Text, SetFontSetsWhatIsGivenAndNothingElse) {
  const std::pair<std::function<void()>, std::string_view> rows[] = {
      {[&] { print.VsPPSetFont("Arial"); }, "put FontName String \"Arial\""},
      {[&] { print.VsPPSetFont(Missing, Integer(12)); }, "put FontSize Single 12"},
      {[&] { print.VsPPSetFont(Missing, Missing, true); }, "put FontBold Boolean True"},
      {[&] { print.VsPPSetFont(Missing, Missing, Missing, true); },
       "put FontUnderline Boolean True"},
      {[&] { print.VsPPSetFont(Missing, Missing, Missing, Missing, true); },
       "put FontItalic Boolean True"},
  };
  for (const auto& [call, line] : rows) {
    EXPECT_THAT(LogOf(call), ElementsAre(std::string(line)));
  }
  EXPECT_THAT(LogOf([&] { print.VsPPSetFont(); }), IsEmpty());
}

TEST_F(Text, SettingTheSizeLeavesTheName) {
  print.VsPPSetFont("Courier New", Integer(10));
  print.VsPPSetFont(Missing, Integer(12));
  EXPECT_EQ(print.VsPPGetFontName(), "Courier New");
  EXPECT_EQ(print.VsPPGetFontSize(), Variant(12.0F));
}

TEST_F(Text, EveryFailingStatementOfSetFontIsLostAlone) {
  ExpectEveryFailureToBeLostAlone(
      [&] { print.VsPPSetFont("Arial", Integer(12), true, false, true); });
}

// --- Conversions --------------------------------------------------------------------------------

TEST_F(Text, FontArgumentsAreConvertedToTheKindOfTheirProperty) {
  struct Row {
    Variant value;
    Lines name;
    Lines size;
    Lines bold;
  };
  const Row rows[] = {
      {"Arial", {"put FontName String \"Arial\""}, {}, {}},
      {"12,5",
       {"put FontName String \"12,5\""},
       {"put FontSize Single 12.5"},
       {"put FontBold Boolean True"}},
      {Integer(12),
       {"put FontName String \"12\""},
       {"put FontSize Single 12"},
       {"put FontBold Boolean True"}},
      {12.5,
       {"put FontName String \"12,5\""},
       {"put FontSize Single 12.5"},
       {"put FontBold Boolean True"}},
      {10.1,
       {"put FontName String \"10,1\""},
       {"put FontSize Single 10.1"},
       {"put FontBold Boolean True"}},
      {Long(0),
       {"put FontName String \"0\""},
       {"put FontSize Single 0"},
       {"put FontBold Boolean False"}},
      {true,
       {"put FontName String \"True\""},
       {"put FontSize Single -1"},
       {"put FontBold Boolean True"}},
      {"True", {"put FontName String \"True\""}, {}, {"put FontBold Boolean True"}},
      {"false", {"put FontName String \"false\""}, {}, {"put FontBold Boolean False"}},
      {1e300, {"put FontName String \"1E+300\""}, {}, {"put FontBold Boolean True"}},
      {Null, {}, {}, {}},
      {Variant(),
       {"put FontName String \"\""},
       {"put FontSize Single 0"},
       {"put FontBold Boolean False"}},
      {std::make_shared<NamedObject>("object"), {}, {}, {}},
  };
  const DecimalSeparatorInTest comma(',');
  for (const Row& row : rows) {
    SCOPED_TRACE(Describe(row.value));
    EXPECT_EQ(LogOf([&] { print.VsPPSetFont(row.value); }), row.name);
    EXPECT_EQ(LogOf([&] { print.VsPPSetFont(Missing, row.value); }), row.size);
    EXPECT_EQ(LogOf([&] { print.VsPPSetFont(Missing, Missing, row.value); }), row.bold);
  }
}

TEST_F(Text, UnderlineAndItalicAreConvertedAsBoldIs) {
  EXPECT_THAT(LogOf([&] { print.VsPPSetFont(Missing, Missing, Missing, Integer(2), "0"); }),
              ElementsAre("put FontUnderline Boolean True", "put FontItalic Boolean False"));
  EXPECT_THAT(LogOf([&] {
                print.VsPPPrint("abc", Missing, Missing, Missing, Missing, Missing, Integer(2),
                                "0");
              }),
              ElementsAre("put FontItalic Boolean False", "put FontUnderline Boolean True",
                          "put Text String \"abc\""));
}

TEST_F(Text, AFailingConversionLosesThatAttributeAlone) {
  const Lines all = {"put FontName String \"Arial\"", "put FontSize Single 12",
                     "put FontBold Boolean True", "put FontUnderline Boolean False",
                     "put FontItalic Boolean True"};
  const Variant good[] = {"Arial", Integer(12), true, false, true};
  for (std::size_t failing = 0; failing < std::size(good); ++failing) {
    std::vector<Variant> given(std::begin(good), std::end(good));
    given[failing] = Null;
    Lines expected = all;
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(failing));
    EXPECT_THAT(LogOf([&] { print.VsPPSetFont(given[0], given[1], given[2], given[3], given[4]); }),
                ElementsAreArray(expected));
  }
}

TEST_F(Text, ASizeThatIsNoNumberStillPrints) {
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("abc", kFive, Missing, "Arial", "groot", true); }),
              ElementsAre("put CurrentX Single 5", "put FontName String \"Arial\"",
                          "put FontBold Boolean True", "put Text String \"abc\""));
}

// --- Getters ------------------------------------------------------------------------------------

TEST_F(Text, FontGettersAnswerTheEnginesFont) {
  Engine().Answer("FontName", "Times New Roman");
  Engine().Answer("FontSize", 9.75F);
  EXPECT_EQ(print.VsPPGetFontName(), "Times New Roman");
  EXPECT_EQ(print.VsPPGetFontSize(), Variant(9.75F));
}

TEST_F(Text, FailingFontGettersAnswerNothing) {
  print.VsPPSetFont("Arial", Integer(12));
  Engine().FailOn("get FontName");
  Engine().FailOn("get FontSize");
  EXPECT_EQ(print.VsPPGetFontName(), "");
  EXPECT_EQ(print.VsPPGetFontSize(), Variant());
}

struct ExtentGetter {
  std::string_view property;
  std::int32_t (PgPrint::*read)(const TextArgument& text);
};

constexpr ExtentGetter kExtentGetters[] = {
    {"TextWidth", &PgPrint::VsPPTextWidth},
    {"TextHeight", &PgPrint::VsPPTextHeight},
};

TEST_F(Text, ExtentsAreRoundedWithHalvesToTheEvenNeighbour) {
  struct Row {
    double measured;
    std::int32_t rounded;
  };
  for (const ExtentGetter& getter : kExtentGetters) {
    for (const Row& row :
         {Row{1234.5, 1234}, Row{1235.5, 1236}, Row{1234.4, 1234}, Row{1234.6, 1235}, Row{0, 0},
          Row{2147483647.4, 2147483647}, Row{2147483648.0, 0}, Row{1e300, 0}}) {
      Engine().Answer(getter.property, row.measured);
      EXPECT_EQ((print.*getter.read)("abc"), row.rounded) << getter.property << row.measured;
    }
  }
}

TEST_F(Text, ExtentsAreOfTheTextAsItIs) {
  for (const ExtentGetter& getter : kExtentGetters) {
    EXPECT_THAT(LogOf([&] { (print.*getter.read)("  abc  "); }),
                ElementsAre(Describe("get " + std::string(getter.property), {"  abc  "})));
  }
}

TEST_F(Text, ExtentsDoNotDependOnTheScaleMode) {
  UseScale(2, 3);
  for (const ExtentGetter& getter : kExtentGetters) {
    Engine().Answer(getter.property, 600.0);
    EXPECT_EQ((print.*getter.read)("abc"), 600);
  }
}

TEST_F(Text, AFailingMeasurementAnswersZero) {
  for (const ExtentGetter& getter : kExtentGetters) {
    Engine().Answer(getter.property, 600.0);
    Engine().FailOn("get " + std::string(getter.property));
    EXPECT_EQ((print.*getter.read)("abc"), 0);
  }
}

TEST_F(Text, EveryTypeOfTextIsPrinted) {
  constexpr std::string_view kText = "abcdef";
  EXPECT_THAT(LogOf([&] { print.VsPPPrint(kText.substr(0, 3)); }),
              ElementsAre("put Text String \"abc\""));
  const char* nothing = nullptr;
  EXPECT_THAT(LogOf([&] { print.VsPPPrint(nothing); }), ElementsAre("put Text String \"\""));
}

TEST_F(Text, PrintingBeforeAnyDocumentGoesToTheEngineOfANewWindow) {
  print.VsPPEinde();
  EXPECT_THAT(LogOf([&] { print.VsPPPrint("abc"); }), ElementsAre("put Text String \"abc\""));
  EXPECT_EQ(platform.EnginesMade(), 2);
}

}  // namespace
}  // namespace pagivo::testing
