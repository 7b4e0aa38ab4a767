// Page pictures compared: grey values, blurred, and where their ink lies.
#pragma once

#include <string>
#include <vector>

namespace pagivo::test {

// 0 is black, 255 white; rows top down.
struct GreyImage {
  int width = 0;
  int height = 0;
  std::vector<float> pixels;

  float At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
  float& At(int x, int y) {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

// Raises std::runtime_error when the file is no PNG.
GreyImage ReadPng(const std::string& path);

// Every pixel the mean of the (2 radius + 1) square around it, so that differences of a fraction of
// a pixel in antialiasing weigh little and misplaced ink weighs fully.
GreyImage Blurred(const GreyImage& image, int radius);

struct Difference {
  double mean = 0;         // mean absolute difference, grey values
  double strayPixels = 0;  // fraction of pixels that differ by more than kStray
};
inline constexpr float kStray = 48;

// Of two images that may differ by one row or column in size (readers round page sizes
// differently).
Difference DifferenceOf(const GreyImage& one, const GreyImage& other);

// A part of an image, in pixels.
struct Window {
  int left = 0;
  int top = 0;
  int right = 0;  // exclusive
  int bottom = 0;
};

struct InkCentre {
  double x = 0;
  double y = 0;
  double ink = 0;  // the sum of darkness, 1 for a black pixel
};
InkCentre InkCentreOf(const GreyImage& image, const Window& window);

}  // namespace pagivo::test
