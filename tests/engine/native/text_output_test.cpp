#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "engine/native/engine_test.h"

namespace pagivo::native {
namespace {

class TextOutputTest : public ComposingTest {
 protected:
  // A text's line in the trace, in the font of a fresh engine.
  static std::string Line(double x, double y, const std::string& text) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({});
    recorder.DrawText({static_cast<float>(x), static_cast<float>(y)}, text);
    return TracePage(document, 1);
  }
  double Width(const std::string& text) { return engine->GetTextWidth(text); }
  double Height(const std::string& text) { return engine->GetTextHeight(text); }
};

TEST_F(TextOutputTest, PrintsWithItsTopLeftAtThePrintPosition) {
  engine->PutCurrentX(1440.25);
  engine->PutCurrentY(std::int16_t{720});
  engine->PutText("Hallo");
  EXPECT_EQ(Page(), "text 1440.25 720 \"Hallo\" Arial 10 color 000000\n");
}

TEST_F(TextOutputTest, UsesTheFontAndColourInForce) {
  engine->PutFontName("Times New Roman");
  engine->PutFontSize(12.5F);
  engine->PutFontBold(true);
  engine->PutFontItalic(true);
  engine->PutFontUnderline(true);
  engine->PutTextColor(0x0000FF);
  engine->PutText("x");
  engine->PutFontBold(false);
  engine->PutFontItalic(false);
  engine->PutFontUnderline(false);
  engine->PutTextColor(0);
  engine->PutCurrentX(0.0);
  engine->PutText("y");
  EXPECT_EQ(Page(),
            "text 0 0 \"x\" Times New Roman 12.5 bold italic underline color FF0000\n"
            "text 0 0 \"y\" Times New Roman 12.5 color 000000\n");
}

TEST_F(TextOutputTest, TheNextTextBeginsAtTheEndOfTheLast) {
  engine->PutText("een");
  engine->PutText("twee");
  engine->PutText("drie");
  EXPECT_EQ(Page(), Line(0, 0, "een") + Line(Width("een"), 0, "twee") +
                        Line(Width("een") + Width("twee"), 0, "drie"));
}

TEST_F(TextOutputTest, TheEndIsMeasuredInTheFontThatWasPrinted) {
  const double width = Width("breed");
  engine->PutText("breed");
  engine->PutFontName("Courier New");
  engine->PutFontSize(30);
  engine->PutText("x");
  EXPECT_EQ(
      Page(), Line(0, 0, "breed") + "text " + [&] {
        const std::string line = Line(width, 0, "x");
        return line.substr(5, line.find(" Arial") - 5);
      }() + " Courier New 30 color 000000\n");
}

TEST_F(TextOutputTest, PuttingOneCoordinateKeepsTheOther) {
  engine->PutText("een");
  engine->PutCurrentY(500.0);
  engine->PutText("twee");
  engine->PutCurrentX(30.0);
  engine->PutText("drie");
  EXPECT_EQ(Page(), Line(0, 0, "een") + Line(Width("een"), 500, "twee") + Line(30, 500, "drie"));
}

TEST_F(TextOutputTest, LinesStartUnderTheFirstOne) {
  const double spacing = Height("x");
  for (const char* text : {"een\rtwee", "een\ntwee", "een\r\ntwee"}) {
    engine->NewPage();
    engine->PutCurrentX(100.0);
    engine->PutCurrentY(200.0);
    engine->PutText(text);
    EXPECT_EQ(Page(), Line(100, 200, "een") + Line(100, 200 + spacing, "twee"));
  }
}

TEST_F(TextOutputTest, AfterLinesThePositionIsAtTheEndOfTheLastOnItsTop) {
  engine->PutCurrentX(100.0);
  engine->PutText("een\ntwee");
  engine->PutText("drie");
  EXPECT_TRUE(Page().ends_with(Line(100 + Width("twee"), Height("x"), "drie"))) << Page();
}

TEST_F(TextOutputTest, AfterATrailingBreakThePositionIsAtTheStartOfTheNextLine) {
  engine->PutCurrentX(100.0);
  engine->PutText("een\n");
  engine->PutText("twee");
  EXPECT_EQ(Page(), Line(100, 0, "een") + Line(100, Height("x"), "twee"));
}

TEST_F(TextOutputTest, EmptyLinesTakeTheirSpace) {
  engine->PutText("een\n\ndrie");
  EXPECT_EQ(Page(), Line(0, 0, "een") + Line(0, 2 * Height("x"), "drie"));
}

TEST_F(TextOutputTest, TabsGoToTheNextHalfInchFromTheTextsStart) {
  engine->PutCurrentX(100.0);
  engine->PutText("a\tb");
  EXPECT_EQ(Page(), Line(100, 0, "a") + Line(820, 0, "b"));
}

TEST_F(TextOutputTest, ATextThatFollowsCountsItsTabsFromItsOwnStart) {
  engine->PutText("abc");
  engine->PutText("\tb");
  EXPECT_EQ(Page(), Line(0, 0, "abc") + Line(Width("abc") + 720, 0, "b"));
}

TEST_F(TextOutputTest, AfterATabThePositionIsAtTheEndOfWhatFollowsIt) {
  engine->PutText("a\tb");
  engine->PutText("c");
  EXPECT_TRUE(Page().ends_with(Line(720 + Width("b"), 0, "c"))) << Page();
}

TEST_F(TextOutputTest, OtherControlCharactersVanish) {
  engine->PutText(std::string("a\x01") + '\0' + "b\x7F" + "c\xC2\x85" + "d");
  EXPECT_EQ(Page(), Line(0, 0, "abcd"));
}

TEST_F(TextOutputTest, AnEmptyTextDrawsNothingAndMovesNothing) {
  engine->PutText("");
  engine->PutText("\x01");
  engine->PutText("x");
  EXPECT_EQ(Page(), Line(0, 0, "x"));
}

TEST_F(TextOutputTest, LongTextsAreKeptWhole) {
  const std::string text(200000, 'x');
  engine->PutText(text);
  EXPECT_EQ(Page(), Line(0, 0, text));
}

TEST_F(TextOutputTest, BytesThatAreNoUtf8ArePrinted) {
  engine->PutText("\xFF\xFE\xC3");
  engine->PutText("x");
  EXPECT_TRUE(Page().starts_with("text 0 0 \"\xFF\xFE\xC3\"")) << Page();
  EXPECT_GT(Width("\xFF"), 0);
}

TEST_F(TextOutputTest, WidthIsThatOfTheWidestLine) {
  EXPECT_EQ(Width("i\nMMM\nMM"), Width("MMM"));
  EXPECT_EQ(Width("a\tb"), 720 + Width("b"));
  EXPECT_EQ(Width("a\t"), 720);
  EXPECT_EQ(Width(""), 0);
  EXPECT_EQ(Width("\n"), 0);
}

TEST_F(TextOutputTest, WidthIncludesTrailingBlanks) {
  EXPECT_GT(Width("x  "), Width("x "));
  EXPECT_GT(Width("x "), Width("x"));
}

TEST_F(TextOutputTest, WidthIsNotRounded) {
  engine->PutFontSize(10);
  const double width = Width("Hallo wereld");
  engine->PutFontSize(20);
  EXPECT_NEAR(Width("Hallo wereld"), 2 * width, 1e-9);
  EXPECT_NE(width, std::round(width));
}

TEST_F(TextOutputTest, WidthDependsOnTheFontInForce) {
  const double regular = Width("Hallo");
  engine->PutFontBold(true);
  EXPECT_NE(Width("Hallo"), regular);
  engine->PutFontBold(false);
  EXPECT_EQ(Width("Hallo"), regular);
  engine->PutFontName("Courier New");
  EXPECT_NE(Width("Hallo"), regular);
  EXPECT_NEAR(Width("iii"), Width("MMM"), 1e-9);
}

TEST_F(TextOutputTest, HeightIsTheLineSpacingTimesTheLines) {
  const double spacing = Height("x");
  EXPECT_GT(spacing, 10 * 20) << "more than the size";
  EXPECT_LT(spacing, 10 * 20 * 2);
  EXPECT_EQ(Height(""), spacing);
  EXPECT_EQ(Height("a\tb"), spacing);
  EXPECT_DOUBLE_EQ(Height("a\r\nb\rc"), 3 * spacing);
  EXPECT_DOUBLE_EQ(Height("a\n"), 2 * spacing);
}

TEST_F(TextOutputTest, MeasuringNeedsNoDocument) {
  NativeEngine fresh;
  EXPECT_EQ(fresh.GetTextWidth("Hallo"), Width("Hallo"));
  EXPECT_EQ(fresh.GetTextHeight("Hallo"), Height("Hallo"));
}

TEST_F(TextOutputTest, FontNameReadsBackWhatWasPut) {
  for (const char* name : {"Arial", "Onbekend Lettertype 9000", "", "Comic\nSans", "字体"}) {
    engine->PutFontName(name);
    EXPECT_EQ(engine->GetFontName(), name);
    EXPECT_GT(Width("x"), 0);
  }
}

TEST_F(TextOutputTest, FontSizesFromAboveZeroTo1638) {
  for (const float size : {0.1F, 8.25F, 1638.0F}) {
    engine->PutFontSize(size);
    EXPECT_EQ(engine->GetFontSize(), size);
  }
  for (const float size :
       {0.0F, -1.0F, 1638.1F, std::nanf(""), std::numeric_limits<float>::infinity()}) {
    ExpectInvalidValue([&] { engine->PutFontSize(size); });
  }
  EXPECT_EQ(engine->GetFontSize(), 1638);
}

TEST_F(TextOutputTest, TextColourMayBeTheSystems) {
  engine->PutTextColor(static_cast<std::int32_t>(0x8000000D));
  engine->PutText("x");
  EXPECT_EQ(Page(), "text 0 0 \"x\" Arial 10 color 0078D7\n");
  ExpectInvalidValue([&] { engine->PutTextColor(0x1000000); });
}

TEST_F(TextOutputTest, PositionsThatAreNoneAreErrorsThatChangeNothing) {
  engine->PutCurrentX(10.0);
  engine->PutCurrentY(20.0);
  const std::vector<Variant> values = {Null,
                                       Missing,
                                       Variant("x"),
                                       std::nan(""),
                                       1.1e9,
                                       -1.1e9,
                                       std::numeric_limits<double>::infinity()};
  for (const Variant& value : values) {
    EXPECT_THROW(engine->PutCurrentX(value), Error);
    EXPECT_THROW(engine->PutCurrentY(value), Error);
  }
  engine->PutText("x");
  EXPECT_EQ(Page(), Line(10, 20, "x"));
}

TEST_F(TextOutputTest, PositionsMayLieOutsideThePaper) {
  engine->PutCurrentX(-500.0);
  engine->PutCurrentY(999999.0);
  engine->PutText("x");
  EXPECT_EQ(Page(), Line(-500, 999999, "x"));
}

TEST_F(TextOutputTest, SurvivesRandomTexts) {
  std::mt19937 random(3);
  for (int i = 0; i < 300; ++i) {
    std::string text(random() % 60, ' ');
    for (char& byte : text) byte = static_cast<char>(random());
    engine->PutText(text);
    EXPECT_TRUE(std::isfinite(engine->GetTextWidth(text)));
  }
}

}  // namespace
}  // namespace pagivo::native
