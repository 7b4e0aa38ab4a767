// One face of a font file, as FreeType and HarfBuzz see it.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>

namespace pagivo::native {

// A face is opened once and stays open while somebody holds it; for that long its address tells it
// from others. Its outlines are TrueType or CFF.
class Face : public std::enable_shared_from_this<Face> {
 public:
  // Raises Error when the file cannot be read as a scalable font.
  Face(const std::string& path, int index);
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  FT_Face FreeType() const noexcept { return freetype_.get(); }
  hb_face_t* HarfBuzz() const noexcept { return harfbuzz_.get(); }  // holds the file's bytes
  hb_font_t* HarfBuzzFont() const noexcept { return font_.get(); }  // scaled to the design units
  std::int32_t UnitsPerEm() const noexcept { return unitsPerEm_; }
  const std::string& PostScriptName() const noexcept { return postScriptName_; }

  // The glyph that the face's character map gives for a code point; 0 when it gives none.
  std::uint32_t GlyphOf(char32_t codePoint) const noexcept;

 private:
  template <auto kRelease>
  struct Releaser {
    template <class T>
    void operator()(T* object) const {
      kRelease(object);
    }
  };

  // Both libraries read the same mapped file, so that goes last.
  std::unique_ptr<hb_face_t, Releaser<&hb_face_destroy>> harfbuzz_;
  std::unique_ptr<hb_font_t, Releaser<&hb_font_destroy>> font_;
  std::unique_ptr<FT_FaceRec_, Releaser<&FT_Done_Face>> freetype_;
  std::int32_t unitsPerEm_ = 0;
  std::string postScriptName_;
};

}  // namespace pagivo::native
