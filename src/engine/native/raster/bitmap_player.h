// A page drawn into a bitmap.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/native/document/document.h"

namespace pagivo::native {

// 32-bit pixels 0xAARRGGBB in the machine's byte order, alpha premultiplied, rows top down without
// padding.
struct Bitmap {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> pixels;
};

// Which part of a page to draw, and how large.
struct PageView {
  double pixelsPerTwip = 96.0 / 1440;
  // The page's pixel that becomes the bitmap's upper left one.
  std::int32_t left = 0;
  std::int32_t top = 0;
};

// Draws onto white paper into `bitmap`, whose size the caller has set; pixels beyond the paper are
// left as they are. Glyph bitmaps and prescaled pictures are kept between calls in bounded caches.
void DrawPage(const Document& document, std::int32_t page, const PageView& view, Bitmap& bitmap);

// The whole page at that many dots an inch.
Bitmap DrawWholePage(const Document& document, std::int32_t page, double dotsPerInch);

}  // namespace pagivo::native
