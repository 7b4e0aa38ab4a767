#include "engine/native/pictures/picture_image.h"

#include <algorithm>
#include <list>
#include <new>
#include <utility>

#include "engine/native/pictures/jpeg_decoder.h"
#include "engine/native/pictures/png_codec.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

// The stored pictures that are decoded; the one asked for last stands first.
std::list<const PictureImage*>& DecodedPictures() {
  return ProcessWide<std::list<const PictureImage*>>();
}

// What decoders refuse was looked for when the picture was loaded, so memory is all that decoding
// can lack.
PictureImage::Pixels Decoded(const StoredPicture& stored) {
  try {
    return stored.coding == StoredPicture::Coding::Jpeg ? DecodeJpeg(stored.file)
                                                        : DecodePackedPng(stored.file);
  } catch (const DecodeFailure&) {
    throw std::bad_alloc();
  }
}

std::uint8_t Straight(std::uint8_t premultiplied, std::uint8_t alpha) {
  const int value = (premultiplied * 255 + alpha / 2) / alpha;
  return static_cast<std::uint8_t>(std::min(value, 255));
}

bool UsesAlpha(const std::vector<std::uint8_t>& data) {
  for (std::size_t at = 3; at < data.size(); at += 4) {
    if (data[at] != 0xFF) return true;
  }
  return false;
}

constexpr std::size_t kSums = 5;

std::uint8_t Mean(std::uint64_t sum, std::uint64_t weight) {
  return static_cast<std::uint8_t>(weight == 0 ? 0 : (sum + weight / 2) / weight);
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

void MakeAlphaStraight(std::span<std::uint8_t> data) {
  for (std::size_t at = 0; at < data.size(); at += 4) {
    const std::uint8_t alpha = data[at + 3];
    if (alpha == 0 || alpha == 0xFF) continue;
    for (std::size_t channel = at; channel < at + 3; ++channel) {
      data[channel] = Straight(data[channel], alpha);
    }
  }
}

void DropUnusedAlpha(PictureImage::Pixels& pixels) {
  std::vector<std::uint8_t>& data = pixels.data;
  if (!pixels.hasAlpha || UsesAlpha(data)) return;
  std::size_t to = 0;
  for (std::size_t from = 0; from < data.size(); from += 4, to += 3) {
    data[to] = data[from];
    data[to + 1] = data[from + 1];
    data[to + 2] = data[from + 2];
  }
  data.resize(to);
  data.shrink_to_fit();
  pixels.hasAlpha = false;
}

std::int32_t DividedSide(std::int32_t side, std::int32_t reduction) {
  return (side + reduction - 1) / reduction;
}

std::int32_t ReductionFor(std::int64_t width, std::int64_t height, std::int64_t maximum) {
  std::int64_t reduction = 1;
  const auto divided = [&reduction](std::int64_t side) {
    return (side + reduction - 1) / reduction;
  };
  while (divided(width) * divided(height) > maximum) ++reduction;
  return static_cast<std::int32_t>(reduction);
}

RowReducer::RowReducer(std::int32_t width, std::int32_t height, bool hasAlpha,
                       std::int32_t reduction)
    : width_(width), height_(height), reduction_(reduction) {
  pixels_.width = DividedSide(width, reduction);
  pixels_.height = DividedSide(height, reduction);
  pixels_.hasAlpha = hasAlpha;
  const auto columns = static_cast<std::size_t>(pixels_.width);
  pixels_.data.reserve(columns * static_cast<std::size_t>(pixels_.height) * (hasAlpha ? 4 : 3));
  if (reduction > 1) sums_.resize(columns * kSums);
}

void RowReducer::Take(const std::uint8_t* row) {
  const std::size_t channels = pixels_.hasAlpha ? 4 : 3;
  ++taken_;
  if (reduction_ == 1) {
    pixels_.data.insert(pixels_.data.end(), row, row + static_cast<std::size_t>(width_) * channels);
    return;
  }
  std::uint64_t* sum = sums_.data();
  for (std::int32_t x = 0, inSquare = 0; x < width_; ++x, row += channels) {
    const std::uint64_t alpha = pixels_.hasAlpha ? row[3] : 0xFF;
    for (std::size_t i = 0; i < 3; ++i) sum[i] += row[i] * alpha;
    sum[3] += alpha;
    sum[4] += 1;
    if (++inSquare == reduction_) {
      inSquare = 0;
      sum += kSums;
    }
  }
  if (taken_ % reduction_ == 0 || taken_ == height_) Finish();
}

void RowReducer::Finish() {
  for (std::size_t at = 0; at < sums_.size(); at += kSums) {
    const std::uint64_t* sum = &sums_[at];
    for (std::size_t i = 0; i < 3; ++i) pixels_.data.push_back(Mean(sum[i], sum[3]));
    if (pixels_.hasAlpha) pixels_.data.push_back(Mean(sum[3], sum[4]));
  }
  std::ranges::fill(sums_, 0);
}

PictureImage::Pixels Reduced(PictureImage::Pixels pixels, std::int64_t maximum) {
  const std::int32_t reduction = ReductionFor(pixels.width, pixels.height, maximum);
  if (reduction == 1) return pixels;
  RowReducer reducer(pixels.width, pixels.height, pixels.hasAlpha, reduction);
  const std::size_t rowSize = static_cast<std::size_t>(pixels.width) * (pixels.hasAlpha ? 4 : 3);
  for (std::size_t at = 0; at < pixels.data.size(); at += rowSize) reducer.Take(&pixels.data[at]);
  return reducer.TakePixels();
}

}  // namespace pagivo::native
