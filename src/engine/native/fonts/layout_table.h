// Reads the lookups of an OpenType GSUB or GPOS table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <vector>

#include "engine/native/fonts/simple_text.h"

namespace pagivo::native {

// Raised when a font's layout tables ask for more work than LayoutWork allows.
class TooMuchLayoutWork : public std::exception {};

// The work that reading one font's layout tables may take, counted in values read and glyphs told.
// Small tables can speak of the same parts over and over: without a bound, twelve kilobytes keep
// the reader busy for half a minute.
class LayoutWork {
 public:
  // Some fiftieth of a second. The usual text faces take a hundredth of it at most.
  static constexpr std::size_t kMaximum = std::size_t{1} << 22;

  void Spend(std::size_t steps) {
    if (steps > left_) throw TooMuchLayoutWork();
    left_ -= steps;
  }
  std::size_t Spent() const noexcept { return kMaximum - left_; }

 private:
  std::size_t left_ = kMaximum;
};

// A part of a table. Offsets count from the part's beginning; what lies outside the table reads as
// zero, which in these tables always means "nothing".
class TableView {
 public:
  TableView() = default;
  // `work` pays for what is read and must outlive the view.
  TableView(std::span<const std::uint8_t> bytes, LayoutWork& work) : bytes_(bytes), work_(&work) {}

  std::uint16_t At(std::size_t offset) const;
  std::uint32_t LongAt(std::size_t offset) const;
  // The part that the 16-bit offset at `offset` points to; empty for the null offset.
  TableView Part(std::size_t offset) const { return From(At(offset)); }
  TableView LongPart(std::size_t offset) const { return From(LongAt(offset)); }
  // The part at `offset`; empty for the null offset.
  TableView From(std::size_t offset) const;
  // `count` 16-bit values, as far as the table goes.
  std::vector<std::uint16_t> Values(std::size_t offset, std::size_t count) const;
  // The values that follow their own count at `offset`; `excess` is what the count is too high by.
  std::vector<std::uint16_t> Array(std::size_t offset, std::size_t excess = 0) const;

  // Pays for work that reading brings about.
  void Spend(std::size_t steps) const {
    if (work_ != nullptr) work_->Spend(steps);
  }

 private:
  std::span<const std::uint8_t> bytes_;
  LayoutWork* work_ = nullptr;  // null for the empty view, which costs nothing
};

// A lookup's subtables, extensions resolved.
struct Lookup {
  std::uint16_t type = 0;
  std::uint16_t flags = 0;
  std::vector<TableView> subtables;
};

// `table` is the whole GSUB or GPOS, whose extension lookups have the type `extensionType`.
Lookup ReadLookup(const TableView& table, std::uint32_t index, std::uint16_t extensionType);

// Which slots' characters have which glyph: tables speak of glyphs, rules are kept for slots.
class GlyphSlots {
 public:
  // `glyphs` are by slot, 0 for none. `work` pays for the answers and must outlive the slots.
  GlyphSlots(const std::vector<std::uint32_t>& glyphs, LayoutWork& work);

  const SlotSet& All() const { return all_; }
  SlotSet OfGlyph(std::uint32_t glyph) const { return OfGlyphs(glyph, glyph); }
  SlotSet OfGlyphs(std::uint32_t first, std::uint32_t last) const;  // both inclusive

 private:
  struct GlyphSlot {
    std::uint32_t glyph;
    Slot slot;
  };
  std::vector<GlyphSlot> sorted_;
  SlotSet all_;
  LayoutWork& work_;
};

// The glyphs of a coverage table in the order of their coverage indexes, and their slots.
std::vector<std::uint32_t> CoveredGlyphs(const TableView& coverage);
SlotSet CoveredSlots(const TableView& coverage, const GlyphSlots& glyphs);
// The glyphs of one class; class 0 is of those that the table does not name.
SlotSet SlotsOfClass(const TableView& classes, std::uint16_t value, const GlyphSlots& glyphs);

}  // namespace pagivo::native
