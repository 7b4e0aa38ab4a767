#include "engine/native/window_pictures.h"

#include <cstdint>
#include <utility>

namespace pagivo::native {
namespace {

PictureImage::Pixels PixelsOf(const WindowImage& image) {
  PictureImage::Pixels pixels{image.width, image.height, false, {}};
  pixels.data.reserve(image.pixels.size() * 3);
  for (const std::uint32_t pixel : image.pixels) {
    pixels.data.push_back(static_cast<std::uint8_t>(pixel >> 16));
    pixels.data.push_back(static_cast<std::uint8_t>(pixel >> 8));
    pixels.data.push_back(static_cast<std::uint8_t>(pixel));
  }
  return pixels;
}

}  // namespace

PictureImageRef WindowPictures::PictureOf(const WindowImage& image) {
  PictureImage::Pixels pixels = PixelsOf(image);
  if (PictureImageRef same = FindSame(pixels)) return same;
  std::erase_if(pictures_, [](const auto& picture) { return picture.expired(); });
  auto picture =
      std::make_shared<const PictureImage>(std::move(pixels), std::vector<std::uint8_t>{});
  pictures_.push_back(picture);
  return picture;
}

PictureImageRef WindowPictures::FindSame(const PictureImage::Pixels& pixels) const {
  for (const auto& held : pictures_) {
    PictureImageRef picture = held.lock();
    if (picture && picture->GetPixels().width == pixels.width &&
        picture->GetPixels().height == pixels.height && picture->GetPixels().data == pixels.data) {
      return picture;
    }
  }
  return nullptr;
}

}  // namespace pagivo::native
