#include "engine/native/fonts/layout_rules.h"

#include <hb-aat.h>
#include <hb-ot.h>

#include <algorithm>
#include <functional>
#include <span>

#include "engine/native/fonts/layout_table.h"
#include "engine/native/fonts/shaper.h"

namespace pagivo::native {
namespace {

// --- Contextual rules

enum class ContextKind {
  Plain,    // GSUB 5, GPOS 7
  Chained,  // GSUB 6, GPOS 8
  Reverse,  // GSUB 8
};

// A rule as the characters that it wants side by side, in text order, backtrack and lookahead
// included.
using ContextRule = std::span<const SlotSet>;

// What the 16-bit values of a rule stand for: a glyph, a class or a coverage table.
using Meaning = std::function<SlotSet(std::uint16_t)>;
using Visitor = std::function<void(ContextRule)>;

// Puts a rule together in text order, as long as simple text can match it at all.
class RuleBuilder {
 public:
  // The backtrack sequence, which is stored from the input backwards.
  void PutFirst(const std::vector<std::uint16_t>& values, const Meaning& meaning) {
    PutAfter(values, meaning);
    std::reverse(positions_.begin(), positions_.end());
  }

  void PutAfter(const SlotSet& slots) {
    canMatch_ = canMatch_ && slots.any();
    if (canMatch_) positions_.push_back(slots);
  }

  void PutAfter(const std::vector<std::uint16_t>& values, const Meaning& meaning) {
    for (std::size_t i = 0; canMatch_ && i < values.size(); ++i) PutAfter(meaning(values[i]));
  }

  void Visit(const Visitor& visit) const {
    if (canMatch_) visit(positions_);
  }

 private:
  bool canMatch_ = true;
  std::vector<SlotSet> positions_;
};

struct Meanings {
  Meaning backtrack;
  Meaning input;
  Meaning lookahead;
};

std::size_t ArrayEnd(const TableView& rule, std::size_t offset, std::size_t excess = 0) {
  const std::size_t stated = rule.At(offset);
  return offset + 2 + 2 * (stated - std::min(stated, excess));
}

// A rule of a set; its first input glyph is told by the set.
void VisitPlainRule(const TableView& rule, const SlotSet& first, const Meanings& meanings,
                    const Visitor& visit) {
  const std::size_t count = rule.At(0);
  RuleBuilder builder;
  builder.PutAfter(first);
  builder.PutAfter(rule.Values(4, count - std::min<std::size_t>(count, 1)), meanings.input);
  builder.Visit(visit);
}

void VisitChainedRule(const TableView& rule, const SlotSet& first, const Meanings& meanings,
                      const Visitor& visit) {
  const std::size_t input = ArrayEnd(rule, 0);
  const std::size_t lookahead = ArrayEnd(rule, input, 1);
  RuleBuilder builder;
  builder.PutFirst(rule.Array(0), meanings.backtrack);
  builder.PutAfter(first);
  builder.PutAfter(rule.Array(input, 1), meanings.input);
  builder.PutAfter(rule.Array(lookahead), meanings.lookahead);
  builder.Visit(visit);
}

void VisitRuleSet(const TableView& set, ContextKind kind, const SlotSet& first,
                  const Meanings& meanings, const Visitor& visit) {
  if (first.none()) return;
  for (const std::uint16_t offset : set.Array(0)) {
    const TableView rule = set.From(offset);
    if (kind == ContextKind::Plain) {
      VisitPlainRule(rule, first, meanings, visit);
    } else {
      VisitChainedRule(rule, first, meanings, visit);
    }
  }
}

// Format 1: one rule set for each covered glyph, and rules of glyphs.
void VisitGlyphRules(const TableView& subtable, ContextKind kind, const GlyphSlots& glyphs,
                     const Visitor& visit) {
  const Meaning glyph = [&glyphs](std::uint16_t value) { return glyphs.OfGlyph(value); };
  const std::vector<std::uint32_t> covered = CoveredGlyphs(subtable.Part(2));
  const std::vector<std::uint16_t> sets = subtable.Array(4);
  for (std::size_t i = 0; i < std::min(sets.size(), covered.size()); ++i) {
    VisitRuleSet(subtable.From(sets[i]), kind, glyphs.OfGlyph(covered[i]), {glyph, glyph, glyph},
                 visit);
  }
}

Meaning ClassesOf(const TableView& classes, const GlyphSlots& glyphs) {
  return [classes, &glyphs](std::uint16_t value) { return SlotsOfClass(classes, value, glyphs); };
}

// Format 2: one rule set for each class of the first glyph, and rules of classes.
void VisitClassRules(const TableView& subtable, ContextKind kind, const GlyphSlots& glyphs,
                     const Visitor& visit) {
  const bool isPlain = kind == ContextKind::Plain;
  const SlotSet covered = CoveredSlots(subtable.Part(2), glyphs);
  const Meaning input = ClassesOf(subtable.Part(isPlain ? 4 : 6), glyphs);
  const Meanings meanings = isPlain ? Meanings{input, input, input}
                                    : Meanings{ClassesOf(subtable.Part(4), glyphs), input,
                                               ClassesOf(subtable.Part(8), glyphs)};
  const std::vector<std::uint16_t> sets = subtable.Array(isPlain ? 6 : 10);
  for (std::size_t i = 0; i < sets.size(); ++i) {
    const SlotSet first = covered & input(static_cast<std::uint16_t>(i));
    VisitRuleSet(subtable.From(sets[i]), kind, first, meanings, visit);
  }
}

Meaning CoveragesOf(const TableView& subtable, const GlyphSlots& glyphs) {
  return [subtable, &glyphs](std::uint16_t offset) {
    return CoveredSlots(subtable.From(offset), glyphs);
  };
}

// Format 3: a single rule of coverage tables.
void VisitCoverageRule(const TableView& subtable, ContextKind kind, const GlyphSlots& glyphs,
                       const Visitor& visit) {
  const Meaning coverage = CoveragesOf(subtable, glyphs);
  RuleBuilder builder;
  if (kind == ContextKind::Plain) {
    builder.PutAfter(subtable.Values(6, subtable.At(2)), coverage);
  } else {
    const std::size_t input = ArrayEnd(subtable, 2);
    builder.PutFirst(subtable.Array(2), coverage);
    builder.PutAfter(subtable.Array(input), coverage);
    builder.PutAfter(subtable.Array(ArrayEnd(subtable, input)), coverage);
  }
  builder.Visit(visit);
}

// One rule, too, whose single input glyph stands first in the subtable.
void VisitReverseRule(const TableView& subtable, const GlyphSlots& glyphs, const Visitor& visit) {
  const Meaning coverage = CoveragesOf(subtable, glyphs);
  RuleBuilder builder;
  builder.PutFirst(subtable.Array(4), coverage);
  builder.PutAfter(coverage(subtable.At(2)));
  builder.PutAfter(subtable.Array(ArrayEnd(subtable, 4)), coverage);
  builder.Visit(visit);
}

// Calls `visit` for each rule of the subtable that some simple text can match.
void VisitContextRules(const TableView& subtable, ContextKind kind, const GlyphSlots& glyphs,
                       const Visitor& visit) {
  if (kind == ContextKind::Reverse) return VisitReverseRule(subtable, glyphs, visit);
  switch (subtable.At(0)) {
    case 1:
      return VisitGlyphRules(subtable, kind, glyphs, visit);
    case 2:
      return VisitClassRules(subtable, kind, glyphs, visit);
    case 3:
      return VisitCoverageRule(subtable, kind, glyphs, visit);
    default:
      return;  // HarfBuzz leaves out formats that it does not know, too
  }
}

// --- All rules of a face

constexpr std::uint16_t kIgnoreBaseGlyphs = 0x0002;

// The bytes of one table, kept while they are read.
class FontTable {
 public:
  FontTable(const Face& face, hb_tag_t tag)
      : blob_(hb_face_reference_table(face.HarfBuzz(), tag)) {}
  ~FontTable() { hb_blob_destroy(blob_); }
  FontTable(const FontTable&) = delete;
  FontTable& operator=(const FontTable&) = delete;

  TableView View(LayoutWork& work) const {
    unsigned int length = 0;
    const char* bytes = hb_blob_get_data(blob_, &length);
    return {{reinterpret_cast<const std::uint8_t*>(bytes), length}, work};
  }

 private:
  hb_blob_t* blob_;
};

std::vector<std::uint32_t> GlyphsOfSlots(const Face& face) {
  std::vector<std::uint32_t> glyphs(kSlotCount);
  for (Slot slot = 0; slot < kSlotCount; ++slot) glyphs[slot] = face.GlyphOf(CodePointOf(slot));
  return glyphs;
}

// Tables of Apple's kind are state machines, whose reach nothing tells.
bool HasStateMachines(const Face& face, LayoutWork& work) {
  if (hb_aat_layout_has_substitution(face.HarfBuzz()) ||
      hb_aat_layout_has_positioning(face.HarfBuzz()) ||
      hb_aat_layout_has_tracking(face.HarfBuzz())) {
    return true;
  }
  const FontTable table(face, HB_TAG('k', 'e', 'r', 'n'));
  const TableView kerning = table.View(work);
  const bool isPlain = kerning.At(0) == 0;  // Apple's header begins with version 1
  std::size_t subtable = 4;
  for (std::size_t i = 0; isPlain && i < kerning.At(2); ++i) {
    constexpr std::size_t kFormatOfCoverage = 4;
    if (kerning.At(subtable + kFormatOfCoverage) >> 8 != 0) return true;
    subtable += kerning.At(subtable + 2);
  }
  return !isPlain;
}

// Gathers the forbidden pairs of neighbours.
class RuleCollector {
 public:
  RuleCollector(const Face& face, LayoutWork& work)
      : face_(face), work_(work), glyphs_(GlyphsOfSlots(face), work) {}

  void Collect() {
    CollectTable(HB_TAG('G', 'S', 'U', 'B'), 7, &RuleCollector::CollectSubstitution);
    CollectTable(HB_TAG('G', 'P', 'O', 'S'), 9, &RuleCollector::CollectPositioning);
  }

  bool SkipsLetters() const noexcept { return skipsLetters_; }
  std::vector<SlotSet> TakeForbidden() { return std::move(forbidden_); }

 private:
  using SubtableCollector = void (RuleCollector::*)(std::uint16_t type, const TableView& subtable);

  void CollectTable(hb_tag_t tag, std::uint16_t extensionType, SubtableCollector collect) {
    const FontTable table(face_, tag);
    for (const std::uint32_t index : LatinLookups(face_, tag)) {
      const Lookup lookup = ReadLookup(table.View(work_), index, extensionType);
      skipsLetters_ = skipsLetters_ || (lookup.flags & kIgnoreBaseGlyphs) != 0;
      for (const TableView& subtable : lookup.subtables) {
        (this->*collect)(lookup.type, subtable);
      }
    }
  }

  void CollectSubstitution(std::uint16_t type, const TableView& subtable) {
    switch (type) {
      case 4:
        return CollectLigatures(subtable);
      case 5:
        return CollectContexts(subtable, ContextKind::Plain);
      case 6:
        return CollectContexts(subtable, ContextKind::Chained);
      case 8:
        return CollectContexts(subtable, ContextKind::Reverse);
      default:
        return;  // of single glyphs
    }
  }

  void CollectPositioning(std::uint16_t type, const TableView& subtable) {
    switch (type) {
      case 2:
        return CollectKerning(subtable);
      case 3:
      case 4:
      case 5:
      case 6:
        return ForbidAround(CoveredSlots(subtable.Part(2), glyphs_));
      case 7:
        return CollectContexts(subtable, ContextKind::Plain);
      case 8:
        return CollectContexts(subtable, ContextKind::Chained);
      default:
        return;  // of single glyphs
    }
  }

  void CollectLigatures(const TableView& subtable) {
    const std::vector<std::uint32_t> covered = CoveredGlyphs(subtable.Part(2));
    const std::vector<std::uint16_t> sets = subtable.Array(4);
    for (std::size_t i = 0; i < std::min(sets.size(), covered.size()); ++i) {
      const SlotSet first = glyphs_.OfGlyph(covered[i]);
      if (first.any()) CollectLigatures(first, subtable.From(sets[i]));
    }
  }

  // Ligatures of two show in the pair; a longer one needs its first two.
  void CollectLigatures(const SlotSet& first, const TableView& set) {
    for (const std::uint16_t offset : set.Array(0)) {
      const std::vector<std::uint16_t> rest = set.From(offset).Array(2, 1);
      const bool isSimpleText = std::all_of(rest.begin(), rest.end(), [this](std::uint16_t glyph) {
        return glyphs_.OfGlyph(glyph).any();
      });
      if (rest.size() >= 2 && isSimpleText) Forbid(first, glyphs_.OfGlyph(rest[0]));
    }
  }

  // A rule of two is forbidden as well: having matched, even to no effect, it keeps the next pair
  // from being looked at. Of a longer rule the rarest two neighbours do.
  void CollectContexts(const TableView& subtable, ContextKind kind) {
    VisitContextRules(subtable, kind, glyphs_, [this](ContextRule rule) {
      std::size_t rarest = 1;
      const auto pairsAt = [rule](std::size_t i) { return rule[i - 1].count() * rule[i].count(); };
      for (std::size_t i = 2; i < rule.size(); ++i) {
        if (pairsAt(i) < pairsAt(rarest)) rarest = i;
      }
      if (rule.size() >= 2) Forbid(rule[rarest - 1], rule[rarest]);
    });
  }

  // Kerning that moves the second glyph, too, keeps the pair that begins with it from being looked
  // at.
  void CollectKerning(const TableView& subtable) {
    const bool movesSecond = subtable.At(6) != 0;
    if (movesSecond) Forbid(CoveredSlots(subtable.Part(2), glyphs_), glyphs_.All());
  }

  // Glyphs that are hung onto others, or others onto them.
  void ForbidAround(const SlotSet& slots) {
    Forbid(slots, glyphs_.All());
    Forbid(glyphs_.All(), slots);
  }

  void Forbid(const SlotSet& first, const SlotSet& second) {
    work_.Spend(kSlotCount);
    for (Slot slot = 0; slot < kSlotCount; ++slot) {
      if (first.test(slot)) forbidden_[slot] |= second;
    }
  }

  const Face& face_;
  LayoutWork& work_;
  GlyphSlots glyphs_;
  bool skipsLetters_ = false;
  std::vector<SlotSet> forbidden_ = std::vector<SlotSet>(kSlotCount);
};

}  // namespace

LayoutRules::LayoutRules(const Face& face) {
  LayoutWork work;
  try {
    RuleCollector collector(face, work);
    collector.Collect();
    // A lookup that skips letters looks as far as it likes.
    canBeDecided_ = !collector.SkipsLetters() && !HasStateMachines(face, work);
    forbidden_ = collector.TakeForbidden();
  } catch (const TooMuchLayoutWork&) {
    canBeDecided_ = false;
  }
  work_ = work.Spent();
}

}  // namespace pagivo::native
