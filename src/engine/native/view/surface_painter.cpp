#include "engine/native/view/surface_painter.h"

#include <algorithm>
#include <cmath>

#include "engine/native/document/recorder.h"
#include "engine/native/raster/bitmap_player.h"
#include "values/measures.h"

namespace pagivo::native {
namespace {

constexpr double kEdgeWidth = 1;
constexpr double kHighlightWidth = 3;
constexpr double kShadowReach = 5;
constexpr double kShadowDrop = 1;        // how much lower than the page it lies
constexpr double kShadowStrength = 0.2;  // of black, beside the page

std::int32_t Pixels(double width, double scale) {
  return std::max(1, static_cast<std::int32_t>(std::lround(width * scale)));
}

void Fill(const SurfaceBitmap& surface, const SurfaceBox& box, std::uint32_t color) {
  const SurfaceBox part = Intersection(box, {0, 0, surface.width, surface.height});
  if (part.IsEmpty()) return;
  for (std::int32_t y = part.top; y < part.bottom; ++y) {
    const auto row = surface.pixels.begin() + static_cast<std::ptrdiff_t>(y) * surface.width;
    std::fill_n(row + part.left, part.Width(), color);
  }
}

// The frame of that width around a box.
void FillAround(const SurfaceBitmap& surface, const SurfaceBox& box, std::int32_t width,
                std::uint32_t color) {
  const SurfaceBox outer = box.Grown(width);
  Fill(surface, {outer.left, outer.top, outer.right, box.top}, color);
  Fill(surface, {outer.left, box.bottom, outer.right, outer.bottom}, color);
  Fill(surface, {outer.left, box.top, box.left, box.bottom}, color);
  Fill(surface, {box.right, box.top, outer.right, box.bottom}, color);
}

// The colour with that share of black in it.
std::uint32_t Darkened(std::uint32_t color, double share) {
  std::uint32_t result = color & 0xFF000000;
  for (const int shift : {0, 8, 16}) {
    const auto channel = static_cast<double>(color >> shift & 0xFF);
    result |= static_cast<std::uint32_t>(std::lround(channel * (1 - share))) << shift;
  }
  return result;
}

void PaintShadow(const SurfaceBox& paper, double scale, const SurfaceBitmap& surface,
                 std::uint32_t ground) {
  const std::int32_t reach = Pixels(kShadowReach, scale);
  const SurfaceBox box = paper.Moved(0, Pixels(kShadowDrop, scale));
  for (std::int32_t distance = 0; distance < reach; ++distance) {
    const double nearness = 1 - (distance + 0.5) / reach;
    FillAround(surface, box.Grown(distance), 1,
               Darkened(ground, kShadowStrength * nearness * nearness));
  }
}

constexpr double kPixelsPerTwip = 1.0 / kTwipsPerPixel;  // at scale 1
constexpr float kNoticeHeight = 330;  // twips, of a line in the font below and its edges
constexpr Point kNoticeStart{120, 45};
constexpr Color kNoticeGround = 0x0000C0;
constexpr Color kNoticeLetters = 0xFFFFFF;

// The notice as a page of that width, so that its text is drawn as all text is.
void RecordNotice(std::string_view text, float width, Document& document) {
  Recorder recorder(document);
  recorder.BeginPage({width, kNoticeHeight});
  recorder.SetPen({.style = PenStyle::Invisible});
  recorder.SetBrush({.style = BrushStyle::Solid, .color = kNoticeGround});
  recorder.DrawRectangle({0, 0, width, kNoticeHeight});
  recorder.SetFont({.name = "Arial", .size = 9, .bold = true});
  recorder.SetTextColor(kNoticeLetters);
  recorder.DrawText(kNoticeStart, text);
}

}  // namespace

void PaintGround(const SurfaceBitmap& surface, const SurfaceColors& colors,
                 const SurfaceBox& covered) {
  const SurfaceBox whole{0, 0, surface.width, surface.height};
  const SurfaceBox spared = Intersection(covered, whole);
  if (spared.IsEmpty()) return Fill(surface, whole, colors.ground);
  FillAround(surface, spared, std::max(surface.width, surface.height), colors.ground);
}

void PaintAround(const PlacedPage& placed, double scale, const SurfaceBitmap& surface,
                 const SurfaceColors& colors) {
  PaintShadow(placed.box, scale, surface, colors.ground);
  if (placed.isChosen) {
    FillAround(surface, placed.box, Pixels(kHighlightWidth, scale), colors.highlight);
  } else {
    FillAround(surface, placed.box, Pixels(kEdgeWidth, scale), colors.edge);
  }
}

void PaintNotice(std::string_view text, double scale, const SurfaceBitmap& surface) {
  const double pixelsPerTwip = kPixelsPerTwip * scale;
  Document document;
  RecordNotice(text, static_cast<float>(surface.width / pixelsPerTwip), document);
  const std::int32_t height = PagePixelSize(document.GeometryOf(1), pixelsPerTwip).height;
  Bitmap bitmap{surface.width, std::min(height, surface.height), {}};
  bitmap.pixels.resize(static_cast<std::size_t>(bitmap.width) *
                       static_cast<std::size_t>(bitmap.height));
  DrawPage(document, 1, {pixelsPerTwip, 0, 0}, bitmap);
  std::ranges::copy(bitmap.pixels, surface.pixels.begin());
}

}  // namespace pagivo::native
