#include "engine/native/raster/picture_cache.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/native/raster/bitmap_player.h"
#include "engine/native/raster/picture_scaler.h"

namespace pagivo::native {

namespace {

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

}  // namespace

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
  Entry entry{picture, size, {}, ScaledDown(picture->GetPixels(), size.width, size.height), {}};
  entry.surface.reset(SurfaceOf(entry.pixels, size, picture->GetPixels().hasAlpha));
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
  width = side(width, picture.GetPixels().width);
  height = side(height, picture.GetPixels().height);
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

}  // namespace pagivo::native
