// Glyphs as FreeType gives them, brought to the size and style they are drawn in: their outlines,
// and their bitmaps, which are made when they are first needed.
#pragma once

#include <ft2build.h>
#include FT_OUTLINE_H

#include <cstdint>
#include <list>
#include <unordered_map>

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

// Keeps the bitmaps of each style together. When the bytes reach the bound, the style that was used
// longest ago goes first.
class GlyphCache {
 public:
  static constexpr std::size_t kMaximumBytes = std::size_t{16} << 20;
  // Pixels. A larger glyph, which no real face has, stays blank.
  static constexpr std::int32_t kMaximumSide = 2048;

  // The glyphs of one style. Holds until the next call of Select.
  class Glyphs;
  GlyphCache();
  ~GlyphCache();
  Glyphs* Select(const GlyphStyle& style);

  // The glyph in a selected style, its pen position at that quarter (0 to 3) of a pixel to the
  // right and below the pixel's corner. Holds until the next call.
  GlyphBitmap Find(Glyphs* glyphs, std::uint32_t glyph, std::uint32_t quarterX,
                   std::uint32_t quarterY);

  // What is kept, the tables included.
  std::size_t Bytes() const noexcept { return bytes_; }
  std::size_t StyleCount() const noexcept { return styles_.size(); }

 private:
  class Counting;
  struct Hash {
    std::size_t operator()(const GlyphStyle& style) const noexcept;
  };

  void MakeRoom(Glyphs* inUse);

  std::list<Glyphs> styles_;  // the one used last first
  std::unordered_map<GlyphStyle, std::list<Glyphs>::iterator, Hash> places_;
  std::size_t bytes_ = 0;
};

}  // namespace pagivo::native
