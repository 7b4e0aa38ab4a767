#include "engine/native/pdf/glyph_codes.h"

#include <gtest/gtest.h>

#include <set>

#include "engine/native/fonts/font_library.h"

namespace pagivo::native {
namespace {

const Face& FaceNamed(const char* name) {
  ShapedLine line;
  FontLibrary::Instance().Find(name, false, false).Shape("a", line);
  return *line.runs.at(0).face;
}

const Face& SomeFace() {
  return FaceNamed("DejaVu Sans");
}

class GlyphCodesTest : public ::testing::Test {
 protected:
  std::uint16_t fontCount_ = 0;
  GlyphCodes codes_{SomeFace(), fontCount_};
};

TEST_F(GlyphCodesTest, AsciiCharactersKeepTheirOwnCode) {
  EXPECT_EQ(codes_.CodeOf(36, "A").code, 'A');
  EXPECT_EQ(codes_.CodeOf(68, "a").code, 'a');
}

TEST_F(GlyphCodesTest, TheSameGlyphAndTextHaveTheSameCode) {
  const GlyphCode first = codes_.CodeOf(40, "\u00E9");
  codes_.CodeOf(41, "\u00EA");
  EXPECT_EQ(codes_.CodeOf(40, "\u00E9").code, first.code);
  EXPECT_EQ(codes_.Fonts().size(), 1U);
}

TEST_F(GlyphCodesTest, NoCodeHoldsAByteThatAStringWouldHaveToEscape) {
  for (std::uint32_t glyph = 0; glyph < 3000; ++glyph) {
    const GlyphCode code = codes_.CodeOf(glyph, std::to_string(glyph));
    for (const int byte : {code.code & 0xFF, code.bytes == 2 ? code.code >> 8 : 'x'}) {
      EXPECT_FALSE(byte == '(' || byte == ')' || byte == '\\' || byte == '\r' || byte == '\n');
    }
  }
}

TEST_F(GlyphCodesTest, TwoByteFontsFollowWhenTheOneByteCodesAreUsedUp) {
  std::set<std::pair<int, int>> seen;
  for (std::uint32_t glyph = 0; glyph < 251 + 251 * 251 + 1; ++glyph) {
    const GlyphCode code = codes_.CodeOf(glyph, "long text");
    EXPECT_TRUE(seen.emplace(code.font, code.code).second) << glyph;
    EXPECT_EQ(code.bytes, glyph < 251 ? 1 : 2);
  }
  EXPECT_EQ(codes_.Fonts().size(), 3U);
  EXPECT_EQ(fontCount_, 3);
}

TEST_F(GlyphCodesTest, AsciiCharactersAfterOthersDoNotShareACode) {
  std::set<int> seen;
  for (std::uint32_t glyph = 0; glyph < 200; ++glyph) {
    seen.insert(codes_.CodeOf(glyph, "\u0416").code);
  }
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    seen.insert(codes_.CodeOf(500U + static_cast<unsigned char>(letter), {&letter, 1}).code);
  }
  EXPECT_EQ(seen.size(), 226U);
}

TEST_F(GlyphCodesTest, AnotherTextOfAGlyphHasAnotherCode) {
  const GlyphCode hyphen = codes_.CodeOf(16, "-");
  const GlyphCode softHyphen = codes_.CodeOf(16, "\u00AD");
  EXPECT_NE(hyphen.code, softHyphen.code);
  EXPECT_EQ(hyphen.font, softHyphen.font);
}

TEST(CffGlyphCodes, AnotherTextOfAGlyphGoesToAnotherFont) {
  std::uint16_t fontCount = 0;
  GlyphCodes codes(FaceNamed("Nimbus Roman"), fontCount);
  const GlyphCode hyphen = codes.CodeOf(16, "-");
  EXPECT_NE(hyphen.font, codes.CodeOf(16, "\u00AD").font);
  EXPECT_EQ(hyphen.font, codes.CodeOf(16, "-").font);
}

TEST(CffGlyphCodes, AGlyphWithManyTextsTakesAHandfulOfFonts) {
  std::uint16_t fontCount = 0;
  GlyphCodes codes(FaceNamed("Nimbus Roman"), fontCount);
  std::set<std::pair<int, int>> seen;
  for (int i = 0; i < 200; ++i) {
    const GlyphCode code = codes.CodeOf(0, "text " + std::to_string(i));
    EXPECT_TRUE(seen.emplace(code.font, code.code).second);
  }
  EXPECT_EQ(codes.Fonts().size(), 8U);
  EXPECT_EQ(fontCount, 8);
}

TEST_F(GlyphCodesTest, ASimpleCharacterHasTheCodeOfItsGlyphAndText) {
  const std::uint32_t glyph = SomeFace().GlyphOf(U'\u20AC');
  const GlyphCode euro = codes_.CodeOf(SimpleCharacter{kEuroSlot, 0});
  EXPECT_EQ(euro.code, codes_.CodeOf(glyph, "\u20AC").code);
  EXPECT_EQ(codes_.FindIn(euro.font, {kEuroSlot, 0})->code, euro.code);
  EXPECT_EQ(codes_.FindIn(euro.font + 1, {kEuroSlot, 0}), nullptr);
  EXPECT_EQ(codes_.FindIn(euro.font, {'a', 0}), nullptr);
  EXPECT_EQ(codes_.Fonts().at(0).uses.size(), 1U);
}

TEST_F(GlyphCodesTest, AnEmptyTextIsATextToo) {
  EXPECT_EQ(codes_.CodeOf(16, "").code, codes_.CodeOf(16, "").code);
  EXPECT_EQ(codes_.Fonts().at(0).uses.size(), 1U);
}

TEST_F(GlyphCodesTest, AdvancesAreThoseOfTheFace) {
  ShapedLine line;
  FontLibrary::Instance().Find("DejaVu Sans", false, false).Shape("m", line);
  const double units = line.glyphs.at(0).advance;
  EXPECT_NEAR(codes_.CodeOf(line.glyphs.at(0).glyph, "m").advance,
              units * 1000 / SomeFace().UnitsPerEm(), 0.5);
}

TEST(CharacterMaps, ListAtMostAHundredMappingsInABlock) {
  std::vector<CodeMapping> mappings;
  for (std::uint16_t i = 0; i < 250; ++i) mappings.push_back({i, i + 1000U, "x"});
  const std::string map = MakeEncoding(1, mappings);
  EXPECT_NE(map.find("100 begincidchar\n<00> 1000\n"), std::string::npos);
  EXPECT_NE(map.find("50 begincidchar\n<C8> 1200\n"), std::string::npos);
}

TEST(CharacterMaps, TextOfSeveralCodePointsIsMappedWhole) {
  const CodeMapping mappings[] = {{0x7F80, 5, "f\U0001F600"}, {0x7F81, 6, ""}};
  const std::string map = MakeToUnicode(2, mappings);
  EXPECT_NE(map.find("<7F80><0066D83DDE00>"), std::string::npos);
  EXPECT_NE(map.find("<7F81><200B>"), std::string::npos) << "no text is a space without width";
}

TEST(CharacterMaps, AMappingsTextIsBounded) {
  const std::string text(5000, 'x');
  const CodeMapping mappings[] = {{1, 1, text}};
  EXPECT_LT(MakeToUnicode(1, mappings).size(), 1200U);
}

}  // namespace
}  // namespace pagivo::native
