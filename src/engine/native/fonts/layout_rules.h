// What a face's layout tables do to simple text beyond single glyphs and pairs of them.
#pragma once

#include <vector>

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/simple_text.h"

namespace pagivo::native {

// Read from the face's GSUB and GPOS tables, for the rules that HarfBuzz applies to Latin text.
//
// A text is the sum of its pairs when nothing here forbids it and HarfBuzz turns each character
// into its own glyph in each pair of neighbours: substitutions of one or two glyphs, single
// adjustments and kerning would show in a pair. What would not show is a rule that looks further
// or that keeps a later pair from being looked at. Each such rule needs some two neighbours, and it
// is them that are forbidden.
class LayoutRules {
 public:
  explicit LayoutRules(const Face& face);

  // False when the face's rules cannot be told apart like this, or not within LayoutWork's bound;
  // then no pair is safe.
  bool CanBeDecided() const noexcept { return canBeDecided_; }
  // Whether the two characters side by side must be shaped with the whole line.
  bool ForbidsPair(Slot first, Slot second) const { return forbidden_[first].test(second); }

  // The steps of LayoutWork that reading took.
  std::size_t Work() const noexcept { return work_; }

 private:
  bool canBeDecided_ = true;
  std::size_t work_ = 0;
  std::vector<SlotSet> forbidden_;  // by the first of the two
};

}  // namespace pagivo::native
