// A face's text by the tables and by HarfBuzz itself.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "engine/native/fonts/advance_table.h"
#include "engine/native/fonts/face_support.h"
#include "engine/native/fonts/simple_text.h"
#include "values/characters.h"

namespace pagivo::native {

// For the matchers; the component itself never compares glyphs.
inline bool operator==(const ShapedGlyph& a, const ShapedGlyph& b) {
  return a.glyph == b.glyph && a.advance == b.advance && a.xOffset == b.xOffset &&
         a.yOffset == b.yOffset && a.textBegin == b.textBegin && a.textEnd == b.textEnd;
}

inline void PrintTo(const ShapedGlyph& g, std::ostream* out) {
  *out << g.glyph << "+" << g.advance << "@" << g.xOffset << "," << g.yOffset << "[" << g.textBegin
       << "-" << g.textEnd << "]";
}

// A face shaped both ways.
class BothWays {
 public:
  explicit BothWays(const FaceFile& file)
      : catalog_(std::make_unique<ListedFaces>(std::vector{file})),
        faces_(catalog_, FaceQuery(), catalog_.Find(FaceQuery()).value()),
        advances_(*faces_.Primary().face, shaper_) {}

  // True when the table took the text.
  bool Compare(const std::string& text) {
    if (!advances_.Shape(text, glyphs_)) {
      EXPECT_FALSE(advances_.Width(text).has_value()) << text;
      EXPECT_FALSE(advances_.ShapeSimple(text).has_value()) << text;
      return false;
    }
    shaper_.Shape(text, faces_, line_);
    std::int64_t width = 0;
    for (const ShapedGlyph& glyph : line_.glyphs) width += glyph.advance;
    EXPECT_EQ(glyphs_, line_.glyphs) << text;
    EXPECT_EQ(GlyphsOf(advances_.ShapeSimple(text).value()), line_.glyphs) << text;
    EXPECT_EQ(advances_.Width(text), width) << text;
    EXPECT_EQ(line_.runs.size(), text.empty() ? 0u : 1u) << text;
    return true;
  }

  const ShapedLine& WithHarfBuzz(const std::string& text) {
    shaper_.Shape(text, faces_, line_);
    return line_;
  }
  std::uint64_t HarfBuzzCalls() const { return shaper_.Calls(); }
  bool TakesFromTable(const std::string& text) { return advances_.Shape(text, glyphs_); }

 private:
  // A simple line says no more than the characters and their advances.
  std::vector<ShapedGlyph> GlyphsOf(std::span<const SimpleCharacter> characters) const {
    std::vector<ShapedGlyph> glyphs;
    std::string text;
    for (const auto& [slot, advance] : characters) {
      const auto begin = static_cast<std::uint32_t>(text.size());
      AppendUtf8(text, CodePointOf(slot));
      const auto end = static_cast<std::uint32_t>(text.size());
      const std::uint32_t glyph = faces_.Primary().face->GlyphOf(CodePointOf(slot));
      glyphs.push_back({glyph, advance, 0, 0, begin, end});
    }
    return glyphs;
  }

  FaceCatalog catalog_;
  FaceChoice faces_;
  Shaper shaper_;
  AdvanceTable advances_;
  std::vector<ShapedGlyph> glyphs_;
  ShapedLine line_;
};

}  // namespace pagivo::native
