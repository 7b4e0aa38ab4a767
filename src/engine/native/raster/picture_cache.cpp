#include "engine/native/raster/picture_cache.h"

#include <algorithm>
#include <cmath>

#include "engine/native/raster/bitmap_player.h"
#include "engine/native/raster/picture_scaler.h"

namespace pagivo::native {

cairo_surface_t* PictureCache::Find(const PictureImageRef& picture, double width, double height) {
  const Size size = SizeFor(*picture, width, height);
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.size == size && entry.picture.lock() == picture;
  });
  if (found != entries_.end()) {
    entries_.splice(entries_.begin(), entries_, found);
  } else {
    MakeRoom(size.Bytes());
    entries_.push_front(Make(picture, size));
    bytes_ += size.Bytes();
  }
  return entries_.front().surface.get();
}

PictureCache::Size PictureCache::SizeFor(const PictureImage& picture, double width,
                                         double height) const {
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

PictureCache::Entry PictureCache::Make(const PictureImageRef& picture, Size size) {
  Entry entry{picture, size, ScaledDown(picture->GetPixels(), size.width, size.height), nullptr};
  const cairo_format_t format =
      picture->GetPixels().hasAlpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24;
  entry.surface.reset(
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(entry.pixels.data()),
                                          format, size.width, size.height, 4 * size.width));
  return entry;
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
  bytes_ -= entries_.back().size.Bytes();
  entries_.pop_back();
}

}  // namespace pagivo::native
