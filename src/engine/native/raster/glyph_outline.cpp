#include "engine/native/raster/glyph_outline.h"

#include <cmath>

#include "engine/native/fonts/font_library.h"

namespace pagivo::native {
namespace {

constexpr double kFixedOne = 65536;  // FreeType's matrices

void Scale(FT_Outline& outline, const GlyphStyle& style) {
  const double scale =
      double{style.emPixels} * kOutlineUnitsPerPixel / style.face->UnitsPerEm() * kFixedOne;
  const FT_Matrix matrix{std::lround(scale), style.slanted ? std::lround(scale * kSlant) : 0, 0,
                         std::lround(scale)};
  FT_Outline_Transform(&outline, &matrix);
}

// FreeType lets outlines grow to the right and upwards only.
void Embolden(FT_Outline& outline, const GlyphStyle& style) {
  const FT_Pos strength =
      std::lround(double{style.emPixels} * kEmboldenStroke * kOutlineUnitsPerPixel);
  FT_Outline_Embolden(&outline, strength);
  FT_Outline_Translate(&outline, -strength / 2, -strength / 2);
}

}  // namespace

FT_Outline* LoadGlyphOutline(const GlyphStyle& style, std::uint32_t glyph) {
  FT_Face face = style.face->FreeType();
  if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0) return nullptr;
  if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return nullptr;
  FT_Outline& outline = face->glyph->outline;
  if (outline.n_points == 0) return nullptr;
  Scale(outline, style);
  if (style.emboldened) Embolden(outline, style);
  return &outline;
}

}  // namespace pagivo::native
