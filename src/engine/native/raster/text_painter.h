// Text on a canvas.
#pragma once

#include <memory>
#include <string_view>

#include "engine/native/document/display_list.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/raster/canvas.h"
#include "engine/native/raster/glyph_cache.h"

namespace pagivo::native {

class TextPainter {
 public:
  TextPainter(Canvas& canvas, const PageScale& scale) : canvas_(canvas), scale_(scale) {}

  void SetFont(const FontDescription& font);
  void SetColor(Color color) {
    color_ = color;
    ink_ = Ink(color);
  }
  // One line, its top left at `position`.
  void Draw(Point position, std::string_view text);

 private:
  bool IsOutsideClip(Point position) const;
  double DrawRun(const ShapedRun& run, double x, double baseline);  // gives where it ends
  void DrawBitmap(GlyphCache::Glyphs* glyphs, std::uint32_t glyph, double x, double y);
  void DrawOutline(const GlyphStyle& style, std::uint32_t glyph, double x, double y);
  void DrawUnderline(double left, double right, double baseline);

  Canvas& canvas_;
  const PageScale& scale_;
  std::shared_ptr<Font> font_;
  bool underlined_ = false;
  double emPixels_ = 0;
  Color color_ = 0;
  Ink ink_{0};
};

}  // namespace pagivo::native
