#include "engine/native/setup/page_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pagivo::native {
namespace {

constexpr std::uint32_t kPaperColor = 0xFFFFFFFF;
constexpr std::uint32_t kMarginColor = 0xFF9DB8DC;
constexpr std::uint32_t kTextColor = 0xFFB4B4B4;

// 96ths of an inch: around the page, and from one line of text to the next at the least.
constexpr double kGap = 8;
constexpr double kSmallestLinePitch = 4;

constexpr double kLinePitch = 520;  // twips
// How much of the lines' width is black, again and again: two paragraphs and their blank lines.
constexpr std::array<double, 8> kLineLengths{1, 1, 1, 0.6, 0, 1, 0.8, 0};

// Device pixels: left and top lie inside, right and bottom do not.
struct PixelRectangle {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  std::int32_t Width() const { return right - left; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  PixelRectangle Grown(std::int32_t by) const {
    return {left - by, top - by, right + by, bottom + by};
  }
};

std::int32_t Pixels(double length) {
  return static_cast<std::int32_t>(std::lround(length));
}

void Fill(const SurfaceBitmap& bitmap, const PixelRectangle& area, std::uint32_t color) {
  const std::int32_t left = std::clamp(area.left, 0, bitmap.width);
  const std::int32_t right = std::clamp(area.right, left, bitmap.width);
  const std::int32_t bottom = std::min(area.bottom, bitmap.height);
  for (std::int32_t y = std::max(area.top, 0); y < bottom; ++y) {
    const auto row = static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width);
    std::ranges::fill(bitmap.pixels.subspan(row + static_cast<std::size_t>(left),
                                            static_cast<std::size_t>(right - left)),
                      color);
  }
}

// Pixels a twip, so that the paper fits between the gaps.
double FittingScale(const SurfaceBitmap& bitmap, const PageShape& page, double gap) {
  const double across = (bitmap.width - 2 * gap) / page.width;
  const double down = (bitmap.height - 2 * gap) / page.height;
  return std::min(across, down);
}

PixelRectangle PaperIn(const SurfaceBitmap& bitmap, const PageShape& page, double scale) {
  const std::int32_t width = std::max(Pixels(page.width * scale), 1);
  const std::int32_t height = std::max(Pixels(page.height * scale), 1);
  const std::int32_t left = (bitmap.width - width) / 2;
  const std::int32_t top = (bitmap.height - height) / 2;
  return {left, top, left + width, top + height};
}

// Margins may reach beyond the paper.
PixelRectangle TextAreaOf(const PixelRectangle& paper, const PageShape& shape, double scale) {
  const auto reach = [scale](double margin, double limit) {
    return Pixels(std::min(margin, limit) * scale);
  };
  return {paper.left + reach(shape.left, shape.width), paper.top + reach(shape.top, shape.height),
          paper.right - reach(shape.right, shape.width),
          paper.bottom - reach(shape.bottom, shape.height)};
}

void DrawText(const SurfaceBitmap& bitmap, const PixelRectangle& area, std::int32_t pitch) {
  const std::int32_t thickness = std::max(pitch / 2, 1);
  std::size_t line = 0;
  for (std::int32_t top = area.top + pitch; top + thickness + pitch / 2 <= area.bottom;
       top += pitch) {
    const double length = kLineLengths[line++ % kLineLengths.size()];
    const std::int32_t left = area.left + pitch;
    const std::int32_t width = Pixels((area.Width() - 2 * pitch) * length);
    Fill(bitmap, {left, top, left + width, top + thickness}, kTextColor);
  }
}

}  // namespace

void PagePicture::PutShape(const PageShape& shape) {
  if (shape == shape_) return;
  shape_ = shape;
  Change();
}

void PagePicture::Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) {
  Fill(bitmap, {0, 0, bitmap.width, bitmap.height}, colors.ground);
  const double scale = FittingScale(bitmap, shape_, kGap * Scale());
  if (!(scale > 0) || !std::isfinite(scale)) return;
  const std::int32_t line = std::max(Pixels(Scale()), 1);
  const PixelRectangle paper = PaperIn(bitmap, shape_, scale);
  Fill(bitmap, paper.Grown(line), colors.edge);
  Fill(bitmap, paper, kPaperColor);
  const PixelRectangle area = TextAreaOf(paper, shape_, scale);
  if (area.Grown(-line).IsEmpty()) return;
  Fill(bitmap, area, kMarginColor);
  Fill(bitmap, area.Grown(-line), kPaperColor);
  DrawText(bitmap, area, Pixels(std::max(kLinePitch * scale, kSmallestLinePitch * Scale())));
}

}  // namespace pagivo::native
