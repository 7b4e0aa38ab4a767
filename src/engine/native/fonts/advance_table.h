// The fast way for simple text: glyphs and advances from tables.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/fonts/layout_rules.h"
#include "engine/native/fonts/shaper.h"
#include "engine/native/fonts/simple_text.h"

namespace pagivo::native {

// One face's advances of simple text, by pairs of neighbours, kerning included. HarfBuzz is asked
// about a character or a pair when it first occurs; the answer is what it gives for any text that
// the pair stands in, so a text takes the same place whether or not it goes through this table.
class AdvanceTable {
 public:
  // Both must outlive the table.
  AdvanceTable(const Face& face, Shaper& shaper);
  AdvanceTable(const AdvanceTable&) = delete;
  AdvanceTable& operator=(const AdvanceTable&) = delete;

  // Puts the glyphs of a line into `glyphs`. False when the line must be shaped by HarfBuzz; what
  // `glyphs` holds is undefined then.
  bool Shape(std::string_view text, std::vector<ShapedGlyph>& glyphs);
  // The characters alone and their advances, which stay until the next call; none where Shape is
  // false.
  std::optional<std::span<const SimpleCharacter>> ShapeSimple(std::string_view text);
  // The sum of the advances that Shape gives; none where Shape is false.
  std::optional<std::int64_t> Width(std::string_view text);

 private:
  using Advance = std::int16_t;
  static constexpr Advance kUnknown = std::numeric_limits<Advance>::min();
  static constexpr Advance kNotSimple = kUnknown + 1;
  // Whatever has no slot has its place in the tables, too: nothing with it is simple.
  template <class Entry>
  using BySlot = std::array<Entry, kNoSlot + 1>;
  using Row = BySlot<Advance>;  // by the second character

  struct Single {
    std::uint32_t glyph = 0;
    Advance advance = kUnknown;  // before no other character
  };

  template <class Take>
  bool ForEachGlyph(std::string_view text, Take take);
  Advance AdvanceBefore(Slot slot, Slot next);
  Advance LookUpPair(Slot slot, Slot next);
  const Single& SingleOf(Slot slot);
  static bool FitsAdvance(hb_position_t advance);
  Single AskSingle(Slot slot);
  Advance AskPair(Slot first, Slot second);

  const Face& face_;
  Shaper& shaper_;
  LayoutRules rules_;
  BySlot<Single> singles_;
  BySlot<std::unique_ptr<Row>> rows_;  // made when the first character occurs
  std::vector<SimpleCharacter> characters_;
};

}  // namespace pagivo::native
