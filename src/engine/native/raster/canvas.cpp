#include "engine/native/raster/canvas.h"

#include <algorithm>
#include <cmath>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;

std::uint32_t PixelOf(Color color) {
  return 0xFF000000U | std::uint32_t{RedOf(color)} << 16 | std::uint32_t{GreenOf(color)} << 8 |
         BlueOf(color);
}

// `share` of `over` on top of `under`; 256 is all of it. Two channels at a time, each with eight
// bits of room above it.
std::uint32_t Blend(std::uint32_t under, std::uint32_t over, std::uint32_t share) {
  constexpr std::uint32_t kEveryOther = 0x00FF00FF;
  const std::uint32_t rest = 256 - share;
  const std::uint32_t low = (under & kEveryOther) * rest + (over & kEveryOther) * share;
  const std::uint32_t high = (under >> 8 & kEveryOther) * rest + (over >> 8 & kEveryOther) * share;
  return (low >> 8 & kEveryOther) | (high & ~kEveryOther);
}

// How much of the pixel from `at` to `at` + 1 lies between the edges.
double Overlap(double from, double to, std::int32_t at) {
  return std::clamp(std::min(to, at + 1.0) - std::max(from, double(at)), 0.0, 1.0);
}

}  // namespace

Canvas::Canvas(Bitmap& bitmap, const PageView& view, const PixelSize& page)
    : bitmap_(bitmap),
      left_(view.left),
      top_(view.top),
      clip_{std::max(view.left, 0), std::max(view.top, 0),
            std::min(view.left + bitmap.width, page.width),
            std::min(view.top + bitmap.height, page.height)},
      surface_(cairo_image_surface_create_for_data(
          reinterpret_cast<unsigned char*>(bitmap.pixels.data()), CAIRO_FORMAT_ARGB32, bitmap.width,
          bitmap.height, 4 * bitmap.width)),
      context_(cairo_create(surface_.get())) {
  if (cairo_status(context_.get()) != CAIRO_STATUS_SUCCESS) {
    throw Error(ErrorNumber::InvalidArgument, "De pagina is te groot om te tekenen");
  }
  cairo_translate(context_.get(), -left_, -top_);
  cairo_rectangle(context_.get(), clip_.left, clip_.top, std::max(0, clip_.right - clip_.left),
                  std::max(0, clip_.bottom - clip_.top));
  cairo_clip(context_.get());
}

Canvas::~Canvas() = default;

cairo_t* Canvas::Vectors() {
  if (pixelsChanged_) cairo_surface_mark_dirty(surface_.get());
  pixelsChanged_ = false;
  return context_.get();
}

void Canvas::BeginPixels() {
  if (!pixelsChanged_) cairo_surface_flush(surface_.get());
  pixelsChanged_ = true;
}

// Where the page's pixel (0, y) would be.
std::uint32_t* Canvas::Row(std::int32_t y) const {
  return bitmap_.pixels.data() + std::ptrdiff_t{y - top_} * bitmap_.width - left_;
}

void Canvas::FillPaper() {
  BeginPixels();
  if (clip_.IsEmpty()) return;
  for (std::int32_t y = clip_.top; y < clip_.bottom; ++y) {
    std::fill(Row(y) + clip_.left, Row(y) + clip_.right, kWhite);
  }
}

void Canvas::DrawCoverage(const Coverage& coverage, std::int32_t left, std::int32_t top,
                          Color color) {
  const PixelBox box{std::max(left, clip_.left), std::max(top, clip_.top),
                     std::min(left + coverage.width, clip_.right),
                     std::min(top + coverage.height, clip_.bottom)};
  if (box.IsEmpty()) return;
  BeginPixels();
  const std::uint32_t ink = PixelOf(color);
  for (std::int32_t y = box.top; y < box.bottom; ++y) {
    const std::uint8_t* covered = coverage.bytes + std::ptrdiff_t{y - top} * coverage.width - left;
    std::uint32_t* row = Row(y);
    for (std::int32_t x = box.left; x < box.right; ++x) {
      const std::uint32_t share = covered[x];
      if (share != 0) row[x] = Blend(row[x], ink, share + (share >> 7));
    }
  }
}

void Canvas::FillRectangle(const PixelRectangle& rectangle, Color color) {
  const auto within = [](double edge, std::int32_t low, std::int32_t high) {
    return static_cast<std::int32_t>(std::clamp<double>(edge, low, std::max(low, high)));
  };
  const PixelBox box{within(std::floor(rectangle.left), clip_.left, clip_.right),
                     within(std::floor(rectangle.top), clip_.top, clip_.bottom),
                     within(std::ceil(rectangle.right), clip_.left, clip_.right),
                     within(std::ceil(rectangle.bottom), clip_.top, clip_.bottom)};
  if (box.IsEmpty()) return;
  BeginPixels();
  const std::uint32_t ink = PixelOf(color);
  for (std::int32_t y = box.top; y < box.bottom; ++y) {
    const double height = 256 * Overlap(rectangle.top, rectangle.bottom, y);
    std::uint32_t* row = Row(y);
    for (std::int32_t x = box.left; x < box.right; ++x) {
      const double share = height * Overlap(rectangle.left, rectangle.right, x);
      row[x] = Blend(row[x], ink, static_cast<std::uint32_t>(std::lround(share)));
    }
  }
}

}  // namespace pagivo::native
