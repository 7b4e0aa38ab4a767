#include "engine/native/pdf/glyph_codes.h"

#include FT_CID_H

#include <algorithm>
#include <cmath>

#include "values/characters.h"

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

// The most mappings that one operator may list.
constexpr std::size_t kMappingsPerBlock = 100;

// A mapping's text may take 512 bytes.
constexpr std::size_t kLongestText = 128;

// What a code without text is mapped to: readers show U+FFFD for one that is not mapped at all.
constexpr char32_t kZeroWidthSpace = 0x200B;

std::string BeginMap(std::string_view name, int type, std::string_view ordering, int codeBytes) {
  std::string map = "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n/CIDSystemInfo";
  AppendObject(map, CharacterCollection(ordering));
  map.append("def\n/CMapName/").append(name).append(" def\n/CMapType ");
  AppendInteger(map, type);
  map += " def\n1 begincodespacerange\n";
  map += codeBytes == 1 ? "<00><FF>" : "<0000><FFFF>";
  map += "\nendcodespacerange\n";
  return map;
}

constexpr std::string_view kEndMap =
    "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";

void AppendCode(std::string& out, std::uint16_t code, int codeBytes) {
  out.push_back('<');
  if (codeBytes == 2) AppendHexByte(out, code >> 8);
  AppendHexByte(out, code & 0xFFU);
  out.push_back('>');
}

// Lists the mappings in blocks, each line made by `appendTarget`.
template <typename AppendTarget>
void AppendBlocks(std::string& map, std::string_view kind, int codeBytes,
                  std::span<const CodeMapping> mappings, AppendTarget appendTarget) {
  while (!mappings.empty()) {
    const std::size_t count = std::min(mappings.size(), kMappingsPerBlock);
    AppendInteger(map, static_cast<std::int64_t>(count));
    map.append(" begin").append(kind).append("\n");
    for (const CodeMapping& mapping : mappings.first(count)) {
      AppendCode(map, mapping.code, codeBytes);
      appendTarget(mapping);
      map.push_back('\n');
    }
    map.append("end").append(kind).append("\n");
    mappings = mappings.subspan(count);
  }
}

bool HasTable(const Face& face, hb_tag_t tag) {
  hb_blob_t* table = hb_face_reference_table(face.HarfBuzz(), tag);
  const bool found = hb_blob_get_length(table) > 0;
  hb_blob_destroy(table);
  return found;
}

// Whether the program numbers its characters itself.
bool IsCidKeyed(const Face& face) {
  FT_Bool keyed = 0;
  return FT_Get_CID_Is_Internally_CID_Keyed(face.FreeType(), &keyed) == 0 && keyed != 0;
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

const GlyphCode& GlyphCodes::AddSimple(Slot slot) {
  const char32_t codePoint = CodePointOf(slot);
  std::string text;
  AppendUtf8(text, codePoint);
  return simple_[slot] = CodeOf(face_->GlyphOf(codePoint), text);
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
  const std::uint8_t codeBytes = series.font || IsCidKeyed(*face_) ? 2 : 1;
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

PdfDictionary CharacterCollection(std::string_view ordering) {
  PdfDictionary dictionary;
  dictionary.Put("Registry", PdfText{"Adobe"}).Put("Ordering", PdfText{ordering});
  dictionary.Put("Supplement", 0);
  return dictionary;
}

std::string_view EncodingName(int codeBytes) {
  return codeBytes == 1 ? "Pagivo-OneByte" : "Pagivo-TwoByte";
}

std::string MakeEncoding(int codeBytes, std::span<const CodeMapping> mappings) {
  std::string map = BeginMap(EncodingName(codeBytes), 1, "Identity", codeBytes);
  AppendBlocks(map, "cidchar", codeBytes, mappings, [&map](const CodeMapping& mapping) {
    map.push_back(' ');
    AppendInteger(map, mapping.character);
  });
  return map.append(kEndMap);
}

std::string MakeToUnicode(int codeBytes, std::span<const CodeMapping> mappings) {
  std::string map = BeginMap("Adobe-Identity-UCS", 2, "UCS", codeBytes);
  AppendBlocks(map, "bfchar", codeBytes, mappings, [&map](const CodeMapping& mapping) {
    std::u32string text = DecodeText(mapping.text).substr(0, kLongestText);
    if (text.empty()) text.push_back(kZeroWidthSpace);
    map.push_back('<');
    AppendUtf16Hex(map, text);
    map.push_back('>');
  });
  return map.append(kEndMap);
}

}  // namespace pagivo::native
