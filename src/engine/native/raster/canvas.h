// A bitmap that is drawn into by cairo and by our own code in turn.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>

#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {

// Pixels of a page; right and bottom are the first ones outside.
struct PixelBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  bool IsEmpty() const { return left >= right || top >= bottom; }
};

// A rectangle whose edges may lie within pixels.
struct PixelRectangle {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

// A glyph's shape: one byte a pixel, how much of it is covered.
struct Coverage {
  const std::uint8_t* bytes = nullptr;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// Everything here counts in the page's pixels. Nothing outside the clip is touched. The bitmap must
// outlive the canvas.
class Canvas {
 public:
  // The clip is the part of `page` (a page's pixels) that the bitmap shows.
  Canvas(Bitmap& bitmap, const PageView& view, const PixelSize& page);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  const PixelBox& Clip() const noexcept { return clip_; }

  // For drawing with cairo, until the next call of another function.
  cairo_t* Vectors();

  void FillPaper();
  // Both draw in an opaque colour.
  void DrawCoverage(const Coverage& coverage, std::int32_t left, std::int32_t top, Color color);
  void FillRectangle(const PixelRectangle& rectangle, Color color);

 private:
  struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
  };

  void BeginPixels();
  std::uint32_t* Row(std::int32_t y) const;

  Bitmap& bitmap_;
  std::int32_t left_;
  std::int32_t top_;
  PixelBox clip_;
  bool pixelsChanged_ = false;
  std::unique_ptr<cairo_surface_t, Release> surface_;
  std::unique_ptr<cairo_t, Release> context_;
};

}  // namespace pagivo::native
