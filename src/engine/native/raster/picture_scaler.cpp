#include "engine/native/raster/picture_scaler.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace pagivo::native {
namespace {

// Red, green, blue, alpha; the colours premultiplied, each of 0 to 255.
using Sum = std::array<float, 4>;

Sum Premultiplied(const std::uint8_t* pixel, bool hasAlpha) {
  const float alpha = hasAlpha ? pixel[3] : 255;
  const float share = alpha / 255;
  return {pixel[0] * share, pixel[1] * share, pixel[2] * share, alpha};
}

void Add(Sum& sum, const Sum& value, float weight) {
  for (std::size_t channel = 0; channel < sum.size(); ++channel) {
    sum[channel] += value[channel] * weight;
  }
}

std::uint32_t Pixel(const Sum& sum) {
  const auto rounded = [](float value) {
    return static_cast<std::uint32_t>(std::min(value + 0.5F, 255.0F));
  };
  return rounded(sum[3]) << 24 | rounded(sum[0]) << 16 | rounded(sum[1]) << 8 | rounded(sum[2]);
}

// How the pixels of a side fall onto fewer: pixel i covers the part of the smaller side from
// i * ratio to (i + 1) * ratio, which lies in one pixel or in two neighbours.
struct Share {
  std::size_t first = 0;
  float ofFirst = 0;
  float ofNext = 0;
};

std::vector<Share> SharesOf(std::int32_t side, std::int32_t smallerSide) {
  const double ratio = double(smallerSide) / side;
  std::vector<Share> shares(static_cast<std::size_t>(side));
  for (std::size_t i = 0; i < shares.size(); ++i) {
    const double begin = static_cast<double>(i) * ratio;
    const double end = std::min(begin + ratio, double(smallerSide));
    const auto first = std::min(static_cast<std::size_t>(begin), std::size_t(smallerSide - 1));
    const double boundary = std::min(end, static_cast<double>(first + 1));
    shares[i] = {first, static_cast<float>(boundary - begin), static_cast<float>(end - boundary)};
  }
  return shares;
}

}  // namespace

std::vector<std::uint32_t> ScaledDown(const PictureImage::Pixels& pixels, std::int32_t width,
                                      std::int32_t height) {
  const std::size_t channels = pixels.hasAlpha ? 4 : 3;
  const std::vector<Share> columns = SharesOf(pixels.width, width);
  const std::vector<Share> rows = SharesOf(pixels.height, height);
  const auto columnCount = static_cast<std::size_t>(width);
  // One more of each takes the empty remainders of the last ones.
  std::vector<Sum> row(columnCount + 1);
  std::vector<Sum> current(columnCount + 1);
  std::vector<Sum> next(columnCount + 1);
  std::vector<std::uint32_t> scaled(columnCount * static_cast<std::size_t>(height));

  const std::uint8_t* from = pixels.data.data();
  for (std::size_t y = 0; y < rows.size(); ++y) {
    std::fill(row.begin(), row.end(), Sum{});
    for (const Share& column : columns) {
      const Sum pixel = Premultiplied(from, pixels.hasAlpha);
      Add(row[column.first], pixel, column.ofFirst);
      if (column.ofNext > 0) Add(row[column.first + 1], pixel, column.ofNext);
      from += channels;
    }
    for (std::size_t x = 0; x < columnCount; ++x) {
      Add(current[x], row[x], rows[y].ofFirst);
      Add(next[x], row[x], rows[y].ofNext);
    }
    if (y + 1 < rows.size() && rows[y + 1].first == rows[y].first) continue;
    std::transform(current.begin(), current.end() - 1,
                   scaled.begin() + static_cast<std::ptrdiff_t>(rows[y].first * columnCount),
                   Pixel);
    current.swap(next);
    std::fill(next.begin(), next.end(), Sum{});
  }
  return scaled;
}

}  // namespace pagivo::native
