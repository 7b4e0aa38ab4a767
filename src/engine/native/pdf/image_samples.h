// A picture's pixels in the most compact form that PDF has for them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// One byte a sample, rows top down.
struct ImageSamples {
  std::int32_t width = 0;
  std::int32_t height = 0;
  int samplesPerPixel = 1;
  std::vector<std::uint8_t> table;  // red, green and blue of each colour; empty where there is none
  std::string bytes;
};

// Grey when all pixels are, by a table of up to 256 colours when those are enough, else RGB.
ImageSamples MakeColorSamples(const PictureImage::Pixels& pixels);

// How opaque every pixel is. No bytes when all are.
ImageSamples MakeAlphaSamples(const PictureImage::Pixels& pixels);

// The rows as PNG predicts them, each in the way that promises the smallest result, with that way's
// number in front: predictor 15 of FlateDecode.
std::string PredictRows(const ImageSamples& samples);

}  // namespace pagivo::native
