// The contextual rules of an OpenType layout table.
#pragma once

#include <functional>
#include <span>

#include "engine/native/fonts/layout_table.h"
#include "engine/native/fonts/simple_text.h"

namespace pagivo::native {

enum class ContextKind {
  Plain,    // GSUB 5, GPOS 7
  Chained,  // GSUB 6, GPOS 8
  Reverse,  // GSUB 8
};

// A rule as the characters that it wants side by side, in text order, backtrack and lookahead
// included.
using ContextRule = std::span<const SlotSet>;

// Calls `visit` for each rule of the subtable that some simple text can match.
void VisitContextRules(const TableView& subtable, ContextKind kind, const GlyphSlots& glyphs,
                       const std::function<void(ContextRule)>& visit);

}  // namespace pagivo::native
