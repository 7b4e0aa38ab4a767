// The parts of font files that are embedded, and what readers call their glyphs.
#include "engine/native/pdf/font_program.h"

#include <gtest/gtest.h>
#include FT_CID_H

#include "engine/native/fonts/font_library.h"
#include "engine/native/pdf/glyph_codes.h"
#include "engine/native/pdf/pdf_readers.h"

namespace pagivo::native::testing {
namespace {

using namespace std::string_literals;

const Face& FaceOf(const char* name, ShapedLine& line, const char* text) {
  FontLibrary::Instance().Find(name, false, false).Shape(text, line);
  return *line.runs.at(0).face;
}

TEST(FontProgram, HoldsTheWantedGlyphsOnly) {
  for (const char* name : {"Arial", "Nimbus Roman"}) {
    ShapedLine line;
    const Face& face = FaceOf(name, line, "abc");
    std::vector<std::uint32_t> glyphs;
    for (const ShapedGlyph& glyph : line.glyphs) glyphs.push_back(glyph.glyph);
    const FontProgram part = MakeFontProgram(face, glyphs);
    const FontProgram whole = MakeWholeFontProgram(face, glyphs);
    EXPECT_TRUE(part.subset);
    EXPECT_FALSE(whole.subset);
    EXPECT_LT(part.bytes.size(), 5000U) << name;
    EXPECT_GT(whole.bytes.size(), 20000U) << name;
    EXPECT_EQ(part.characters, (std::vector<std::uint32_t>{1, 2, 3})) << name;
    EXPECT_EQ(whole.characters, glyphs) << name;
  }
}

TEST(FontProgram, AGlyphThatTheFaceDoesNotHaveIsTheMissingOne) {
  ShapedLine line;
  const Face& face = FaceOf("Arial", line, "a");
  const std::uint32_t glyphs[] = {line.glyphs.at(0).glyph, 65000};
  EXPECT_EQ(MakeFontProgram(face, glyphs).characters.at(1), 0U);
}

// A number in a CFF dictionary, in its three-byte form.
std::string CffNumber(std::size_t number) {
  return {'\x1C', static_cast<char>(number >> 8), static_cast<char>(number)};
}

// With offsets of one byte.
std::string CffIndex(const std::vector<std::string>& elements) {
  std::string offsets(1, '\x01');
  std::string bytes;
  for (const std::string& element : elements) {
    bytes += element;
    offsets.push_back(static_cast<char>(bytes.size() + 1));
  }
  return "\0"s + static_cast<char>(elements.size()) + "\x01" + offsets + bytes;
}

// A CID-keyed CFF table, as small as can be: three glyphs without outlines, the last two of them
// characters 1017 and 1018.
std::string CidKeyedCff() {
  const std::string begin = "\x01\x00\x04\x01"s + CffIndex({"Keyed"});
  const std::string strings = CffIndex({"Adobe", "Identity"});
  const std::string noSubroutines(2, '\0');
  const std::string charset = "\x02\x03\xF9\x00\x01"s;  // from 1017 on one more
  const std::string glyphs = CffIndex({"\x0E", "\x0E", "\x0E"});
  const std::string privateDictionary = "\x8B\x14";  // a usual width of 0
  const std::string dictionaryOfGlyphs(4, '\0');     // the first one, for all
  const auto top = [](std::size_t charsetAt, std::size_t glyphsAt, std::size_t selectAt,
                      std::size_t arrayAt) {
    return CffNumber(391) + CffNumber(392) + "\x8B\x0C\x1E" + CffNumber(charsetAt) + "\x0F" +
           CffNumber(glyphsAt) + "\x11" + CffNumber(arrayAt) + "\x0C\x24" + CffNumber(selectAt) +
           "\x0C\x25";
  };
  const std::size_t charsetAt =
      begin.size() + CffIndex({top(0, 0, 0, 0)}).size() + strings.size() + noSubroutines.size();
  const std::size_t glyphsAt = charsetAt + charset.size();
  const std::size_t privateAt = glyphsAt + glyphs.size();
  const std::size_t selectAt = privateAt + privateDictionary.size();
  const std::size_t arrayAt = selectAt + dictionaryOfGlyphs.size();
  const std::string dictionaries =
      CffIndex({CffNumber(privateDictionary.size()) + CffNumber(privateAt) + "\x12"});
  return begin + CffIndex({top(charsetAt, glyphsAt, selectAt, arrayAt)}) + strings + noSubroutines +
         charset + glyphs + privateDictionary + dictionaryOfGlyphs + dictionaries;
}

// A font file with that table, the rest of it as another face has it.
class CidKeyedFace : public ::testing::Test {
 protected:
  CidKeyedFace() {
    hb_face_t* file = hb_face_builder_create();
    ShapedLine line;
    hb_face_t* other = FaceOf("Nimbus Roman", line, "a").HarfBuzz();
    for (const hb_tag_t tag :
         {HB_TAG('h', 'e', 'a', 'd'), HB_TAG('h', 'h', 'e', 'a'), HB_TAG('h', 'm', 't', 'x')}) {
      AddTable(file, tag, hb_face_reference_table(other, tag));
    }
    AddTable(file, HB_TAG('m', 'a', 'x', 'p'), BlobOf("\x00\x00\x50\x00\x00\x03"s));
    AddTable(file, HB_TAG('C', 'F', 'F', ' '), BlobOf(CidKeyedCff()));
    hb_blob_t* bytes = hb_face_reference_blob(file);
    unsigned length = 0;
    const char* data = hb_blob_get_data(bytes, &length);
    WriteFile(folder_.FileNamed("keyed.otf"), {data, length});
    hb_blob_destroy(bytes);
    hb_face_destroy(file);
    face_ = std::make_shared<Face>(folder_.FileNamed("keyed.otf"), 0);
  }

  static hb_blob_t* BlobOf(const std::string& bytes) {
    return hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()),
                          HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr);
  }

  static void AddTable(hb_face_t* file, hb_tag_t tag, hb_blob_t* table) {
    hb_face_builder_add_table(file, tag, table);
    hb_blob_destroy(table);
  }

  // What a reader of the program calls its glyphs.
  std::vector<std::uint32_t> CharactersIn(const std::string& program) const {
    FT_Face face = nullptr;
    const FT_Error error = FT_New_Memory_Face(face_->FreeType()->glyph->library,
                                              reinterpret_cast<const FT_Byte*>(program.data()),
                                              static_cast<FT_Long>(program.size()), 0, &face);
    EXPECT_EQ(error, 0);
    std::vector<std::uint32_t> characters;
    FT_UInt character = 0;
    for (FT_UInt glyph = 0; FT_Get_CID_From_Glyph_Index(face, glyph, &character) == 0; ++glyph) {
      characters.push_back(character);
    }
    FT_Done_Face(face);
    return characters;
  }

  ScratchFolder folder_;
  std::shared_ptr<Face> face_;
};

TEST_F(CidKeyedFace, KeepsTheNumbersOfItsCharacters) {
  const std::uint32_t glyphs[] = {0, 2};
  const FontProgram part = MakeFontProgram(*face_, glyphs);
  EXPECT_TRUE(part.subset);
  EXPECT_EQ(part.format, OutlineFormat::Cff);
  EXPECT_EQ(part.characters, (std::vector<std::uint32_t>{0, 1018}));
  EXPECT_EQ(CharactersIn(part.bytes), part.characters);

  const FontProgram whole = MakeWholeFontProgram(*face_, glyphs);
  EXPECT_EQ(whole.characters, (std::vector<std::uint32_t>{0, 1018}));
  EXPECT_EQ(CharactersIn(whole.bytes), (std::vector<std::uint32_t>{0, 1017, 1018}));
}

TEST_F(CidKeyedFace, HasTwoByteCodesAtOnce) {
  std::uint16_t fontCount = 0;
  GlyphCodes codes(*face_, fontCount);
  EXPECT_EQ(codes.CodeOf(2, "a").bytes, 2);
}

}  // namespace
}  // namespace pagivo::native::testing
