// Opaque colours mixed into pixels: no coverage changes nothing, and full coverage leaves the
// colour itself. One pixel and several at a time give the same, on every processor.
#pragma once

#include <algorithm>
#include <cstdint>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

// Rows of pixels with a coverage each; `stride` pixels and `pitch` coverages lead from row to row.
struct CoveredRows {
  std::uint32_t* pixels = nullptr;
  std::ptrdiff_t stride = 0;
  const std::uint8_t* coverages = nullptr;
  std::ptrdiff_t pitch = 0;
  std::int32_t width = 0;
  std::int32_t height = 1;
};

class Ink {
 public:
  explicit Ink(Color color)
      : pixel_(0xFF000000U | std::uint32_t{RedOf(color)} << 16 |
               std::uint32_t{GreenOf(color)} << 8 | BlueOf(color)) {}

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

  // As many pixels at a time as this processor can.
  void BlendRows(const CoveredRows& rows) const;
  // Four at a time, which every processor of the platform can.
  void BlendRowsInFours(const CoveredRows& rows) const;

 private:
  // A pixel's four channels with eight bits of room above each, so that one multiplication serves
  // all.
  using Channels = std::uint64_t;
  static constexpr Channels kChannelMask = 0x00FF00FF00FF00FF;
  static constexpr Channels kHalves = 0x0080008000800080;

  static constexpr Channels Spread(std::uint32_t pixel) {
    return (pixel | Channels{pixel} << 24) & kChannelMask;
  }

  std::uint32_t pixel_;
};

}  // namespace pagivo::native
