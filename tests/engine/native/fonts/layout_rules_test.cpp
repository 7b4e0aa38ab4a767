// Faces with one layout rule each, made for the test: the tables must give what HarfBuzz gives.
#include "engine/native/fonts/layout_rules.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

#include "engine/native/fonts/both_ways.h"
#include "engine/native/fonts/layout_builder.h"
#include "engine/native/fonts/layout_table.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

// Glyphs of the face that lends its outlines.
constexpr int kA = 68;
constexpr int kB = 69;
constexpr int kC = 70;
constexpr int kD = 71;
constexpr int kUpperB = 37;
constexpr int kUpperZ = 61;
constexpr int kToUpper = 0x10000 - 32;

Piece Coverage(std::initializer_list<int> glyphs) {
  Piece coverage{1, static_cast<int>(glyphs.size())};
  for (const int glyph : glyphs) coverage.Put(glyph);
  return coverage;
}

Piece CoverageOfRange(int first, int last) {
  return {2, 1, first, last, 0};
}

Piece LookupOf(int type, const Piece& subtable, int flags = 0) {
  return Piece{type, flags, 1}.PutOffset(subtable);
}

Piece Extension(int extensionType, int type, const Piece& subtable) {
  return LookupOf(extensionType, Piece{1, type}.PutLongOffset(subtable));
}

// What contextual rules call: capitals, or more advance.
Piece Capitals() {
  return LookupOf(1, Piece{1}.PutOffset(CoverageOfRange(kA, kD)).Put(kToUpper));
}
Piece MoreAdvance() {
  constexpr int kXAdvance = 4;
  return LookupOf(1, Piece{1}.PutOffset(CoverageOfRange(kA, kD)).Put(kXAdvance).Put(100));
}

Piece LigatureOfThree() {
  const Piece set = Piece{1}.PutOffset({kUpperZ, 3, kB, kC});
  return Piece{1}.PutOffset(Coverage({kA})).Put(1).PutOffset(set);
}

Piece GlyphContext() {
  const Piece set = Piece{1}.PutOffset({3, 1, kB, kC, 0, 1});
  return Piece{1}.PutOffset(Coverage({kA})).Put(1).PutOffset(set);
}

// Anything but a and c stands in the middle.
Piece ClassContext() {
  const Piece set = Piece{1}.PutOffset({3, 1, 0, 2, 0, 1});
  return Piece{2}
      .PutOffset(Coverage({kA}))
      .PutOffset({2, 2, kA, kA, 1, kC, kC, 2})
      .Put(2)
      .Put(0)
      .PutOffset(set);
}

Piece CoverageContext() {
  return Piece{3, 3, 1}
      .PutOffset(Coverage({kA}))
      .PutOffset(CoverageOfRange(kB, kB))
      .PutOffset(Coverage({kC, kD}))
      .Put(1)
      .Put(1);
}

Piece GlyphChain() {
  const Piece set = Piece{1}.PutOffset({1, kA, 1, 1, kC, 1, 0, 1});
  return Piece{1}.PutOffset(Coverage({kB})).Put(1).PutOffset(set);
}

// Anything but d follows.
Piece ClassChain() {
  const Piece set = Piece{1}.PutOffset({1, 1, 1, 1, 0, 1, 0, 1});
  return Piece{2}
      .PutOffset(Coverage({kB}))
      .PutOffset({1, kA, 1, 1})
      .PutOffset({1, kB, 1, 1})
      .PutOffset({1, kD, 1, 1})
      .Put(2)
      .Put(0)
      .PutOffset(set);
}

Piece CoverageChain() {
  return Piece{3, 1}
      .PutOffset(Coverage({kA}))
      .Put(1)
      .PutOffset(Coverage({kB}))
      .Put(1)
      .PutOffset(Coverage({kC}))
      .Put(1)
      .Put(0)
      .Put(1);
}

// The backtrack is a, b before c: stored from the input backwards.
Piece LongBacktrack() {
  return Piece{3, 2}
      .PutOffset(Coverage({kB}))
      .PutOffset(Coverage({kA}))
      .Put(1)
      .PutOffset(Coverage({kC}))
      .Put(0)
      .Put(1)
      .Put(0)
      .Put(1);
}

Piece ReverseChain() {
  return Piece{1}
      .PutOffset(Coverage({kB}))
      .Put(1)
      .PutOffset(Coverage({kA}))
      .Put(1)
      .PutOffset(Coverage({kC}))
      .Put(1)
      .Put(kUpperB);
}

// Having matched two letters it goes on behind them, so not every such pair takes part.
Piece PairContext() {
  return Piece{3, 2, 1}.PutOffset(Coverage({kA})).PutOffset(Coverage({kA})).Put(0).Put(1);
}

// Kerning of ab and ba; ab keeps ba from being looked at because it could move the second glyph.
Piece KerningOfBoth() {
  constexpr int kXAdvance = 4;
  return Piece{1}
      .PutOffset(Coverage({kA, kB}))
      .Put(kXAdvance)
      .Put(kXAdvance)
      .Put(2)
      .PutOffset({1, kB, 100, 0})
      .PutOffset({1, kA, 50, 0});
}

struct RuleCase {
  const char* name;
  const char* table;
  std::vector<Piece> lookups;
  const char* text;  // that the rule changes
};

std::vector<RuleCase> RuleCases() {
  return {
      {"LigatureOfThree", "GSUB", {LookupOf(4, LigatureOfThree())}, "abc"},
      {"GlyphContext", "GSUB", {LookupOf(5, GlyphContext()), Capitals()}, "abc"},
      {"ClassContext", "GSUB", {LookupOf(5, ClassContext()), Capitals()}, "axc"},
      {"CoverageContext", "GSUB", {LookupOf(5, CoverageContext()), Capitals()}, "abd"},
      {"GlyphChain", "GSUB", {LookupOf(6, GlyphChain()), Capitals()}, "abc"},
      {"ClassChain", "GSUB", {LookupOf(6, ClassChain()), Capitals()}, "abx"},
      {"CoverageChain", "GSUB", {LookupOf(6, CoverageChain()), Capitals()}, "abc"},
      {"LongBacktrack", "GSUB", {LookupOf(6, LongBacktrack()), Capitals()}, "abc"},
      {"ReverseChain", "GSUB", {LookupOf(8, ReverseChain())}, "abc"},
      {"Extension", "GSUB", {Extension(7, 6, CoverageChain()), Capitals()}, "abc"},
      {"GlyphContext", "GPOS", {LookupOf(7, GlyphContext()), MoreAdvance()}, "abc"},
      {"ClassContext", "GPOS", {LookupOf(7, ClassContext()), MoreAdvance()}, "axc"},
      {"CoverageChain", "GPOS", {LookupOf(8, CoverageChain()), MoreAdvance()}, "abc"},
      {"PairContext", "GPOS", {LookupOf(7, PairContext()), MoreAdvance()}, "aa"},
      {"Extension", "GPOS", {Extension(9, 8, ClassChain()), MoreAdvance()}, "abx"},
      {"KerningOfBoth", "GPOS", {LookupOf(2, KerningOfBoth())}, "aba"},
  };
}

class MadeFont : public testing::Test {
 protected:
  FaceFile Make(const char* table, const std::string& bytes) const {
    const FaceFile outlines = FileFor("Liberation Sans");
    WriteFont(path_, Face(outlines.path, outlines.index), table, bytes);
    return {path_, 0, false, false};
  }
  FaceFile Make(const char* table, const std::vector<Piece>& lookups) const {
    return Make(table, LayoutTable(std::string(table) == "GSUB" ? "calt" : "kern", lookups));
  }

  const ScratchFolder folder_;
  const std::string path_ = folder_.FileNamed("made.ttf");
};

bool Changes(BothWays& face, const std::string& text) {
  const ShapedLine line = face.WithHarfBuzz(text);
  bool changes = line.glyphs.size() != text.size();
  for (std::size_t i = 0; !changes && i < text.size(); ++i) {
    const ShapedGlyph& plain = face.WithHarfBuzz(text.substr(i, 1)).glyphs.at(0);
    changes = line.glyphs[i].glyph != plain.glyph || line.glyphs[i].advance != plain.advance;
  }
  return changes;
}

TEST_F(MadeFont, LeavesTextThatARuleChangesToHarfBuzz) {
  for (const RuleCase& rule : RuleCases()) {
    SCOPED_TRACE(std::string(rule.table) + " " + rule.name);
    BothWays face(Make(rule.table, rule.lookups));
    EXPECT_TRUE(Changes(face, rule.text));
    EXPECT_FALSE(face.TakesFromTable(rule.text));
    EXPECT_FALSE(face.TakesFromTable(std::string("12 ") + rule.text + "x"));
  }
}

TEST_F(MadeFont, TakesTextThatNoRuleCanChangeFromTheTable) {
  for (const RuleCase& rule : RuleCases()) {
    SCOPED_TRACE(std::string(rule.table) + " " + rule.name);
    BothWays face(Make(rule.table, rule.lookups));
    EXPECT_TRUE(face.Compare("1.234,56"));
    EXPECT_TRUE(face.Compare("Zwolle"));
  }
}

TEST_F(MadeFont, GivesTheSameEitherWayForAllShortTexts) {
  constexpr std::string_view kAlphabet = "abcdx";
  for (const RuleCase& rule : RuleCases()) {
    SCOPED_TRACE(std::string(rule.table) + " " + rule.name);
    BothWays face(Make(rule.table, rule.lookups));
    for (std::size_t number = 0; number < 3125; ++number) {
      std::string text;
      for (std::size_t rest = number, i = 0; i < 5; ++i, rest /= 5) text += kAlphabet[rest % 5];
      face.Compare(text);
    }
  }
}

TEST_F(MadeFont, TakesNothingFromTheTableWhenALookupSkipsLetters) {
  constexpr int kIgnoreBaseGlyphs = 2;
  const FaceFile file = Make("GSUB", {LookupOf(6, CoverageChain(), kIgnoreBaseGlyphs), Capitals()});
  EXPECT_FALSE(LayoutRules(Face(file.path, 0)).CanBeDecided());
  EXPECT_FALSE(BothWays(file).TakesFromTable("1"));
}

// A rule that speaks of the class of a letter, over and over: nine kilobytes whose parts are read a
// thousand million times.
Piece ClassContextReadOverAndOver() {
  constexpr int kMany = 1000;
  constexpr int kCoverage = 2 * 6;
  constexpr int kClasses = kCoverage + 2 * 3;
  constexpr int kSet = kClasses + 2 * (3 + kMany);
  constexpr int kRuleInSet = 2 * (1 + kMany);
  Piece subtable{2, kCoverage, kClasses, 2, 0, kSet, 1, 1, kA, 1, kA, kMany};
  for (int i = 0; i < kMany; ++i) subtable.Put(1);
  subtable.Put(kMany);
  for (int i = 0; i < kMany; ++i) subtable.Put(kRuleInSet);
  subtable.Put(kMany).Put(0);
  for (int i = 1; i < kMany; ++i) subtable.Put(1);
  return subtable;
}

// Ligatures of all glyphs there are, each named by thousands of ranges.
Piece CoverageOfEveryGlyphOverAndOver() {
  constexpr int kRanges = 20000;
  Piece subtable{1, 8, 1, 0, 2, kRanges};
  for (int i = 0; i < kRanges; ++i) subtable.Put(1).Put(0xFFFF).Put(0);
  return subtable;
}

TEST_F(MadeFont, LeavesTextToHarfBuzzWhenItsRulesTakeTooMuchWorkToRead) {
  for (const FaceFile& file : {Make("GSUB", {LookupOf(5, ClassContextReadOverAndOver())}),
                               Make("GSUB", {LookupOf(4, CoverageOfEveryGlyphOverAndOver())})}) {
    EXPECT_FALSE(LayoutRules(Face(file.path, 0)).CanBeDecided());
    BothWays face(file);
    EXPECT_FALSE(face.TakesFromTable("abc"));
    EXPECT_EQ(face.WithHarfBuzz("abc").glyphs.size(), 3u);
  }
}

TEST(InstalledFonts, TakeLittleOfTheWorkThatReadingRulesMayTake) {
  for (const FaceFile& file : InstalledFaces()) {
    EXPECT_LT(LayoutRules(Face(file.path, file.index)).Work(), LayoutWork::kMaximum / 64)
        << file.path;
  }
}

TEST_F(MadeFont, TakesNothingFromTheTableWhenAStateMachineKerns) {
  const Piece horizontalStateMachine{0, 1, 0, 14, 0x0101, 0, 0, 0, 0};
  const FaceFile file = Make("kern", horizontalStateMachine.Bytes());
  EXPECT_FALSE(LayoutRules(Face(file.path, 0)).CanBeDecided());
}

TEST_F(MadeFont, WithoutLayoutTablesLeavesEveryPairFree) {
  const FaceFile file = Make("kern", std::string());
  const LayoutRules rules(Face(file.path, 0));
  EXPECT_TRUE(rules.CanBeDecided());
  EXPECT_FALSE(rules.ForbidsPair(SlotOf(U'a'), SlotOf(U'b')));
}

TEST_F(MadeFont, SurvivesCutOffAndGarbledTables) {
  std::minstd_rand random(1);
  for (const RuleCase& rule : RuleCases()) {
    SCOPED_TRACE(std::string(rule.table) + " " + rule.name);
    const std::string whole = LayoutTable("calt", rule.lookups);
    for (int i = 0; i < 12; ++i) {
      const std::size_t length = i % 2 == 0 ? whole.size() : random() % whole.size() + 1;
      std::string bytes = whole.substr(0, length);
      for (int k = 0; k < i; ++k) bytes[random() % bytes.size()] = static_cast<char>(random());
      BothWays face(Make(rule.table, bytes));
      face.TakesFromTable("abcaba 1.234,56");
    }
  }
}

}  // namespace
}  // namespace pagivo::native
