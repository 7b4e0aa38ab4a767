#include "engine/native/raster/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;

std::uint32_t PixelOf(Color color) {
  return 0xFF000000U | std::uint32_t{RedOf(color)} << 16 | std::uint32_t{GreenOf(color)} << 8 |
         BlueOf(color);
}

// A pixel's four channels with eight bits of room above each, so that one multiplication serves
// all.
using Channels = std::uint64_t;
constexpr Channels kChannelMask = 0x00FF00FF00FF00FF;

constexpr Channels Spread(std::uint32_t pixel) {
  return (pixel | Channels{pixel} << 24) & kChannelMask;
}

// `share` of `over` on top of `under`; 256 is all of it.
constexpr std::uint32_t Blend(std::uint32_t under, Channels over, std::uint32_t share) {
  const Channels mixed = (Spread(under) * (256 - share) + over * share) >> 8 & kChannelMask;
  return static_cast<std::uint32_t>(mixed | mixed >> 24);
}

// Most of a glyph's box is blank: four pixels at a time are looked at first.
void BlendRow(std::uint32_t* row, const std::uint8_t* covered, std::int32_t count, Channels ink) {
  std::int32_t x = 0;
  const auto blend = [&] {
    const std::uint32_t share = covered[x];
    row[x] = Blend(row[x], ink, share + (share >> 7));
    ++x;
  };
  while (count - x >= 4) {
    std::uint32_t four = 0;
    std::memcpy(&four, covered + x, sizeof(four));
    if (four == 0) {
      x += 4;
      continue;
    }
    blend();
    blend();
    blend();
    blend();
  }
  while (x < count) blend();
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
  const Channels ink = Spread(PixelOf(color));
  const std::uint8_t* covered =
      coverage.bytes + std::ptrdiff_t{box.top - top} * coverage.width + (box.left - left);
  std::uint32_t* row = Row(box.top) + box.left;
  for (std::int32_t y = box.top; y < box.bottom; ++y) {
    BlendRow(row, covered, box.right - box.left, ink);
    covered += coverage.width;
    row += bitmap_.width;
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
  const Channels ink = Spread(PixelOf(color));
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
