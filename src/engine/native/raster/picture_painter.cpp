#include "engine/native/raster/picture_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "engine/native/raster/bitmap_player.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

// --- Scaling ----------------------------------------------------------------------------------

// Red, green, blue, alpha; the colours premultiplied, each of 0 to 255.
using Sum = std::array<float, 4>;

Sum Premultiplied(const std::uint8_t* pixel, bool hasAlpha) {
  const float alpha = hasAlpha ? pixel[3] : 255;
  const float share = alpha / 255;
  return {pixel[0] * share, pixel[1] * share, pixel[2] * share, alpha};
}

void Add(Sum& sum, const Sum& value, float weight) {
  for (std::size_t channel = 0; channel < sum.size(); ++channel) {
    sum[channel] += value[channel] * weight;
  }
}

std::uint32_t Pixel(const Sum& sum) {
  const auto rounded = [](float value) {
    return static_cast<std::uint32_t>(std::min(value + 0.5F, 255.0F));
  };
  return rounded(sum[3]) << 24 | rounded(sum[0]) << 16 | rounded(sum[1]) << 8 | rounded(sum[2]);
}

// How the pixels of a side fall onto fewer: pixel i covers the part of the smaller side from
// i * ratio to (i + 1) * ratio, which lies in one pixel or in two neighbours.
struct Share {
  std::size_t first = 0;
  float ofFirst = 0;
  float ofNext = 0;
};

std::vector<Share> SharesOf(std::int32_t side, std::int32_t smallerSide) {
  const double ratio = double(smallerSide) / side;
  std::vector<Share> shares(static_cast<std::size_t>(side));
  for (std::size_t i = 0; i < shares.size(); ++i) {
    const double begin = static_cast<double>(i) * ratio;
    const double end = std::min(begin + ratio, double(smallerSide));
    const auto first = std::min(static_cast<std::size_t>(begin), std::size_t(smallerSide - 1));
    const double boundary = std::min(end, static_cast<double>(first + 1));
    shares[i] = {first, static_cast<float>(boundary - begin), static_cast<float>(end - boundary)};
  }
  return shares;
}

// --- Keeping ----------------------------------------------------------------------------------

// What is drawn once for one place only may take this part of the bound.
constexpr std::size_t kDrawnShare = 16;

std::size_t BytesOf(const PixelSize& size) {
  return 4 * static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

cairo_surface_t* SurfaceOf(std::vector<std::uint32_t>& pixels, const PixelSize& size,
                           bool hasAlpha) {
  return cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()),
                                             hasAlpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24,
                                             size.width, size.height, 4 * size.width);
}

// --- Painting ---------------------------------------------------------------------------------

PictureCache& ScaledPictures() {
  return ProcessWide<PictureCache>();
}

// The whole pixels that a picture meets. In any order of the edges, for a picture may be mirrored.
PixelBox BoxOf(const PixelRectangle& target) {
  const auto low = [](double one, double other) {
    return static_cast<std::int32_t>(std::floor(std::min(one, other)));
  };
  const auto high = [](double one, double other) {
    return static_cast<std::int32_t>(std::ceil(std::max(one, other)));
  };
  return {low(target.left, target.right), low(target.top, target.bottom),
          high(target.left, target.right), high(target.top, target.bottom)};
}

}  // namespace

std::vector<std::uint32_t> ScaledDown(const PictureImage::Pixels& pixels, std::int32_t width,
                                      std::int32_t height) {
  const std::size_t channels = pixels.hasAlpha ? 4 : 3;
  const std::vector<Share> columns = SharesOf(pixels.width, width);
  const std::vector<Share> rows = SharesOf(pixels.height, height);
  const auto columnCount = static_cast<std::size_t>(width);
  // One more of each takes the empty remainders of the last ones.
  std::vector<Sum> row(columnCount + 1);
  std::vector<Sum> current(columnCount + 1);
  std::vector<Sum> next(columnCount + 1);
  std::vector<std::uint32_t> scaled(columnCount * static_cast<std::size_t>(height));

  const std::uint8_t* from = pixels.data.data();
  for (std::size_t y = 0; y < rows.size(); ++y) {
    std::fill(row.begin(), row.end(), Sum{});
    for (const Share& column : columns) {
      const Sum pixel = Premultiplied(from, pixels.hasAlpha);
      Add(row[column.first], pixel, column.ofFirst);
      if (column.ofNext > 0) Add(row[column.first + 1], pixel, column.ofNext);
      from += channels;
    }
    for (std::size_t x = 0; x < columnCount; ++x) {
      Add(current[x], row[x], rows[y].ofFirst);
      Add(next[x], row[x], rows[y].ofNext);
    }
    if (y + 1 < rows.size() && rows[y + 1].first == rows[y].first) continue;
    std::transform(current.begin(), current.end() - 1,
                   scaled.begin() + static_cast<std::ptrdiff_t>(rows[y].first * columnCount),
                   Pixel);
    current.swap(next);
    std::fill(next.begin(), next.end(), Sum{});
  }
  return scaled;
}

// Beyond its edge the picture's edge goes on, so that it does not fade out there.
void PaintPicture(cairo_t* cairo, cairo_surface_t* picture, const PixelRectangle& target) {
  const double width = target.right - target.left;
  const double height = target.bottom - target.top;
  cairo_set_source_surface(cairo, picture, 0, 0);
  cairo_matrix_t matrix{};
  cairo_matrix_init_scale(&matrix, cairo_image_surface_get_width(picture) / width,
                          cairo_image_surface_get_height(picture) / height);
  cairo_matrix_translate(&matrix, -target.left, -target.top);
  cairo_pattern_set_matrix(cairo_get_source(cairo), &matrix);
  cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
  cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_BILINEAR);
  cairo_new_path(cairo);
  cairo_rectangle(cairo, target.left, target.top, width, height);
  cairo_fill(cairo);
}

cairo_surface_t* PictureCache::Find(const PictureImageRef& picture, double width, double height) {
  const PixelSize size = SizeFor(*picture, width, height);
  if (cairo_surface_t* known = Look(picture, size, {})) return known;
  const PictureImage::PixelsRef pixels = picture->GetPixels();
  Entry entry{picture, size, {}, ScaledDown(*pixels, size.width, size.height), {}};
  entry.surface.reset(SurfaceOf(entry.pixels, size, pixels->hasAlpha));
  return Keep(std::move(entry));
}

cairo_surface_t* PictureCache::FindDrawn(const PictureImageRef& picture,
                                         const PixelRectangle& place, const PixelSize& ground) {
  if (std::max(ground.width, ground.height) > kMaximumBitmapSide) return nullptr;
  if (BytesOf(ground) > maximumBytes_ / kDrawnShare) return nullptr;
  if (cairo_surface_t* known = Look(picture, ground, place)) return known;
  Entry entry{picture, ground, place, std::vector<std::uint32_t>(BytesOf(ground) / 4), {}};
  entry.surface.reset(SurfaceOf(entry.pixels, ground, true));
  cairo_t* cairo = cairo_create(entry.surface.get());
  PaintPicture(
      cairo, Find(picture, std::abs(place.right - place.left), std::abs(place.bottom - place.top)),
      place);
  cairo_destroy(cairo);
  return Keep(std::move(entry));
}

cairo_surface_t* PictureCache::Look(const PictureImageRef& picture, const PixelSize& size,
                                    const PixelRectangle& place) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.size == size && entry.place == place && entry.picture.lock() == picture;
  });
  if (found == entries_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, found);
  return found->surface.get();
}

cairo_surface_t* PictureCache::Keep(Entry entry) {
  MakeRoom(BytesOf(entry.size));
  entries_.push_front(std::move(entry));
  bytes_ += BytesOf(entries_.front().size);
  return entries_.front().surface.get();
}

PixelSize PictureCache::SizeFor(const PictureImage& picture, double width, double height) const {
  const double maximumPixels = static_cast<double>(maximumBytes_) / 4;
  const auto side = [](double shown, std::int32_t own) {
    return std::clamp(std::ceil(shown), 1.0, double(std::min(own, kMaximumBitmapSide)));
  };
  width = side(width, picture.Width());
  height = side(height, picture.Height());
  const double reduction = std::sqrt(std::max(1.0, width * height / maximumPixels));
  return {static_cast<std::int32_t>(std::max(1.0, width / reduction)),
          static_cast<std::int32_t>(std::max(1.0, height / reduction))};
}

// Pictures that nobody holds any more go first.
void PictureCache::MakeRoom(std::size_t bytes) {
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    const auto current = entry++;
    if (!current->picture.expired()) continue;
    entries_.splice(entries_.end(), entries_, current);
    DropLast();
  }
  while (!entries_.empty() && bytes_ + bytes > maximumBytes_) DropLast();
}

void PictureCache::DropLast() {
  bytes_ -= BytesOf(entries_.back().size);
  entries_.pop_back();
}

void PicturePainter::Draw(const Rectangle& rectangle, const PictureImageRef& picture) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  const PixelRectangle target = scale_.Pixels(rectangle);
  const double width = target.right - target.left;
  const double height = target.bottom - target.top;
  if (picture == nullptr || picture->IsEmpty() || width == 0 || height == 0) return;
  const PixelBox box = BoxOf(target);
  if (Intersection(box, canvas_.Clip()).IsEmpty()) return;
  cairo_t* cairo = canvas_.Vectors(box.bottom);
  const PixelRectangle place{target.left - box.left, target.top - box.top, target.right - box.left,
                             target.bottom - box.top};
  const PixelSize ground{box.right - box.left, box.bottom - box.top};
  // On the next page and at the next scrolling it mostly stands at the same place.
  if (cairo_surface_t* drawn = ScaledPictures().FindDrawn(picture, place, ground)) {
    cairo_set_source_surface(cairo, drawn, box.left, box.top);
    cairo_new_path(cairo);
    cairo_rectangle(cairo, box.left, box.top, ground.width, ground.height);
    cairo_fill(cairo);
  } else {
    PaintPicture(cairo, ScaledPictures().Find(picture, std::abs(width), std::abs(height)), target);
  }
  // The cache may drop the surface before cairo is given another source.
  cairo_set_source_rgb(cairo, 0, 0, 0);
}

}  // namespace pagivo::native
