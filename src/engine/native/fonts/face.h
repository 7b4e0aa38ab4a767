// One face of a font file, as FreeType and HarfBuzz see it.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>

#include <cstdint>
#include <string>

namespace pagivo::native {

// Opened once, kept for the process. Its address identifies it.
class Face {
 public:
  // Raises Error when the file cannot be read as a font.
  Face(const std::string& path, int index);
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  FT_Face FreeType() const noexcept { return freetype_; }
  hb_face_t* HarfBuzz() const noexcept { return harfbuzz_; }  // holds the file's bytes
  hb_font_t* HarfBuzzFont() const noexcept { return font_; }  // scaled to the design units
  std::int32_t UnitsPerEm() const noexcept { return unitsPerEm_; }
  const std::string& PostScriptName() const noexcept { return postScriptName_; }

 private:
  FT_Face freetype_ = nullptr;
  hb_face_t* harfbuzz_ = nullptr;
  hb_font_t* font_ = nullptr;
  std::int32_t unitsPerEm_ = 0;
  std::string postScriptName_;
};

}  // namespace pagivo::native
