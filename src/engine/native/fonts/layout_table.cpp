#include "engine/native/fonts/layout_table.h"

#include <algorithm>

namespace pagivo::native {
namespace {

// Coverage ranges and class ranges: first glyph, last glyph, value.
constexpr std::size_t kRangeSize = 6;

template <class Wanted>
SlotSet SlotsOfClasses(const TableView& classes, const GlyphSlots& glyphs, Wanted wanted) {
  SlotSet slots;
  if (classes.At(0) == 1) {
    std::uint32_t glyph = classes.At(2);
    for (const std::uint16_t value : classes.Array(4)) {
      if (wanted(value)) slots |= glyphs.OfGlyph(glyph);
      ++glyph;
    }
  } else if (classes.At(0) == 2) {
    const std::size_t end = 4 + classes.At(2) * kRangeSize;
    for (std::size_t range = 4; range < end; range += kRangeSize) {
      if (!wanted(classes.At(range + 4))) continue;
      slots |= glyphs.OfGlyphs(classes.At(range), classes.At(range + 2));
    }
  }
  return slots;
}

}  // namespace

std::uint16_t TableView::At(std::size_t offset) const {
  Spend(1);
  if (bytes_.size() < 2 || offset > bytes_.size() - 2) return 0;
  return static_cast<std::uint16_t>(bytes_[offset] << 8 | bytes_[offset + 1]);
}

std::uint32_t TableView::LongAt(std::size_t offset) const {
  return std::uint32_t{At(offset)} << 16 | At(offset + 2);
}

std::vector<std::uint16_t> TableView::Values(std::size_t offset, std::size_t count) const {
  const std::size_t available = bytes_.size() > offset ? (bytes_.size() - offset) / 2 : 0;
  std::vector<std::uint16_t> values(std::min(count, available));
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = At(offset + 2 * i);
  return values;
}

std::vector<std::uint16_t> TableView::Array(std::size_t offset, std::size_t excess) const {
  const std::size_t stated = At(offset);
  return Values(offset + 2, stated - std::min(stated, excess));
}

TableView TableView::From(std::size_t offset) const {
  return offset == 0 || offset >= bytes_.size() ? TableView()
                                                : TableView(bytes_.subspan(offset), *work_);
}

Lookup ReadLookup(const TableView& table, std::uint32_t index, std::uint16_t extensionType) {
  constexpr std::size_t kLookupList = 8;
  const TableView source = table.Part(kLookupList).Part(2 + 2 * std::size_t{index});
  Lookup lookup{source.At(0), source.At(2), {}};
  for (const std::uint16_t offset : source.Array(4)) {
    lookup.subtables.push_back(source.From(offset));
  }
  if (lookup.type != extensionType) return lookup;
  for (TableView& subtable : lookup.subtables) {
    lookup.type = subtable.At(2);
    subtable = subtable.LongPart(4);
  }
  return lookup;
}

GlyphSlots::GlyphSlots(const std::vector<std::uint32_t>& glyphs, LayoutWork& work) : work_(work) {
  for (Slot slot = 0; slot < glyphs.size(); ++slot) {
    if (glyphs[slot] == 0) continue;
    sorted_.push_back({glyphs[slot], slot});
    all_.set(slot);
  }
  std::ranges::sort(sorted_, {}, &GlyphSlot::glyph);
}

SlotSet GlyphSlots::OfGlyphs(std::uint32_t first, std::uint32_t last) const {
  SlotSet slots;
  auto entry = std::ranges::lower_bound(sorted_, first, {}, &GlyphSlot::glyph);
  for (; entry != sorted_.end() && entry->glyph <= last; ++entry) {
    work_.Spend(1);
    slots.set(entry->slot);
  }
  return slots;
}

std::vector<std::uint32_t> CoveredGlyphs(const TableView& coverage) {
  std::vector<std::uint32_t> covered;
  if (coverage.At(0) == 1) {
    const std::vector<std::uint16_t> glyphs = coverage.Array(2);
    covered.assign(glyphs.begin(), glyphs.end());
  } else if (coverage.At(0) == 2) {
    const std::size_t end = 4 + coverage.At(2) * kRangeSize;
    for (std::size_t range = 4; range < end; range += kRangeSize) {
      const std::uint32_t last = coverage.At(range + 2);
      if (last >= coverage.At(range)) coverage.Spend(last - coverage.At(range));
      for (std::uint32_t glyph = coverage.At(range); glyph != 0 && glyph <= last; ++glyph) {
        covered.push_back(glyph);
      }
    }
  }
  return covered;
}

SlotSet CoveredSlots(const TableView& coverage, const GlyphSlots& glyphs) {
  SlotSet slots;
  if (coverage.At(0) == 1) {
    for (const std::uint16_t glyph : coverage.Array(2)) slots |= glyphs.OfGlyph(glyph);
  } else if (coverage.At(0) == 2) {
    const std::size_t end = 4 + coverage.At(2) * kRangeSize;
    for (std::size_t range = 4; range < end; range += kRangeSize) {
      slots |= glyphs.OfGlyphs(coverage.At(range), coverage.At(range + 2));
    }
  }
  return slots;
}

SlotSet SlotsOfClass(const TableView& classes, std::uint16_t value, const GlyphSlots& glyphs) {
  const auto isNamed = [](std::uint16_t named) { return named != 0; };
  if (value == 0) return glyphs.All() & ~SlotsOfClasses(classes, glyphs, isNamed);
  return SlotsOfClasses(classes, glyphs, [value](std::uint16_t named) { return named == value; });
}

}  // namespace pagivo::native
