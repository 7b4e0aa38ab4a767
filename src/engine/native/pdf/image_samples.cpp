#include "engine/native/pdf/image_samples.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

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

// By a table of the colours in order of appearance; nothing when they are too many.
std::optional<ImageSamples> MakeTableSamples(const PictureImage::Pixels& pixels) {
  ImageSamples samples = EmptySamples(pixels, 1);
  std::unordered_map<std::uint32_t, std::uint8_t> indexes;
  std::optional<std::uint32_t> last;
  std::uint8_t index = 0;
  const std::size_t size = PixelSize(pixels);
  for (std::size_t i = 0; i + size <= pixels.data.size(); i += size) {
    const std::uint32_t color = ColorOf(&pixels.data[i]);
    if (color != last) {
      const std::size_t count = indexes.size();
      const auto [place, added] = indexes.try_emplace(color, static_cast<std::uint8_t>(count));
      if (added && count == kMostTableColors) return std::nullopt;
      if (added) samples.table.insert(samples.table.end(), &pixels.data[i], &pixels.data[i] + 3);
      index = place->second;
      last = color;
    }
    samples.bytes.push_back(static_cast<char>(index));
  }
  return samples;
}

// A row and the one above it, each behind a pixel of zeros: what PNG takes to be beside a picture.
struct RowPair {
  RowPair(std::size_t samplesPerPixel, std::size_t rowSize)
      : pixelSize(samplesPerPixel), row(pixelSize + rowSize), above(pixelSize + rowSize) {}

  void Advance(std::string_view next) {
    row.swap(above);
    std::ranges::copy(next, row.begin() + static_cast<std::ptrdiff_t>(pixelSize));
  }

  std::size_t pixelSize;
  std::vector<std::uint8_t> row;
  std::vector<std::uint8_t> above;
};

int Paeth(int left, int above, int aboveLeft) {
  const int estimate = left + above - aboveLeft;
  const int fromLeft = std::abs(estimate - left);
  const int fromAbove = std::abs(estimate - above);
  const int fromAboveLeft = std::abs(estimate - aboveLeft);
  if (fromLeft <= fromAbove && fromLeft <= fromAboveLeft) return left;
  return fromAbove <= fromAboveLeft ? above : aboveLeft;
}

// Puts what the samples of a row differ from their predictions by into `differences`. Small ones
// compress best, whichever their sign: gives the sum of their sizes.
template <auto kPredict>
std::uint64_t PredictRow(const RowPair& rows, std::uint8_t* differences) {
  const std::uint8_t* const left = rows.row.data();
  const std::uint8_t* const aboveLeft = rows.above.data();
  const std::uint8_t* const row = left + rows.pixelSize;
  const std::uint8_t* const above = aboveLeft + rows.pixelSize;
  const std::size_t size = rows.row.size() - rows.pixelSize;
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const auto difference =
        static_cast<std::int8_t>(row[i] - kPredict(left[i], above[i], aboveLeft[i]));
    differences[i] = static_cast<std::uint8_t>(difference);
    sum += static_cast<std::uint32_t>(std::abs(difference));
  }
  return sum;
}

// PNG's ways of predicting a sample, in the order of their numbers.
constexpr std::array kWays = {
    PredictRow<[](int, int, int) { return 0; }>,
    PredictRow<[](int left, int, int) { return left; }>,
    PredictRow<[](int, int above, int) { return above; }>,
    PredictRow<[](int left, int above, int) { return (left + above) / 2; }>,
    PredictRow<Paeth>,
};

}  // namespace

ImageSamples MakeColorSamples(const PictureImage::Pixels& pixels) {
  if (IsGray(pixels)) {
    ImageSamples samples = EmptySamples(pixels, 1);
    ForEachPixel(pixels, [&samples](const std::uint8_t* pixel) {
      samples.bytes.push_back(static_cast<char>(pixel[0]));
    });
    return samples;
  }
  if (std::optional<ImageSamples> samples = MakeTableSamples(pixels)) return std::move(*samples);
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
  RowPair rows(pixelSize, rowSize);
  std::vector<std::uint8_t> predicted(1 + rowSize);
  std::vector<std::uint8_t> best(1 + rowSize);
  std::string result;
  result.reserve(samples.bytes.size() + static_cast<std::size_t>(samples.height));
  for (std::size_t begin = 0; begin < samples.bytes.size(); begin += rowSize) {
    rows.Advance(std::string_view(samples.bytes).substr(begin, rowSize));
    std::uint64_t least = UINT64_MAX;
    for (std::size_t way = 0; way < kWays.size(); ++way) {
      predicted[0] = static_cast<std::uint8_t>(way);
      const std::uint64_t sum = kWays[way](rows, &predicted[1]);
      if (sum >= least) continue;
      least = sum;
      best.swap(predicted);
    }
    result.append(best.begin(), best.end());
  }
  return result;
}

}  // namespace pagivo::native
