#include "engine/native/fonts/context_rules.h"

#include <algorithm>

namespace pagivo::native {
namespace {

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

}  // namespace

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

}  // namespace pagivo::native
