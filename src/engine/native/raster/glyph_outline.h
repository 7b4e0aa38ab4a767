// Glyph outlines as FreeType gives them, brought to the size and style they are drawn in.
#pragma once

#include <ft2build.h>
#include FT_OUTLINE_H

#include <cstdint>

#include "engine/native/fonts/face.h"

namespace pagivo::native {

// How a face's glyphs look on a bitmap.
struct GlyphStyle {
  const Face* face = nullptr;
  float emPixels = 0;  // the font's size
  bool emboldened = false;
  bool slanted = false;
  friend bool operator==(const GlyphStyle&, const GlyphStyle&) = default;
};

// FreeType's fraction of a pixel.
inline constexpr double kOutlineUnitsPerPixel = 64;

// The glyph's outline, unhinted, in kOutlineUnitsPerPixel, y up, its origin at the pen position.
// Null when the face has none, such as that of a blank. It is the face's own and holds until the
// next outline of that face is loaded; the caller may change it.
FT_Outline* LoadGlyphOutline(const GlyphStyle& style, std::uint32_t glyph);

}  // namespace pagivo::native
