#include "engine/native/pictures/picture_image.h"

#include <algorithm>
#include <list>
#include <new>
#include <utility>

#include "engine/native/pictures/decoded_pixels.h"
#include "engine/native/pictures/jpeg_decoder.h"
#include "engine/native/pictures/png_codec.h"

namespace pagivo::native {
namespace {

// The stored pictures that are decoded; the one asked for last stands first. The list outlives the
// program's other objects, for pictures may be among them.
std::list<const PictureImage*>& DecodedPictures() {
  static auto& pictures = *new std::list<const PictureImage*>;
  return pictures;
}

// The file was looked at when the picture was loaded, so memory is all that decoding can lack.
PictureImage::Pixels Decoded(const StoredPicture& stored) {
  try {
    return stored.coding == StoredPicture::Coding::Jpeg ? DecodeJpeg(stored.file)
                                                        : DecodePng(stored.file);
  } catch (const DecodeFailure&) {
    throw std::bad_alloc();
  }
}

}  // namespace

PictureImage::PictureImage(Pixels pixels)
    : width_(pixels.width),
      height_(pixels.height),
      pixels_(std::make_shared<const Pixels>(std::move(pixels))) {}

PictureImage::PictureImage(StoredPicture stored, std::int32_t width, std::int32_t height)
    : width_(width), height_(height), stored_(std::move(stored)) {}

PictureImage::~PictureImage() {
  if (stored_ && pixels_) DecodedPictures().remove(this);
}

PictureImage::PixelsRef PictureImage::GetPixels() const {
  if (!stored_) return pixels_;
  if (!pixels_) pixels_ = std::make_shared<const Pixels>(Decoded(*stored_));
  KeepDecoded();
  return pixels_;
}

// The last one asked for stays, whatever its size.
void PictureImage::KeepDecoded() const {
  std::list<const PictureImage*>& pictures = DecodedPictures();
  const auto place = std::ranges::find(pictures, this);
  if (place == pictures.end()) {
    pictures.push_front(this);
  } else {
    pictures.splice(pictures.begin(), pictures, place);
  }
  std::int64_t pixels = 0;
  auto next = pictures.begin();
  for (; next != pictures.end(); ++next) {
    pixels += std::int64_t{(*next)->width_} * (*next)->height_;
    if (next != pictures.begin() && pixels > kMaximumDecodedPixels) break;
  }
  for (auto dropped = next; dropped != pictures.end(); ++dropped) (*dropped)->pixels_ = nullptr;
  pictures.erase(next, pictures.end());
}

}  // namespace pagivo::native
