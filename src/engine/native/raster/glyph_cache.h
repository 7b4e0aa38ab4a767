// Glyphs as FreeType gives them, brought to the size and style they are drawn in: their outlines,
// and their bitmaps, which are made when they are first needed.
#pragma once

#include <ft2build.h>
#include FT_OUTLINE_H

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/native/fonts/face.h"
#include "engine/native/raster/canvas.h"

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

// A glyph's shape and where its upper left pixel lies, seen from the pixel of the pen position.
struct GlyphBitmap {
  Coverage coverage;
  std::int32_t left = 0;
  std::int32_t top = 0;
};

// Keeps bitmaps until their bytes or the number of glyphs reach the bound; then it starts anew,
// which costs little: a page needs a few hundred glyphs.
class GlyphCache {
 public:
  static constexpr std::size_t kMaximumBytes = std::size_t{16} << 20;
  static constexpr std::size_t kMaximumGlyphs = std::size_t{1} << 12;
  static constexpr std::size_t kMaximumStyles = 64;
  // Pixels; what is larger, which no sane face holds, stays blank.
  static constexpr std::int32_t kMaximumSide = 2048;

  GlyphCache();

  // A number for the style, which holds until the next call.
  std::uint32_t Select(const GlyphStyle& style);

  // The glyph in a selected style, its pen position at that quarter (0 to 3) of a pixel to the
  // right and below the pixel's corner. Holds until the next call.
  GlyphBitmap Find(std::uint32_t style, std::uint32_t glyph, std::uint32_t quarterX,
                   std::uint32_t quarterY);

  std::size_t Bytes() const noexcept { return bytes_.size(); }
  // Glyphs of a style, each counted once at however many quarters.
  std::size_t GlyphCount() const noexcept { return glyphCount_; }

 private:
  struct Shape {
    std::uint32_t begin = 0;
    std::int16_t left = 0;
    std::int16_t top = 0;
    std::int16_t width = kNotMade;
    std::int16_t height = 0;
  };
  static constexpr std::int16_t kNotMade = -1;

  struct Entry {
    std::uint64_t key = 0;         // 0 is a free place
    std::array<Shape, 16> shapes;  // at every quarter, side by side, for a line meets them all
  };

  Entry& PlaceOf(std::uint64_t key);
  void Clear();
  Shape Rasterize(std::uint32_t style, std::uint32_t glyph, std::uint32_t quarterX,
                  std::uint32_t quarterY);

  std::vector<GlyphStyle> styles_;
  // Those of the styles, held so that no other face takes the address of one.
  std::vector<std::shared_ptr<const Face>> faces_;
  std::vector<Entry> places_;  // by the key's hash, the next free one when taken
  std::vector<std::uint8_t> bytes_;
  std::size_t glyphCount_ = 0;
};

}  // namespace pagivo::native
