#include "equality/grey_image.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <stdexcept>

namespace pagivo::test {
namespace {

// The mean of each window of 2 radius + 1 pixels along one axis; windows are cut at the edges.
GreyImage MeansAlong(const GreyImage& image, int radius, bool horizontally) {
  GreyImage result{image.width, image.height, std::vector<float>(image.pixels.size())};
  const int length = horizontally ? image.width : image.height;
  const int lines = horizontally ? image.height : image.width;
  const auto at = [&](int line, int i) {
    return horizontally ? image.At(i, line) : image.At(line, i);
  };
  for (int line = 0; line < lines; ++line) {
    for (int i = 0; i < length; ++i) {
      const int first = std::max(i - radius, 0);
      const int last = std::min(i + radius, length - 1);
      float sum = 0;
      for (int j = first; j <= last; ++j) sum += at(line, j);
      (horizontally ? result.At(i, line) : result.At(line, i)) =
          sum / static_cast<float>(last - first + 1);
    }
  }
  return result;
}

}  // namespace

GreyImage ReadPng(const std::string& path) {
  const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface(
      cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error("no PNG: " + path);
  }
  GreyImage image{cairo_image_surface_get_width(surface.get()),
                  cairo_image_surface_get_height(surface.get()),
                  {}};
  const unsigned char* row = cairo_image_surface_get_data(surface.get());
  for (int y = 0; y < image.height; ++y) {
    const auto* pixel = reinterpret_cast<const std::uint32_t*>(row);
    for (int x = 0; x < image.width; ++x) {
      const std::uint32_t value = pixel[x];
      image.pixels.push_back(0.299F * static_cast<float>(value >> 16 & 0xFF) +
                             0.587F * static_cast<float>(value >> 8 & 0xFF) +
                             0.114F * static_cast<float>(value & 0xFF));
    }
    row += cairo_image_surface_get_stride(surface.get());
  }
  return image;
}

GreyImage Blurred(const GreyImage& image, int radius) {
  return MeansAlong(MeansAlong(image, radius, true), radius, false);
}

Difference DifferenceOf(const GreyImage& one, const GreyImage& other) {
  if (std::abs(one.width - other.width) > 1 || std::abs(one.height - other.height) > 1) {
    throw std::runtime_error("the pictures differ in size");
  }
  const int width = std::min(one.width, other.width);
  const int height = std::min(one.height, other.height);
  Difference difference;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const float delta = std::abs(one.At(x, y) - other.At(x, y));
      difference.mean += delta;
      if (delta > kStray) difference.strayPixels += 1;
    }
  }
  const double count = static_cast<double>(width) * height;
  difference.mean /= count;
  difference.strayPixels /= count;
  return difference;
}

InkCentre InkCentreOf(const GreyImage& image, const Window& window) {
  InkCentre centre;
  for (int y = window.top; y < window.bottom; ++y) {
    for (int x = window.left; x < window.right; ++x) {
      const double ink = 1 - image.At(x, y) / 255.0;
      centre.ink += ink;
      centre.x += ink * (x + 0.5);
      centre.y += ink * (y + 0.5);
    }
  }
  if (centre.ink > 0) {
    centre.x /= centre.ink;
    centre.y /= centre.ink;
  }
  return centre;
}

}  // namespace pagivo::test
