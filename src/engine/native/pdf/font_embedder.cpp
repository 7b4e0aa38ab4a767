#include "engine/native/pdf/font_embedder.h"

#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include "engine/native/pdf/content_stream.h"
#include "engine/native/pdf/font_program.h"

namespace pagivo::native {
namespace {

// Flags of a font descriptor.
constexpr int kFixedPitch = 1;
constexpr int kSymbolic = 1 << 2;  // no character set of PDF's own
constexpr int kItalic = 1 << 6;

// Readers use it for fonts that are not embedded only, but it has to be there.
constexpr int kStemWidth = 80;
constexpr int kBoldStemWidth = 140;

// Of the characters of every font: they are the program's own.
constexpr std::string_view kOrdering = "Identity";

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
        program_(MakeFontProgram(face_, glyphs_)),
        baseName_(SubsetTag(program_) + face_.PostScriptName()) {}

  void Write(PdfDictionary& resources) {
    descriptor_ = WriteDescriptor();
    for (const CodedFont& font : fonts_) resources.Put(FontName(font.number), WriteFont(font));
  }

 private:
  bool IsTrueType() const { return program_.format == OutlineFormat::TrueType; }
  PdfReference WriteStream(PdfDictionary dictionary, std::string_view data);
  PdfReference WriteObject(const PdfDictionary& dictionary);
  PdfReference WriteProgram();
  PdfReference WriteDescriptor();
  PdfReference WriteDescendant(const CodedFont& font);
  PdfReference WriteGlyphMap(const CodedFont& font);
  PdfReference WriteFont(const CodedFont& font);
  PdfReference WriteEncoding(int codeBytes, std::span<const CodeMapping> mappings);
  std::vector<CodeMapping> MappingsOf(const CodedFont& font) const;
  PdfArray WidthsOf(const CodedFont& font) const;
  PdfArray BoundingBox() const;
  std::int64_t Thousandths(double units) const;

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
  PdfReference descriptor_;
};

PdfReference FontWriter::WriteStream(PdfDictionary dictionary, std::string_view data) {
  const PdfReference stream = file_.Reserve();
  file_.WriteStream(stream, std::move(dictionary), data);
  return stream;
}

PdfReference FontWriter::WriteObject(const PdfDictionary& dictionary) {
  const PdfReference object = file_.Reserve();
  file_.WriteObject(object, dictionary);
  return object;
}

PdfReference FontWriter::WriteProgram() {
  PdfDictionary dictionary;
  if (IsTrueType()) {
    dictionary.Put("Length1", program_.bytes.size());
  } else {
    dictionary.Put("Subtype", PdfName{"CIDFontType0C"});
  }
  return WriteStream(std::move(dictionary), program_.bytes);
}

std::int64_t FontWriter::Thousandths(double units) const {
  return std::lround(units * 1000 / face_.UnitsPerEm());
}

PdfArray FontWriter::BoundingBox() const {
  PdfArray box;
  const FT_BBox& units = face_.FreeType()->bbox;
  for (const FT_Pos side : {units.xMin, units.yMin, units.xMax, units.yMax}) {
    box.Add(Thousandths(static_cast<double>(side)));
  }
  return box;
}

PdfReference FontWriter::WriteDescriptor() {
  FT_Face face = face_.FreeType();
  const auto* header = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  const auto* postScript = static_cast<TT_Postscript*>(FT_Get_Sfnt_Table(face, FT_SFNT_POST));
  const bool hasCapHeight = header != nullptr && header->version >= 2 && header->version != 0xFFFF;
  const bool bold = (face->style_flags & FT_STYLE_FLAG_BOLD) != 0;
  const bool italic = (face->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
  const auto angle = postScript == nullptr ? 0 : postScript->italicAngle * 100 / 65536;

  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"FontDescriptor"}).Put("FontName", PdfName{baseName_});
  dictionary.Put("Flags",
                 kSymbolic | (FT_IS_FIXED_WIDTH(face) ? kFixedPitch : 0) | (italic ? kItalic : 0));
  dictionary.Put("FontBBox", BoundingBox()).Put("ItalicAngle", PdfDecimal{angle});
  dictionary.Put("Ascent", Thousandths(face->ascender));
  dictionary.Put("Descent", Thousandths(face->descender));
  dictionary.Put("CapHeight", Thousandths(hasCapHeight ? header->sCapHeight : face->ascender));
  dictionary.Put("StemV", bold ? kBoldStemWidth : kStemWidth);
  dictionary.Put(IsTrueType() ? "FontFile2" : "FontFile3", WriteProgram());
  return WriteObject(dictionary);
}

// Neighbouring characters share one list.
PdfArray FontWriter::WidthsOf(const CodedFont& font) const {
  std::map<std::uint32_t, std::int16_t> widths;
  for (const CodeUse& use : font.uses) {
    widths.emplace(CharacterOf(use), AdvanceInThousandths(face_, use.glyph));
  }
  PdfArray lists;
  for (auto place = widths.begin(); place != widths.end();) {
    std::uint32_t character = place->first;
    lists.Add(character);
    PdfArray list;
    for (; place != widths.end() && place->first == character; ++place, ++character) {
      list.Add(place->second);
    }
    lists.Add(list);
  }
  return lists;
}

// The program's glyph of every character number, two bytes each.
PdfReference FontWriter::WriteGlyphMap(const CodedFont& font) {
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

PdfReference FontWriter::WriteDescendant(const CodedFont& font) {
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"Font"}).Put("BaseFont", PdfName{baseName_});
  dictionary.Put("CIDSystemInfo", CharacterCollection(kOrdering));
  dictionary.Put("FontDescriptor", descriptor_).Put("W", WidthsOf(font));
  if (IsTrueType()) {
    dictionary.Put("Subtype", PdfName{"CIDFontType2"}).Put("CIDToGIDMap", WriteGlyphMap(font));
  } else {
    dictionary.Put("Subtype", PdfName{"CIDFontType0"});
  }
  return WriteObject(dictionary);
}

std::vector<CodeMapping> FontWriter::MappingsOf(const CodedFont& font) const {
  std::vector<CodeMapping> mappings;
  for (const CodeUse& use : font.uses) mappings.push_back({use.code, CharacterOf(use), use.text});
  std::ranges::sort(mappings, {}, &CodeMapping::code);
  return mappings;
}

PdfReference FontWriter::WriteEncoding(int codeBytes, std::span<const CodeMapping> mappings) {
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"CMap"}).Put("CMapName", PdfName{EncodingName(codeBytes)});
  dictionary.Put("CIDSystemInfo", CharacterCollection(kOrdering));
  return WriteStream(std::move(dictionary), MakeEncoding(codeBytes, mappings));
}

PdfReference FontWriter::WriteFont(const CodedFont& font) {
  const std::vector<CodeMapping> mappings = MappingsOf(font);
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"Font"}).Put("Subtype", PdfName{"Type0"});
  dictionary.Put("BaseFont", PdfName{baseName_});
  dictionary.Put("Encoding", WriteEncoding(font.codeBytes, mappings));
  dictionary.Put("DescendantFonts", PdfArray().Add(WriteDescendant(font)));
  dictionary.Put("ToUnicode", WriteStream({}, MakeToUnicode(font.codeBytes, mappings)));
  return WriteObject(dictionary);
}

// One program serves all fonts of a face with TrueType outlines; with CFF outlines each font has
// its own, so that its characters keep small numbers.
void WriteFace(PdfFile& file, const GlyphCodes& codes, PdfDictionary& resources) {
  const std::span<const CodedFont> fonts = codes.Fonts();
  const std::size_t together = codes.HasTrueTypeOutlines() ? fonts.size() : 1;
  for (std::size_t i = 0; i < fonts.size(); i += together) {
    FontWriter(file, codes.FaceUsed(), fonts.subspan(i, together)).Write(resources);
  }
}

}  // namespace

GlyphCodes& FontEmbedder::CodesOf(const Face& face) {
  GlyphCodes*& codes = byFace_[&face];
  if (codes == nullptr) codes = &faces_.emplace_back(face, fontCount_);
  return *codes;
}

PdfDictionary FontEmbedder::WriteFonts(PdfFile& file) const {
  PdfDictionary resources;
  for (const GlyphCodes& codes : faces_) WriteFace(file, codes, resources);
  return resources;
}

}  // namespace pagivo::native
