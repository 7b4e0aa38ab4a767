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

// Writes the objects of one face.
class FaceWriter {
 public:
  FaceWriter(PdfFile& file, const GlyphCodes& codes)
      : file_(file),
        face_(codes.FaceUsed()),
        codes_(codes),
        glyphs_(GlyphsOf(codes)),
        program_(MakeFontProgram(face_, glyphs_)) {
    AppendName(baseName_, SubsetTag(program_) + face_.PostScriptName());
  }

  void Write(std::string& resources) {
    const ObjectNumber descendant = WriteDescendant();
    for (const CodedFont& font : codes_.Fonts()) {
      AppendFontName(resources.append("/"), font.number);
      resources.push_back(' ');
      AppendReference(resources, WriteFont(font, descendant));
    }
  }

 private:
  static std::vector<std::uint32_t> GlyphsOf(const GlyphCodes& codes);
  ObjectNumber WriteProgram();
  ObjectNumber WriteDescriptor();
  ObjectNumber WriteDescendant();
  ObjectNumber WriteFont(const CodedFont& font, ObjectNumber descendant);
  ObjectNumber WriteEncoding(const CodedFont& font, std::span<const CodeMapping> mappings);
  ObjectNumber WriteToUnicode(const CodedFont& font, std::span<const CodeMapping> mappings);
  std::vector<CodeMapping> MappingsOf(const CodedFont& font) const;
  void AppendWidths(std::string& out) const;
  void AppendThousandths(std::string& out, std::string_view key, double units) const;

  std::uint32_t CharacterOf(std::uint32_t glyph) const {
    const auto place = std::ranges::lower_bound(glyphs_, glyph);
    return program_.characters[static_cast<std::size_t>(place - glyphs_.begin())];
  }

  PdfFile& file_;
  const Face& face_;
  const GlyphCodes& codes_;
  std::vector<std::uint32_t> glyphs_;  // rising
  FontProgram program_;
  std::string baseName_;
};

std::vector<std::uint32_t> FaceWriter::GlyphsOf(const GlyphCodes& codes) {
  std::vector<std::uint32_t> glyphs;
  for (const CodedFont& font : codes.Fonts()) {
    for (const CodeUse& use : font.uses) glyphs.push_back(use.glyph);
  }
  std::ranges::sort(glyphs);
  glyphs.erase(std::unique(glyphs.begin(), glyphs.end()), glyphs.end());
  return glyphs;
}

ObjectNumber FaceWriter::WriteProgram() {
  const ObjectNumber number = file_.Reserve();
  std::string entries = "/Subtype/CIDFontType0C";
  if (program_.format == OutlineFormat::TrueType) {
    entries = "/Length1 ";
    AppendInteger(entries, static_cast<std::int64_t>(program_.bytes.size()));
  }
  file_.WriteStream(number, entries, program_.bytes);
  return number;
}

void FaceWriter::AppendThousandths(std::string& out, std::string_view key, double units) const {
  out += key;
  AppendInteger(out, std::lround(units * 1000 / face_.UnitsPerEm()));
}

ObjectNumber FaceWriter::WriteDescriptor() {
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
  value += program_.format == OutlineFormat::TrueType ? "/FontFile2 " : "/FontFile3 ";
  AppendReference(value, WriteProgram());

  const ObjectNumber number = file_.Reserve();
  file_.WriteObject(number, value.append(">>"));
  return number;
}

// Neighbouring characters share one list.
void FaceWriter::AppendWidths(std::string& out) const {
  std::map<std::uint32_t, std::int16_t> widths;
  for (const std::uint32_t glyph : glyphs_) {
    widths.emplace(CharacterOf(glyph), AdvanceInThousandths(face_, glyph));
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

ObjectNumber FaceWriter::WriteDescendant() {
  std::string value = "<</Type/Font/Subtype";
  value += program_.format == OutlineFormat::TrueType ? "/CIDFontType2/CIDToGIDMap/Identity"
                                                      : "/CIDFontType0";
  value.append("/BaseFont").append(baseName_).append("/CIDSystemInfo").append(kCharacterCollection);
  value += "/FontDescriptor ";
  AppendReference(value, WriteDescriptor());
  AppendWidths(value);
  const ObjectNumber number = file_.Reserve();
  file_.WriteObject(number, value.append(">>"));
  return number;
}

std::vector<CodeMapping> FaceWriter::MappingsOf(const CodedFont& font) const {
  std::vector<CodeMapping> mappings;
  for (const CodeUse& use : font.uses) {
    mappings.push_back({use.code, CharacterOf(use.glyph), use.text});
  }
  std::ranges::sort(mappings, {}, &CodeMapping::code);
  return mappings;
}

ObjectNumber FaceWriter::WriteEncoding(const CodedFont& font,
                                       std::span<const CodeMapping> mappings) {
  const ObjectNumber number = file_.Reserve();
  std::string entries = "/Type/CMap/CMapName/";
  entries.append(EncodingName(font.codeBytes)).append("/CIDSystemInfo");
  entries.append(kCharacterCollection);
  file_.WriteStream(number, entries, MakeEncoding(font.codeBytes, mappings));
  return number;
}

ObjectNumber FaceWriter::WriteToUnicode(const CodedFont& font,
                                        std::span<const CodeMapping> mappings) {
  const ObjectNumber number = file_.Reserve();
  file_.WriteStream(number, {}, MakeToUnicode(font.codeBytes, mappings));
  return number;
}

ObjectNumber FaceWriter::WriteFont(const CodedFont& font, ObjectNumber descendant) {
  const std::vector<CodeMapping> mappings = MappingsOf(font);
  std::string value = "<</Type/Font/Subtype/Type0/BaseFont" + baseName_ + "/Encoding ";
  AppendReference(value, WriteEncoding(font, mappings));
  value += "/DescendantFonts[";
  AppendReference(value, descendant);
  value += "]/ToUnicode ";
  AppendReference(value, WriteToUnicode(font, mappings));
  const ObjectNumber number = file_.Reserve();
  file_.WriteObject(number, value.append(">>"));
  return number;
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
  for (const GlyphCodes& codes : faces_) FaceWriter(file, codes).Write(resources);
  return resources;
}

}  // namespace pagivo::native
