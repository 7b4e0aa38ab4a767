#include "engine/native/pdf/font_embedder.h"

#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include "engine/native/pdf/character_maps.h"
#include "engine/native/pdf/font_program.h"
#include "engine/native/pdf/number_format.h"
#include "engine/native/pdf/text_string.h"

namespace pagivo::native {
namespace {

// Flags of a font descriptor.
constexpr int kFixedPitch = 1;
constexpr int kSymbolic = 1 << 2;  // no character set of PDF's own
constexpr int kItalic = 1 << 6;

// Readers use it for fonts that are not embedded only, but it has to be there.
constexpr int kStemWidth = 80;
constexpr int kBoldStemWidth = 140;

std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
  return hash;
}

// Six letters and a plus sign mark a subset; equal subsets are marked alike.
std::string SubsetTag(const FontProgram& program) {
  if (!program.subset) return {};
  std::string tag;
  std::uint64_t hash = HashOf(program.bytes);
  for (int i = 0; i < 6; ++i, hash /= 26) tag.push_back(static_cast<char>('A' + hash % 26));
  return tag + '+';
}

std::vector<std::uint32_t> GlyphsOf(std::span<const CodedFont> fonts) {
  std::vector<std::uint32_t> glyphs;
  for (const CodedFont& font : fonts) {
    for (const CodeUse& use : font.uses) glyphs.push_back(use.glyph);
  }
  std::ranges::sort(glyphs);
  glyphs.erase(std::unique(glyphs.begin(), glyphs.end()), glyphs.end());
  return glyphs;
}

// Writes fonts of one face that share a program.
class FontWriter {
 public:
  FontWriter(PdfFile& file, const Face& face, std::span<const CodedFont> fonts)
      : file_(file),
        face_(face),
        fonts_(fonts),
        glyphs_(GlyphsOf(fonts)),
        program_(MakeFontProgram(face_, glyphs_)) {
    AppendName(baseName_, SubsetTag(program_) + face_.PostScriptName());
  }

  void Write(std::string& resources) {
    descriptor_ = WriteDescriptor();
    for (const CodedFont& font : fonts_) {
      AppendFontName(resources.append("/"), font.number);
      resources.push_back(' ');
      AppendReference(resources, WriteFont(font));
    }
  }

 private:
  bool IsTrueType() const { return program_.format == OutlineFormat::TrueType; }
  ObjectNumber WriteStream(std::string_view entries, std::string_view data);
  ObjectNumber WriteObject(std::string_view value);
  ObjectNumber WriteProgram();
  ObjectNumber WriteDescriptor();
  ObjectNumber WriteDescendant(const CodedFont& font);
  ObjectNumber WriteGlyphMap(const CodedFont& font);
  ObjectNumber WriteFont(const CodedFont& font);
  ObjectNumber WriteEncoding(int codeBytes, std::span<const CodeMapping> mappings);
  std::vector<CodeMapping> MappingsOf(const CodedFont& font) const;
  void AppendWidths(std::string& out, const CodedFont& font) const;
  void AppendThousandths(std::string& out, std::string_view key, double units) const;

  // Of the glyph in the program.
  std::uint32_t ProgramCharacter(std::uint32_t glyph) const {
    const auto place = std::ranges::lower_bound(glyphs_, glyph);
    return program_.characters[static_cast<std::size_t>(place - glyphs_.begin())];
  }

  // Of the code in the font: with TrueType outlines a map of the font leads to the program.
  std::uint32_t CharacterOf(const CodeUse& use) const {
    return IsTrueType() ? use.code : ProgramCharacter(use.glyph);
  }

  PdfFile& file_;
  const Face& face_;
  std::span<const CodedFont> fonts_;
  std::vector<std::uint32_t> glyphs_;  // rising
  FontProgram program_;
  std::string baseName_;
  ObjectNumber descriptor_ = 0;
};

ObjectNumber FontWriter::WriteStream(std::string_view entries, std::string_view data) {
  const ObjectNumber number = file_.Reserve();
  file_.WriteStream(number, entries, data);
  return number;
}

ObjectNumber FontWriter::WriteObject(std::string_view value) {
  const ObjectNumber number = file_.Reserve();
  file_.WriteObject(number, value);
  return number;
}

ObjectNumber FontWriter::WriteProgram() {
  std::string entries = "/Subtype/CIDFontType0C";
  if (IsTrueType()) {
    entries = "/Length1 ";
    AppendInteger(entries, static_cast<std::int64_t>(program_.bytes.size()));
  }
  return WriteStream(entries, program_.bytes);
}

void FontWriter::AppendThousandths(std::string& out, std::string_view key, double units) const {
  out += key;
  AppendInteger(out, std::lround(units * 1000 / face_.UnitsPerEm()));
}

ObjectNumber FontWriter::WriteDescriptor() {
  FT_Face face = face_.FreeType();
  const auto* header = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  const auto* postScript = static_cast<TT_Postscript*>(FT_Get_Sfnt_Table(face, FT_SFNT_POST));
  const bool hasCapHeight = header != nullptr && header->version >= 2 && header->version != 0xFFFF;
  const bool bold = (face->style_flags & FT_STYLE_FLAG_BOLD) != 0;
  const bool italic = (face->style_flags & FT_STYLE_FLAG_ITALIC) != 0;

  std::string value = "<</Type/FontDescriptor/FontName" + baseName_ + "/Flags ";
  AppendInteger(value,
                kSymbolic | (FT_IS_FIXED_WIDTH(face) ? kFixedPitch : 0) | (italic ? kItalic : 0));
  AppendThousandths(value, "/FontBBox[", static_cast<double>(face->bbox.xMin));
  AppendThousandths(value, " ", static_cast<double>(face->bbox.yMin));
  AppendThousandths(value, " ", static_cast<double>(face->bbox.xMax));
  AppendThousandths(value, " ", static_cast<double>(face->bbox.yMax));
  value += "]/ItalicAngle ";
  AppendDecimal(value, postScript == nullptr ? 0 : postScript->italicAngle * 100 / 65536, 2);
  AppendThousandths(value, "/Ascent ", face->ascender);
  AppendThousandths(value, "/Descent ", face->descender);
  AppendThousandths(value, "/CapHeight ", hasCapHeight ? header->sCapHeight : face->ascender);
  value += "/StemV ";
  AppendInteger(value, bold ? kBoldStemWidth : kStemWidth);
  value += IsTrueType() ? "/FontFile2 " : "/FontFile3 ";
  AppendReference(value, WriteProgram());
  return WriteObject(value += ">>");
}

// Neighbouring characters share one list.
void FontWriter::AppendWidths(std::string& out, const CodedFont& font) const {
  std::map<std::uint32_t, std::int16_t> widths;
  for (const CodeUse& use : font.uses) {
    widths.emplace(CharacterOf(use), AdvanceInThousandths(face_, use.glyph));
  }
  out += "/W[";
  std::int64_t previous = -2;
  for (const auto& [character, width] : widths) {
    if (character != previous + 1) {
      if (previous >= 0) out.push_back(']');
      AppendInteger(out, character);
      out.push_back('[');
    } else {
      out.push_back(' ');
    }
    AppendInteger(out, width);
    previous = character;
  }
  out += "]]";
}

// The program's glyph of every character number, two bytes each.
ObjectNumber FontWriter::WriteGlyphMap(const CodedFont& font) {
  std::string map;
  for (const CodeUse& use : font.uses) {
    const std::size_t position = std::size_t{use.code} * 2;
    const std::uint32_t glyph = ProgramCharacter(use.glyph);
    if (map.size() < position + 2) map.resize(position + 2);
    map[position] = static_cast<char>(glyph >> 8);
    map[position + 1] = static_cast<char>(glyph);
  }
  return WriteStream({}, map);
}

ObjectNumber FontWriter::WriteDescendant(const CodedFont& font) {
  std::string value = "<</Type/Font/BaseFont" + baseName_ + "/CIDSystemInfo";
  value.append(kCharacterCollection).append("/FontDescriptor ");
  AppendReference(value, descriptor_);
  AppendWidths(value, font);
  if (IsTrueType()) {
    AppendReference(value += "/Subtype/CIDFontType2/CIDToGIDMap ", WriteGlyphMap(font));
  } else {
    value += "/Subtype/CIDFontType0";
  }
  return WriteObject(value += ">>");
}

std::vector<CodeMapping> FontWriter::MappingsOf(const CodedFont& font) const {
  std::vector<CodeMapping> mappings;
  for (const CodeUse& use : font.uses) mappings.push_back({use.code, CharacterOf(use), use.text});
  std::ranges::sort(mappings, {}, &CodeMapping::code);
  return mappings;
}

ObjectNumber FontWriter::WriteEncoding(int codeBytes, std::span<const CodeMapping> mappings) {
  std::string entries = "/Type/CMap/CMapName/";
  entries.append(EncodingName(codeBytes)).append("/CIDSystemInfo").append(kCharacterCollection);
  return WriteStream(entries, MakeEncoding(codeBytes, mappings));
}

ObjectNumber FontWriter::WriteFont(const CodedFont& font) {
  const std::vector<CodeMapping> mappings = MappingsOf(font);
  std::string value = "<</Type/Font/Subtype/Type0/BaseFont" + baseName_ + "/Encoding ";
  AppendReference(value, WriteEncoding(font.codeBytes, mappings));
  AppendReference(value += "/DescendantFonts[", WriteDescendant(font));
  AppendReference(value += "]/ToUnicode ",
                  WriteStream({}, MakeToUnicode(font.codeBytes, mappings)));
  return WriteObject(value += ">>");
}

// One program serves all fonts of a face with TrueType outlines; with CFF outlines each font has
// its own, so that its characters keep small numbers.
void WriteFace(PdfFile& file, const GlyphCodes& codes, std::string& resources) {
  const std::span<const CodedFont> fonts = codes.Fonts();
  const std::size_t together = codes.HasTrueTypeOutlines() ? fonts.size() : 1;
  for (std::size_t i = 0; i < fonts.size(); i += together) {
    FontWriter(file, codes.FaceUsed(), fonts.subspan(i, together)).Write(resources);
  }
}

}  // namespace

void AppendFontName(std::string& out, std::uint16_t number) {
  out.push_back('F');
  AppendInteger(out, number);
}

GlyphCodes& FontEmbedder::CodesOf(const Face& face) {
  GlyphCodes*& codes = byFace_[&face];
  if (codes == nullptr) codes = &faces_.emplace_back(face, fontCount_);
  return *codes;
}

std::string FontEmbedder::WriteFonts(PdfFile& file) const {
  std::string resources;
  for (const GlyphCodes& codes : faces_) WriteFace(file, codes, resources);
  return resources;
}

}  // namespace pagivo::native
