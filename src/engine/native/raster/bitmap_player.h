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
  double pixelsPerTwip = 1.0 / kTwipsPerPixel;
  // The page's pixel that becomes the bitmap's upper left one.
  std::int32_t left = 0;
  std::int32_t top = 0;
};

// The widest and highest bitmap that can be drawn into.
inline constexpr std::int32_t kMaximumBitmapSide = 32767;

// A page's size in pixels; a pixel that the paper covers in part counts.
struct PixelSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
  friend bool operator==(const PixelSize&, const PixelSize&) = default;
};
PixelSize PagePixelSize(const PageGeometry& geometry, double pixelsPerTwip);

// Whether the paper is still to be laid, or every pixel is white already.
enum class PaperState : std::uint8_t { ToLay, Laid };

// A pixel of paper.
inline constexpr std::uint32_t kPaperPixel = 0xFFFFFFFF;

// Draws onto white paper into `bitmap`, whose size the caller has set; pixels beyond the paper are
// left as they are. A page drawn in several pieces looks like one drawn whole. Glyph bitmaps and
// prescaled pictures are kept between calls in bounded caches.
//
// Where a bitmap is coarser than what is drawn: lines are at least one pixel wide, and horizontal
// and vertical ones narrower than two pixels, those of rectangles included, are shifted by up to
// half a pixel to meet the pixels' edges. Glyphs stand at quarters of a pixel.
//
// Raises ErrorNumber::InvalidArgument when the bitmap is larger than kMaximumBitmapSide.
void DrawPage(const Document& document, std::int32_t page, const PageView& view, Bitmap& bitmap,
              PaperState paper = PaperState::ToLay);

// The whole page at that many dots an inch. Raises like DrawPage.
Bitmap DrawWholePage(const Document& document, std::int32_t page, double dotsPerInch);
// The same into a bitmap whose memory serves again where it suffices: fresh memory costs about as
// much as making the paper white. What `bitmap` showed is lost when this raises.
void DrawWholePage(const Document& document, std::int32_t page, double dotsPerInch, Bitmap& bitmap);

}  // namespace pagivo::native
