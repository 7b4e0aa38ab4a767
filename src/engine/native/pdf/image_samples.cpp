#include "engine/native/pdf/image_samples.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <unordered_map>

namespace pagivo::native {
namespace {

constexpr std::size_t kMostTableColors = 256;

std::size_t PixelSize(const PictureImage::Pixels& pixels) {
  return pixels.hasAlpha ? 4 : 3;
}

ImageSamples EmptySamples(const PictureImage::Pixels& pixels, int samplesPerPixel) {
  ImageSamples samples{pixels.width, pixels.height, samplesPerPixel, {}, {}};
  samples.bytes.reserve(pixels.data.size() / PixelSize(pixels) *
                        static_cast<std::size_t>(samplesPerPixel));
  return samples;
}

template <typename Function>
void ForEachPixel(const PictureImage::Pixels& pixels, Function function) {
  const std::size_t size = PixelSize(pixels);
  for (std::size_t i = 0; i + size <= pixels.data.size(); i += size) function(&pixels.data[i]);
}

std::uint32_t ColorOf(const std::uint8_t* pixel) {
  return static_cast<std::uint32_t>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

bool IsGray(const PictureImage::Pixels& pixels) {
  bool gray = true;
  ForEachPixel(pixels, [&gray](const std::uint8_t* pixel) {
    gray = gray && pixel[0] == pixel[1] && pixel[0] == pixel[2];
  });
  return gray;
}

// Colours in order of appearance.
struct ColorTable {
  std::vector<std::uint8_t> colors;  // red, green and blue of each
  std::unordered_map<std::uint32_t, std::uint8_t> indexes;
};

std::optional<ColorTable> MakeColorTable(const PictureImage::Pixels& pixels) {
  ColorTable table;
  const std::size_t size = PixelSize(pixels);
  for (std::size_t i = 0; i + size <= pixels.data.size(); i += size) {
    const std::uint32_t color = ColorOf(&pixels.data[i]);
    const std::size_t count = table.indexes.size();
    if (!table.indexes.try_emplace(color, static_cast<std::uint8_t>(count)).second) continue;
    if (count == kMostTableColors) return std::nullopt;
    table.colors.insert(table.colors.end(), &pixels.data[i], &pixels.data[i] + 3);
  }
  return table;
}

int Paeth(int left, int above, int aboveLeft) {
  const int estimate = left + above - aboveLeft;
  const int fromLeft = std::abs(estimate - left);
  const int fromAbove = std::abs(estimate - above);
  const int fromAboveLeft = std::abs(estimate - aboveLeft);
  if (fromLeft <= fromAbove && fromLeft <= fromAboveLeft) return left;
  return fromAbove <= fromAboveLeft ? above : aboveLeft;
}

// PNG's ways of predicting a sample, in the order of their numbers.
constexpr std::array<int (*)(int left, int above, int aboveLeft), 5> kPredictors = {
    [](int, int, int) { return 0; },
    [](int left, int, int) { return left; },
    [](int, int above, int) { return above; },
    [](int left, int above, int) { return (left + above) / 2; },
    Paeth,
};

std::string PredictRow(std::string_view row, std::string_view above, std::size_t pixelSize,
                       std::size_t way) {
  std::string result(1, static_cast<char>(way));
  const auto sample = [](std::string_view samples, std::size_t i) {
    return static_cast<int>(static_cast<unsigned char>(samples[i]));
  };
  for (std::size_t i = 0; i < row.size(); ++i) {
    const bool first = i < pixelSize;
    const int predicted = kPredictors[way](first ? 0 : sample(row, i - pixelSize), sample(above, i),
                                           first ? 0 : sample(above, i - pixelSize));
    result.push_back(static_cast<char>(sample(row, i) - predicted));
  }
  return result;
}

// Small differences compress best, whichever their sign.
std::int64_t CostOf(std::string_view predicted) {
  std::int64_t cost = 0;
  for (const char byte : predicted.substr(1)) cost += std::abs(static_cast<signed char>(byte));
  return cost;
}

}  // namespace

ImageSamples MakeColorSamples(const PictureImage::Pixels& pixels) {
  if (IsGray(pixels)) {
    ImageSamples samples = EmptySamples(pixels, 1);
    ForEachPixel(pixels, [&samples](const std::uint8_t* pixel) {
      samples.bytes.push_back(static_cast<char>(pixel[0]));
    });
    return samples;
  }
  if (const std::optional<ColorTable> table = MakeColorTable(pixels)) {
    ImageSamples samples = EmptySamples(pixels, 1);
    samples.table = table->colors;
    ForEachPixel(pixels, [&](const std::uint8_t* pixel) {
      samples.bytes.push_back(static_cast<char>(table->indexes.at(ColorOf(pixel))));
    });
    return samples;
  }
  ImageSamples samples = EmptySamples(pixels, 3);
  ForEachPixel(pixels, [&samples](const std::uint8_t* pixel) {
    for (int i = 0; i < 3; ++i) samples.bytes.push_back(static_cast<char>(pixel[i]));
  });
  return samples;
}

ImageSamples MakeAlphaSamples(const PictureImage::Pixels& pixels) {
  if (!pixels.hasAlpha) return {};
  ImageSamples samples = EmptySamples(pixels, 1);
  ForEachPixel(pixels, [&samples](const std::uint8_t* pixel) {
    samples.bytes.push_back(static_cast<char>(pixel[3]));
  });
  const bool opaque = std::ranges::all_of(samples.bytes, [](char c) { return c == '\xFF'; });
  if (opaque) samples.bytes.clear();
  return samples;
}

std::string PredictRows(const ImageSamples& samples) {
  const auto pixelSize = static_cast<std::size_t>(samples.samplesPerPixel);
  const std::size_t rowSize = static_cast<std::size_t>(samples.width) * pixelSize;
  const std::string noRow(rowSize, '\0');
  std::string_view above = noRow;
  std::string result;
  result.reserve(samples.bytes.size() + static_cast<std::size_t>(samples.height));
  for (std::size_t begin = 0; begin < samples.bytes.size(); begin += rowSize) {
    const std::string_view row = std::string_view(samples.bytes).substr(begin, rowSize);
    std::string best;
    std::int64_t bestCost = INT64_MAX;
    for (std::size_t way = 0; way < kPredictors.size(); ++way) {
      std::string predicted = PredictRow(row, above, pixelSize, way);
      const std::int64_t cost = CostOf(predicted);
      if (cost >= bestCost) continue;
      bestCost = cost;
      best = std::move(predicted);
    }
    result += best;
    above = row;
  }
  return result;
}

}  // namespace pagivo::native
