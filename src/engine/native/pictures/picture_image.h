// A loaded picture, what a Variant holding a picture object refers to, and its pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "pagivo/picture.h"

namespace pagivo::native {

// A picture as its file holds it, in a coding that PDF knows too. It can be decoded at any time:
// what decoders refuse was looked for when it was loaded, and damage within its data costs nothing
// but pixels.
struct StoredPicture {
  enum class Coding : std::uint8_t { Jpeg, Png };

  Coding coding = Coding::Jpeg;
  std::int32_t width = 0;  // of the file; fewer pixels may be kept of a large one
  std::int32_t height = 0;
  int samplesPerPixel = 3;           // 1 for grey and for an index into the colours
  std::vector<std::uint8_t> colors;  // red, green and blue of each; empty where there is no table
  std::vector<std::uint8_t> file;
  // What PDF takes of the file: all of a JPEG, the packed rows of a PNG.
  std::size_t dataBegin = 0;
  std::size_t dataSize = 0;

  std::span<const std::uint8_t> Data() const {
    return std::span(file).subspan(dataBegin, dataSize);
  }
};

// Pixels are immutable once loaded. An empty picture has neither width nor height and draws
// nothing.
class PictureImage : public Picture {
 public:
  struct Pixels {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool hasAlpha = false;
    // Rows top down without padding; RGB (3 bytes a pixel), or RGBA with straight (not
    // premultiplied) alpha (4 bytes) when hasAlpha.
    std::vector<std::uint8_t> data;
  };
  using PixelsRef = std::shared_ptr<const Pixels>;

  PictureImage() : PictureImage(Pixels()) {}
  explicit PictureImage(Pixels pixels);
  // A picture that is decoded when its pixels are asked for. `width` and `height` are those of the
  // decoded pixels.
  PictureImage(StoredPicture stored, std::int32_t width, std::int32_t height);
  ~PictureImage() override;
  PictureImage(const PictureImage&) = delete;
  PictureImage& operator=(const PictureImage&) = delete;

  // How many pixels of stored pictures stay decoded when nobody holds them.
  static constexpr std::int64_t kMaximumDecodedPixels = 3 << 23;

  bool IsEmpty() const noexcept { return width_ == 0 || height_ == 0; }
  std::int32_t Width() const noexcept { return width_; }
  std::int32_t Height() const noexcept { return height_; }

  // Whoever holds the answer has the pixels as long. Those of a stored picture are decoded when
  // they are asked for, and let go when others have been asked for since (kMaximumDecodedPixels).
  PixelsRef GetPixels() const;
  // The file of a picture that PDF takes as it is; null for another.
  const StoredPicture* Stored() const noexcept { return stored_ ? &*stored_ : nullptr; }

 private:
  void KeepDecoded() const;

  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  std::optional<const StoredPicture> stored_;
  mutable PixelsRef pixels_;  // null while a stored picture is not decoded
};

using PictureImageRef = std::shared_ptr<const PictureImage>;

// --- Decoded pixels brought into the form that a picture keeps

// Makes premultiplied colours straight: four bytes a pixel, red first.
void MakeAlphaStraight(std::span<std::uint8_t> data);

// Most files with an alpha channel make no use of it; without it their pixels take less room and
// are drawn faster.
void DropUnusedAlpha(PictureImage::Pixels& pixels);

// A side made smaller by a whole number, a rest counting as a pixel.
std::int32_t DividedSide(std::int32_t side, std::int32_t reduction);

// The whole number by which both sides are divided so that no more than `maximum` pixels stay.
std::int32_t ReductionFor(std::int64_t width, std::int64_t height, std::int64_t maximum);

// A picture that is given row by row, from the top, and made smaller on the way: each pixel the
// mean of a square of pixels, alpha weighing.
class RowReducer {
 public:
  RowReducer(std::int32_t width, std::int32_t height, bool hasAlpha, std::int32_t reduction);

  // Takes the next row: RGB, or RGBA with straight alpha.
  void Take(const std::uint8_t* row);
  // Gives the picture, when all rows were taken.
  PictureImage::Pixels TakePixels() { return std::move(pixels_); }

 private:
  void Finish();

  std::int32_t width_;
  std::int32_t height_;
  std::int32_t reduction_;
  std::int32_t taken_ = 0;
  std::vector<std::uint64_t> sums_;  // by pixel of the smaller row: red, green, blue, alpha, count
  PictureImage::Pixels pixels_;
};

// Makes the picture smaller where it has more than `maximum` pixels.
PictureImage::Pixels Reduced(PictureImage::Pixels pixels, std::int64_t maximum);

}  // namespace pagivo::native
