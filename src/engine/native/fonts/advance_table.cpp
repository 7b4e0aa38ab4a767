#include "engine/native/fonts/advance_table.h"

#include "values/characters.h"

namespace pagivo::native {
namespace {

struct SlotAt {
  Slot slot;
  std::size_t length;
};

inline SlotAt ReadSlot(std::string_view text, std::size_t position) {
  const auto byte = static_cast<unsigned char>(text[position]);
  if (byte < 0x80) return {byte, 1};
  const DecodedCodePoint decoded = DecodeUtf8(text, position);
  return {SlotOf(decoded.codePoint), decoded.length};
}

// Whether HarfBuzz gave a character its own glyph, moved nowhere.
bool IsPlain(const hb_glyph_info_t& info, const hb_glyph_position_t& position, std::uint32_t glyph,
             std::uint32_t index) {
  return info.codepoint == glyph && info.cluster == index && position.x_offset == 0 &&
         position.y_offset == 0 && position.y_advance == 0;
}

}  // namespace

AdvanceTable::AdvanceTable(const Face& face, Shaper& shaper)
    : face_(face), shaper_(shaper), rules_(face) {}

bool AdvanceTable::Shape(std::string_view text, std::vector<ShapedGlyph>& glyphs) {
  glyphs.resize(text.size());
  ShapedGlyph* glyph = glyphs.data();
  const bool simple = ForEachGlyph(text, [&](Slot slot, Advance advance, std::size_t begin,
                                             std::size_t end) {
    *glyph++ = {singles_[slot].glyph,           advance, 0, 0, static_cast<std::uint32_t>(begin),
                static_cast<std::uint32_t>(end)};
  });
  glyphs.resize(static_cast<std::size_t>(glyph - glyphs.data()));
  return simple;
}

std::optional<std::span<const SimpleCharacter>> AdvanceTable::ShapeSimple(std::string_view text) {
  if (characters_.size() < text.size()) characters_.resize(text.size());
  SimpleCharacter* character = characters_.data();
  const bool simple = ForEachGlyph(text, [&](Slot slot, Advance advance, std::size_t, std::size_t) {
    *character++ = {static_cast<std::uint16_t>(slot), advance};
  });
  if (!simple) return std::nullopt;
  return std::span<const SimpleCharacter>(characters_.data(), character);
}

std::optional<std::int64_t> AdvanceTable::Width(std::string_view text) {
  std::int64_t width = 0;
  const bool simple = ForEachGlyph(
      text, [&](Slot, Advance advance, std::size_t, std::size_t) { width += advance; });
  return simple ? std::optional(width) : std::nullopt;
}

// Calls take(slot, advance, begin, end) for each character, `begin` and `end` in bytes. False,
// maybe after some calls, when the text is not simple.
template <class Take>
bool AdvanceTable::ForEachGlyph(std::string_view text, Take take) {
  if (text.empty()) return true;
  std::size_t begin = 0;
  auto [slot, length] = ReadSlot(text, begin);
  for (std::size_t end = length; end < text.size();) {
    const SlotAt next = ReadSlot(text, end);
    const Advance advance = AdvanceBefore(slot, next.slot);
    if (advance == kNotSimple) return false;
    take(slot, advance, begin, end);
    slot = next.slot;
    begin = end;
    end += next.length;
  }
  const Advance advance = SingleOf(slot).advance;
  if (advance == kNotSimple) return false;
  take(slot, advance, begin, text.size());
  return true;
}

inline AdvanceTable::Advance AdvanceTable::AdvanceBefore(Slot slot, Slot next) {
  const Row* const row = rows_[slot].get();
  const Advance known = row != nullptr ? (*row)[next] : kUnknown;
  return known > kNotSimple ? known : LookUpPair(slot, next);
}

AdvanceTable::Advance AdvanceTable::LookUpPair(Slot slot, Slot next) {
  std::unique_ptr<Row>& row = rows_[slot];
  if (!row) {
    row = std::make_unique<Row>();
    row->fill(kUnknown);
  }
  Advance& advance = (*row)[next];
  if (advance == kUnknown) advance = AskPair(slot, next);
  return advance;
}

inline const AdvanceTable::Single& AdvanceTable::SingleOf(Slot slot) {
  Single& single = singles_[slot];
  if (single.advance == kUnknown) [[unlikely]]
    single = AskSingle(slot);
  return single;
}

bool AdvanceTable::FitsAdvance(hb_position_t advance) {
  return advance > kNotSimple && advance <= std::numeric_limits<Advance>::max();
}

// A character whose advance is not the glyph's own is adjusted by some rule and left to HarfBuzz.
AdvanceTable::Single AdvanceTable::AskSingle(Slot slot) {
  if (slot == kNoSlot) return {0, kNotSimple};
  Single single{face_.GlyphOf(CodePointOf(slot)), kNotSimple};
  if (single.glyph == 0 || !rules_.CanBeDecided()) return single;
  const std::uint32_t text[] = {CodePointOf(slot)};
  hb_buffer_t* buffer = shaper_.ShapeLatin(face_, text);
  unsigned int count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, nullptr);
  const hb_position_t own = hb_font_get_glyph_h_advance(face_.HarfBuzzFont(), single.glyph);
  const bool simple = count == 1 && IsPlain(infos[0], positions[0], single.glyph, 0) &&
                      positions[0].x_advance == own && FitsAdvance(own);
  if (simple) single.advance = static_cast<Advance>(own);
  return single;
}

AdvanceTable::Advance AdvanceTable::AskPair(Slot first, Slot second) {
  const Single& one = SingleOf(first);
  const Single& two = SingleOf(second);
  if (one.advance == kNotSimple || two.advance == kNotSimple) return kNotSimple;
  if (rules_.ForbidsPair(first, second)) return kNotSimple;
  const std::uint32_t text[] = {CodePointOf(first), CodePointOf(second)};
  hb_buffer_t* buffer = shaper_.ShapeLatin(face_, text);
  unsigned int count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, nullptr);
  const bool simple = count == 2 && IsPlain(infos[0], positions[0], one.glyph, 0) &&
                      IsPlain(infos[1], positions[1], two.glyph, 1) &&
                      positions[1].x_advance == two.advance && FitsAdvance(positions[0].x_advance);
  return simple ? static_cast<Advance>(positions[0].x_advance) : kNotSimple;
}

}  // namespace pagivo::native
