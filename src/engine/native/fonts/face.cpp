#include "engine/native/fonts/face.h"

#include <new>

#include "engine/native/fonts/font_file.h"
#include "pagivo/error.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

[[noreturn]] void ThrowUnreadable(const std::string& path) {
  throw Error(ErrorNumber::FileAccess,
              "Het lettertypebestand " + path + " kan niet worden gelezen");
}

FT_Library FreeTypeLibrary() {
  return &ProcessWide<FT_LibraryRec_>([] {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) {
      throw Error(ErrorNumber::OutOfMemory, "De lettertypebibliotheek kan niet worden gestart");
    }
    return library;
  });
}

bool HasTable(hb_face_t* face, hb_tag_t tag) {
  hb_blob_t* table = hb_face_reference_table(face, tag);
  const bool found = hb_blob_get_length(table) > 0;
  hb_blob_destroy(table);
  return found;
}

// CFF2 outlines do not count: a PDF file cannot hold them.
bool HasOutlines(hb_face_t* face) {
  return HasTable(face, HB_TAG('g', 'l', 'y', 'f')) || HasTable(face, HB_TAG('C', 'F', 'F', ' '));
}

FT_Face OpenFreeType(FT_Library library, hb_blob_t* file, int index) {
  unsigned int length = 0;
  const char* bytes = hb_blob_get_data(file, &length);
  FT_Face face = nullptr;
  const FT_Error error = FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte*>(bytes),
                                            static_cast<FT_Long>(length), index, &face);
  if (error == FT_Err_Out_Of_Memory) throw std::bad_alloc();
  return error == 0 ? face : nullptr;
}

}  // namespace

Face::Face(const std::string& path, int index) {
  const std::unique_ptr<hb_blob_t, Releaser<&hb_blob_destroy>> file(OpenFontFile(path));
  if (!file) ThrowUnreadable(path);
  harfbuzz_.reset(hb_face_create(file.get(), static_cast<unsigned int>(index)));
  freetype_.reset(OpenFreeType(FreeTypeLibrary(), file.get(), index));
  if (!freetype_ || !FT_IS_SCALABLE(freetype_) || !HasOutlines(harfbuzz_.get())) {
    ThrowUnreadable(path);
  }
  hb_face_make_immutable(harfbuzz_.get());
  unitsPerEm_ = static_cast<std::int32_t>(hb_face_get_upem(harfbuzz_.get()));
  font_.reset(hb_font_create(harfbuzz_.get()));
  hb_font_set_scale(font_.get(), unitsPerEm_, unitsPerEm_);
  hb_font_make_immutable(font_.get());
  const char* name = FT_Get_Postscript_Name(freetype_.get());
  postScriptName_ = name != nullptr && *name != '\0' ? name : "Naamloos";
}

Face::~Face() = default;

std::uint32_t Face::GlyphOf(char32_t codePoint) const noexcept {
  hb_codepoint_t glyph = 0;
  return hb_font_get_nominal_glyph(font_.get(), codePoint, &glyph) != 0 ? glyph : 0;
}

}  // namespace pagivo::native
