// Decoded pixels brought into the form that a picture keeps.
#pragma once

#include <span>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

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

  // RGB, or RGBA with straight alpha.
  void Take(const std::uint8_t* row);
  // When all rows were given.
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

// The picture of at most `maximum` pixels.
PictureImage::Pixels Reduced(PictureImage::Pixels pixels, std::int64_t maximum);

}  // namespace pagivo::native
