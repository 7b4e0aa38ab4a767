// A bitmap that is drawn into by cairo and by our own code in turn, and how a page lies on it.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

#include "engine/native/cairo/cairo_library.h"
#include "engine/native/document/geometry.h"
#include "engine/native/raster/bitmap_player.h"
#include "engine/native/raster/blend.h"

namespace pagivo::native {

// Pixels of a page; right and bottom are the first ones outside.
struct PixelBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  bool IsEmpty() const { return left >= right || top >= bottom; }
};

inline PixelBox Intersection(const PixelBox& one, const PixelBox& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top),
          std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
}

// A rectangle whose edges may lie within pixels.
struct PixelRectangle {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  friend bool operator==(const PixelRectangle&, const PixelRectangle&) = default;
};

// A glyph's shape: one byte a pixel, how much of it is covered. What a row holds beyond the width
// is blank.
struct Coverage {
  const std::uint8_t* bytes = nullptr;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t pitch = 0;  // bytes from row to row
};

// A figure with a coordinate that is infinite, or no number, is not drawn.
template <typename... Number>
bool AreFinite(Number... numbers) {
  return (std::isfinite(numbers) && ...);
}

// A text or picture that lies further out is drawn as if it lay here, and no line is wider, for
// cairo counts no further.
inline constexpr float kFarthestTwips = 1e6F;

constexpr float WithinReach(float twips) {
  return std::clamp(twips, -kFarthestTwips, kFarthestTwips);
}

// Thin horizontal and vertical lines look blurred unless they meet the pixels' edges.
inline constexpr double kThinPixels = 2;

// Where the middle of a thin line goes so that its first edge is a pixel's. A touch more than the
// half, so that rounding errors do not decide on halves.
inline double AlignedMiddle(double middle, double width) {
  return std::floor(middle - width / 2 + 0.5 + 1e-6) + width / 2;
}

class PageScale {
 public:
  explicit PageScale(double pixelsPerTwip) : pixelsPerTwip_(pixelsPerTwip) {}

  double PixelsPerTwip() const noexcept { return pixelsPerTwip_; }
  double Pixels(double twips) const noexcept { return twips * pixelsPerTwip_; }
  double PixelAt(float twips) const noexcept { return Pixels(double{WithinReach(twips)}); }

  // Its edges stand as they were given.
  PixelRectangle Pixels(const Rectangle& rectangle) const noexcept {
    return {PixelAt(rectangle.x1), PixelAt(rectangle.y1), PixelAt(rectangle.x2),
            PixelAt(rectangle.y2)};
  }

 private:
  double pixelsPerTwip_;
};

// Everything here counts in the page's pixels. Nothing outside the clip is touched. The bitmap must
// outlive the canvas.
class Canvas {
 public:
  // The clip is the part of `page` (a page's pixels) that the bitmap shows.
  Canvas(Bitmap& bitmap, const PageView& view, const PixelSize& page,
         PaperState paper = PaperState::ToLay);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  const PixelBox& Clip() const noexcept { return clip_; }

  // For drawing with cairo above the row `bottom`, until the next call of another function.
  cairo_t* Vectors(std::int32_t bottom);
  cairo_t* Vectors() { return Vectors(clip_.bottom); }
  // Raises std::bad_alloc when memory did not suffice for all that was drawn with it.
  void RequireDrawn() const;
  // For drawing into pixels within the clip, until the next call of Vectors: where the page's pixel
  // (0, y) would be.
  std::uint32_t* Row(std::int32_t y);

  // Lays the rest of the paper. It is laid from the top, as far down as something is drawn, so that
  // the processor still has the pixels at hand that are drawn on.
  void FinishPaper() { LayPaper(clip_.bottom); }
  void DrawCoverage(const Coverage& coverage, std::int32_t left, std::int32_t top, const Ink& ink);
  // The edges may be given in any order.
  void FillRectangle(const PixelRectangle& rectangle, const Ink& ink);

 private:
  struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
  };

  void BeginCairo();
  void LayPaper(std::int32_t bottom) {
    if (bottom > paperBottom_) LayMorePaper(bottom);
  }
  void LayMorePaper(std::int32_t bottom);
  std::uint32_t* PixelsOf(std::int32_t y) {
    return bitmap_.pixels.data() + std::ptrdiff_t{y - top_} * bitmap_.width - left_;
  }

  Bitmap& bitmap_;
  std::int32_t left_;
  std::int32_t top_;
  PixelBox clip_;
  std::int32_t paperBottom_;    // the first row that is not white yet
  bool pixelsChanged_ = false;  // since cairo drew last
  std::unique_ptr<cairo_surface_t, Release> surface_;
  std::unique_ptr<cairo_t, Release> context_;
};

}  // namespace pagivo::native
