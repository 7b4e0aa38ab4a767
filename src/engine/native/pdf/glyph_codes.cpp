#include "engine/native/pdf/glyph_codes.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {
namespace {

// Strings are written without escapes, so no code holds a byte that needs one.
constexpr bool NeedsEscape(unsigned byte) {
  return byte == '(' || byte == ')' || byte == '\\' || byte == '\r' || byte == '\n';
}

constexpr std::size_t kByteCount = 256 - 5;

// The bytes that codes are made of. Those of printable ASCII come last, for glyphs of ASCII
// characters take their own.
constexpr std::array<std::uint8_t, kByteCount> kBytes = [] {
  std::array<std::uint8_t, kByteCount> bytes{};
  std::size_t count = 0;
  for (unsigned i = 0; i < 256; ++i) {
    const unsigned byte = (i + 0x7F) % 256;
    if (!NeedsEscape(byte)) bytes[count++] = static_cast<std::uint8_t>(byte);
  }
  return bytes;
}();

bool IsOwnCode(std::string_view text) {
  return text.size() == 1 && text[0] >= ' ' && text[0] <= '~' &&
         !NeedsEscape(static_cast<unsigned char>(text[0]));
}

bool HasTable(const Face& face, hb_tag_t tag) {
  hb_blob_t* table = hb_face_reference_table(face.HarfBuzz(), tag);
  const bool found = hb_blob_get_length(table) > 0;
  hb_blob_destroy(table);
  return found;
}

}  // namespace

std::int16_t AdvanceInThousandths(const Face& face, std::uint32_t glyph) {
  const double advance = hb_font_get_glyph_h_advance(face.HarfBuzzFont(), glyph);
  const double thousandths = std::round(advance * 1000 / face.UnitsPerEm());
  return static_cast<std::int16_t>(std::clamp(thousandths, -32768.0, 32767.0));
}

GlyphCodes::GlyphCodes(const Face& face, std::uint16_t& fontCount)
    : face_(face.shared_from_this()),
      fontCount_(fontCount),
      trueType_(HasTable(face, HB_TAG('g', 'l', 'y', 'f'))) {}

const GlyphCode& GlyphCodes::FindOrAdd(std::uint32_t glyph, std::string_view text,
                                       std::uint32_t key) {
  if (glyph >= entries_.size()) entries_.resize(glyph + 1);
  if (Entry& entry = entries_[glyph]; key != 0 && entry.key == 0) {
    entry.key = key;
    entry.code = Add(glyph, text);
    return entry.code;
  }
  std::string longKey = std::to_string(glyph);
  longKey.append(1, ' ').append(text);
  const auto [place, added] = others_.try_emplace(std::move(longKey));
  if (added) place->second = Add(glyph, text);
  return place->second;
}

GlyphCode GlyphCodes::Add(std::uint32_t glyph, std::string_view text) {
  std::uint8_t& textCount = entries_[glyph].textCount;
  Series& series = series_[trueType_ ? 0 : textCount];
  if (textCount + 1U < kMostSeries) ++textCount;
  if (IsFull(series)) OpenFont(series);
  CodedFont& font = fonts_[*series.font];
  const std::uint16_t code = NextCode(series, text);
  font.uses.push_back({code, glyph, std::string(text)});
  return {font.number, code, font.codeBytes, AdvanceInThousandths(*face_, glyph)};
}

bool GlyphCodes::IsFull(const Series& series) const {
  if (!series.font) return true;
  const CodedFont& font = fonts_[*series.font];
  return font.uses.size() == (font.codeBytes == 1 ? kByteCount : kByteCount * kByteCount);
}

void GlyphCodes::OpenFont(Series& series) {
  const std::uint8_t codeBytes = series.font || FT_IS_CID_KEYED(face_->FreeType()) ? 2 : 1;
  series.font = fonts_.size();
  series.nextIndex = 0;
  fonts_.push_back({fontCount_++, codeBytes, {}});
}

std::uint16_t GlyphCodes::NextCode(Series& series, std::string_view text) const {
  if (fonts_[*series.font].codeBytes == 2) {
    const std::size_t index = series.nextIndex++;
    return static_cast<std::uint16_t>(kBytes[index / kByteCount] << 8 | kBytes[index % kByteCount]);
  }
  std::uint8_t code = IsOwnCode(text) ? static_cast<std::uint8_t>(text[0]) : kBytes[0];
  while (series.taken[code]) code = kBytes[series.nextIndex++];
  series.taken.set(code);
  return code;
}

}  // namespace pagivo::native
