// Lines as a font shapes and measures them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/native/fonts/face_support.h"
#include "engine/native/fonts/font_library.h"

namespace pagivo::native {
namespace {

using testing::ElementsAre;
using testing::Pair;

Font& FontNamed(const char* name) {
  return FontLibrary::Instance().Find(name, false, false);
}

ShapedLine Shape(const char* name, std::string_view text) {
  ShapedLine line;
  FontNamed(name).Shape(text, line);
  return line;
}

using Ranges = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

Ranges RangesOf(const ShapedLine& line) {
  Ranges ranges;
  for (const ShapedGlyph& glyph : line.glyphs) ranges.emplace_back(glyph.textBegin, glyph.textEnd);
  return ranges;
}

std::vector<std::uint32_t> BeginningsOf(const ShapedLine& line) {
  std::vector<std::uint32_t> beginnings;
  for (const ShapedGlyph& glyph : line.glyphs) beginnings.push_back(glyph.textBegin);
  return beginnings;
}

TEST(Shaping, GivesNothingForAnEmptyLine) {
  const ShapedLine line = Shape("Arial", "");
  EXPECT_TRUE(line.glyphs.empty());
  EXPECT_TRUE(line.runs.empty());
  EXPECT_EQ(FontNamed("Arial").Width(""), 0);
}

TEST(Shaping, ReplacesWhatTheLineHeldBefore) {
  ShapedLine line = Shape("Arial", "something \u05D0 long");
  FontNamed("Arial").Shape("ab", line);
  EXPECT_EQ(line.glyphs.size(), 2u);
  ASSERT_EQ(line.runs.size(), 1u);
  EXPECT_EQ(line.runs[0].glyphBegin, 0u);
  EXPECT_EQ(line.runs[0].glyphEnd, 2u);
}

TEST(Shaping, TakesAdvancesInDesignUnitsThatNoHintingTouches) {
  const ShapedLine line = Shape("Arial", "1");
  const Face& face = *line.runs.at(0).face;
  FT_Load_Glyph(face.FreeType(), line.glyphs.at(0).glyph, FT_LOAD_NO_SCALE);
  EXPECT_EQ(line.glyphs[0].advance, face.FreeType()->glyph->metrics.horiAdvance);
  EXPECT_EQ(line.glyphs[0].advance, 1139);  // of 2048, as in every face of these metrics
}

TEST(Shaping, KernsPairs) {
  Font& font = FontNamed("Arial");
  EXPECT_LT(font.Width("AV"), font.Width("A") + font.Width("V"));
  EXPECT_LT(font.Width("AVAVAV"), 3 * (font.Width("A") + font.Width("V")));
}

TEST(Shaping, JoinsLettersToALigatureThatStandsForAllOfThem) {
  const ShapedLine line = Shape("DejaVu Sans", "offi");
  EXPECT_THAT(RangesOf(line), ElementsAre(Pair(0, 1), Pair(1, 4)));
}

TEST(Shaping, KeepsTheRangeOfACharacterOfSeveralBytes) {
  EXPECT_THAT(RangesOf(Shape("Arial", "é€1")), ElementsAre(Pair(0, 2), Pair(2, 5), Pair(5, 6)));
  EXPECT_THAT(RangesOf(Shape("Arial", "αé")), ElementsAre(Pair(0, 2), Pair(2, 4)));
}

TEST(Shaping, ComposesACombiningMarkWithItsBase) {
  const ShapedLine line = Shape("Arial", "e\u0301x");
  EXPECT_THAT(RangesOf(line), ElementsAre(Pair(0, 3), Pair(3, 4)));
  EXPECT_EQ(line.glyphs[0].glyph, Shape("Arial", "é").glyphs.at(0).glyph);
}

TEST(Shaping, KeepsACombiningMarkInTheFaceOfItsBase) {
  for (const char* text : {"x\u0342", "\u05E9\u05B8", "\u05E9\u0301", "x\u200D\u0342"}) {
    const ShapedLine line = Shape("Arial", text);
    EXPECT_EQ(line.runs.size(), 1u) << text;
    EXPECT_EQ(line.glyphs.at(0).textBegin, 0u) << text;
  }
}

TEST(Shaping, PutsRightToLeftTextInVisualOrder) {
  EXPECT_THAT(RangesOf(Shape("DejaVu Sans", "\u05D0\u05D1\u05D2")),
              ElementsAre(Pair(4, 6), Pair(2, 4), Pair(0, 2)));
}

TEST(Shaping, KeepsNumbersFromLeftToRightInsideRightToLeftText) {
  // alef, blank, 1, 2, blank, bet: the line runs from the right.
  EXPECT_THAT(BeginningsOf(Shape("DejaVu Sans", "\u05D0 12 \u05D1")),
              ElementsAre(6, 5, 3, 4, 2, 0));
}

TEST(Shaping, SetsAHebrewWordInALatinLineBackwardsAndTheRestForwards) {
  EXPECT_THAT(BeginningsOf(Shape("DejaVu Sans", "a \u05D0\u05D1 b")),
              ElementsAre(0, 1, 4, 2, 6, 7));
}

TEST(Shaping, TellsWhichRunsStandAgainstTheTextsOrder) {
  // Arabic letters run from the right, figures of their own from the left.
  const ShapedLine line = Shape("DejaVu Sans", "a \u0628\u0661\u0662 b");
  std::vector<bool> directions;
  for (const ShapedRun& run : line.runs) directions.push_back(run.rightToLeft);
  EXPECT_THAT(directions, ElementsAre(false, true, false));
  EXPECT_THAT(BeginningsOf(line), ElementsAre(0, 1, 4, 6, 2, 8, 9));
}

TEST(Shaping, LeavesTrailingBlanksAtTheEndOfARightToLeftLine) {
  EXPECT_THAT(BeginningsOf(Shape("DejaVu Sans", "\u05D0 1 ")), ElementsAre(4, 3, 2, 0));
  EXPECT_THAT(BeginningsOf(Shape("DejaVu Sans", "a \u05D0  ")), ElementsAre(0, 1, 2, 4, 5));
}

TEST(Shaping, MirrorsBracketsInRightToLeftText) {
  const ShapedLine line = Shape("DejaVu Sans", "\u05D0(");
  EXPECT_EQ(line.glyphs.at(0).glyph, Shape("DejaVu Sans", ")").glyphs.at(0).glyph);
}

TEST(Shaping, JoinsArabicLetters) {
  const ShapedLine alone = Shape("DejaVu Sans", "\u0628");
  const ShapedLine joined = Shape("DejaVu Sans", "\u0628\u0628\u0628");
  ASSERT_EQ(joined.glyphs.size(), 3u);
  for (const ShapedGlyph& glyph : joined.glyphs) {
    EXPECT_NE(glyph.glyph, alone.glyphs.at(0).glyph);
  }
}

TEST(Shaping, DoesNotTearNumbersFromTheirSigns) {
  Font& font = FontNamed("Arial");
  ShapedLine line;
  font.Shape("(1,5) α", line);  // the letter sends the line to HarfBuzz
  EXPECT_EQ(line.runs.size(), 1u);
  EXPECT_THAT(BeginningsOf(line), ElementsAre(0, 1, 2, 3, 4, 5, 6));
}

TEST(Shaping, ReplacesEachOffendingByteByTheReplacementCharacter) {
  const std::uint32_t replacement = Shape("DejaVu Sans", "\uFFFD").glyphs.at(0).glyph;
  struct Case {
    const char* text;
    std::vector<std::uint32_t> offending;  // their positions
    std::size_t glyphs;
  };
  const Case kCases[] = {
      {"\xFF", {0}, 1},
      {"a\xC3", {1}, 2},
      {"\xC3(", {0}, 2},
      {"\xE2\x82", {0, 1}, 2},
      {"\xC0\x80", {0, 1}, 2},                // overlong
      {"\xED\xA0\x80", {0, 1, 2}, 3},         // a surrogate
      {"\xF5\x80\x80\x80", {0, 1, 2, 3}, 4},  // beyond Unicode
      {"\x80z", {0}, 2},
  };
  for (const Case& c : kCases) {
    const ShapedLine line = Shape("DejaVu Sans", c.text);
    ASSERT_EQ(line.glyphs.size(), c.glyphs);
    for (const std::uint32_t position : c.offending) {
      EXPECT_EQ(line.glyphs[position].glyph, replacement);
      EXPECT_EQ(line.glyphs[position].textBegin, position);
      EXPECT_EQ(line.glyphs[position].textEnd, position + 1);
    }
  }
}

double SumOfAdvances(const ShapedLine& line) {
  double sum = 0;
  for (const ShapedRun& run : line.runs) {
    std::int64_t advances = 0;
    for (auto i = run.glyphBegin; i < run.glyphEnd; ++i) advances += line.glyphs[i].advance;
    sum += static_cast<double>(advances) / run.face->UnitsPerEm();
  }
  return sum;
}

TEST(Width, IsTheSumOfTheAdvancesThatShapingGives) {
  for (const char* name : {"Arial", "DejaVu Sans", "Nimbus Roman", "Courier New"}) {
    for (const char* text :
         {"1.234,56", "AVATAR  ", "  x", "officieel", "efficiënt", "µg/m³ – € 1", "αβγ",
          "a \u05D0\u05D1 12", "e\u0301\u0342", "\xFF\xFE", "中文", "\u0628\u0628"}) {
      EXPECT_EQ(FontNamed(name).Width(text), SumOfAdvances(Shape(name, text))) << name << text;
    }
  }
}

TEST(Width, CountsTrailingBlanks) {
  Font& font = FontNamed("Arial");
  EXPECT_GT(font.Width("a  "), font.Width("a "));
  EXPECT_GT(font.Width("a "), font.Width("a"));
}

TEST(Width, IsTheSameForAllFigures) {
  for (const char* name : {"Arial", "Times New Roman", "Tahoma"}) {
    for (char digit = '1'; digit <= '9'; ++digit) {
      EXPECT_EQ(FontNamed(name).Width(std::string(1, digit)), FontNamed(name).Width("0")) << name;
    }
  }
}

TEST(Shaping, TakesALongLine) {
  const std::string text(1'000'000, 'x');
  ShapedLine line;
  FontNamed("Arial").Shape(text, line);
  EXPECT_EQ(line.glyphs.size(), text.size());
}

}  // namespace
}  // namespace pagivo::native
