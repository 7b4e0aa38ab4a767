// Opaque colours mixed into pixels: no coverage changes nothing, and full coverage leaves the
// colour itself. One pixel and four at a time give the same.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

class Ink {
 public:
  explicit Ink(Color color)
      : pixel_(0xFF000000U | std::uint32_t{RedOf(color)} << 16 |
               std::uint32_t{GreenOf(color)} << 8 | BlueOf(color)) {
    std::array<std::uint8_t, 4> channels{};
    std::memcpy(channels.data(), &pixel_, sizeof pixel_);
    for (std::size_t i = 0; i < 8; ++i) words_[i] = channels[i % 4];
  }

  // Coverages are 0 to 255.
  void Blend(std::uint32_t& pixel, std::uint32_t coverage) const {
    const std::uint32_t share = coverage + (coverage >> 7);
    const Channels mixed =
        (Spread(pixel) * (256 - share) + Spread(pixel_) * share + kHalves) >> 8 & kChannelMask;
    pixel = static_cast<std::uint32_t>(mixed | mixed >> 24);
  }

  // A run of pixels that are all covered as much.
  void BlendRun(std::uint32_t* begin, std::uint32_t* end, std::uint32_t coverage) const {
    if (coverage == 255) return std::fill(begin, end, pixel_);
    for (; begin < end; ++begin) Blend(*begin, coverage);
  }

  // Pixels with a coverage each.
  void BlendRow(std::uint32_t* row, const std::uint8_t* coverages, std::int32_t count) const {
    for (; count >= 4; count -= 4, row += 4, coverages += 4) BlendFour(row, coverages);
    for (; count > 0; --count) Blend(*row++, *coverages++);
  }

 private:
  // A pixel's four channels with eight bits of room above each, so that one multiplication serves
  // all.
  using Channels = std::uint64_t;
  static constexpr Channels kChannelMask = 0x00FF00FF00FF00FF;
  static constexpr Channels kHalves = 0x0080008000800080;

  static constexpr Channels Spread(std::uint32_t pixel) {
    return (pixel | Channels{pixel} << 24) & kChannelMask;
  }

  // The compiler's vectors, of the width that every processor of the platform has.
  using Bytes = std::uint8_t __attribute__((vector_size(16)));
  using Words = std::uint16_t __attribute__((vector_size(16)));
  using Pixels = std::uint32_t __attribute__((vector_size(16)));

  // Interleaved, so that a byte of `high` and one of `low` make a word.
  static Words LowWords(Bytes high, Bytes low) {
    return reinterpret_cast<Words>(
        __builtin_shufflevector(low, high, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
  }
  static Words HighWords(Bytes high, Bytes low) {
    return reinterpret_cast<Words>(__builtin_shufflevector(low, high, 8, 24, 9, 25, 10, 26, 11, 27,
                                                           12, 28, 13, 29, 14, 30, 15, 31));
  }

  // `under` comes 256 times as large and a half more. Differences below 0 come right again in the
  // sum, which fits.
  Words Mixed(Words under, Words coverage) const {
    const Words share = coverage + (coverage >> 7);
    return (under + (words_ - (under >> 8)) * share) >> 8;
  }

  void BlendFour(std::uint32_t* pixels, const std::uint8_t* coverages) const {
    std::uint32_t four = 0;
    std::memcpy(&four, coverages, sizeof four);
    const Bytes packed = reinterpret_cast<Bytes>(Pixels{four});
    const Words twice = LowWords(packed, packed);
    const Bytes covered =
        reinterpret_cast<Bytes>(__builtin_shufflevector(twice, twice, 0, 8, 1, 9, 2, 10, 3, 11));
    Bytes under;
    std::memcpy(&under, pixels, sizeof under);
    const Bytes half = Bytes{} + 128;
    const Bytes none{};
    const auto low = reinterpret_cast<Bytes>(Mixed(LowWords(under, half), LowWords(none, covered)));
    const auto high =
        reinterpret_cast<Bytes>(Mixed(HighWords(under, half), HighWords(none, covered)));
    const Bytes mixed = __builtin_shufflevector(low, high, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20,
                                                22, 24, 26, 28, 30);
    std::memcpy(pixels, &mixed, sizeof mixed);
  }

  std::uint32_t pixel_;
  Words words_{};  // two pixels of the colour
};

}  // namespace pagivo::native
