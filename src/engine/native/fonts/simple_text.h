// The characters whose glyphs and advances are kept in tables.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pagivo::native {

// Each such character has a number. The characters are Latin up to the extended letters, dashes and
// quotes, and the euro: all of the Latin script or of none, and all written from left to right.
using Slot = std::uint32_t;

inline constexpr char32_t kLatinEnd = 0x250;
inline constexpr char32_t kPunctuationBegin = 0x2010;
inline constexpr char32_t kPunctuationEnd = 0x2027;
inline constexpr char32_t kEuro = 0x20AC;
inline constexpr Slot kPunctuationSlot = kLatinEnd;
inline constexpr Slot kEuroSlot = kPunctuationSlot + (kPunctuationEnd - kPunctuationBegin);
inline constexpr Slot kSlotCount = kEuroSlot + 1;
inline constexpr Slot kNoSlot = kSlotCount;

using SlotSet = std::bitset<kSlotCount>;

constexpr char32_t CodePointOf(Slot slot) {
  if (slot == kEuroSlot) return kEuro;
  return slot < kPunctuationSlot ? slot : kPunctuationBegin + (slot - kPunctuationSlot);
}

constexpr Slot SlotOf(char32_t codePoint) {
  if (codePoint < kLatinEnd) return codePoint;
  if (codePoint == kEuro) return kEuroSlot;
  const bool isPunctuation = codePoint >= kPunctuationBegin && codePoint < kPunctuationEnd;
  return isPunctuation ? kPunctuationSlot + (codePoint - kPunctuationBegin) : kNoSlot;
}

}  // namespace pagivo::native
