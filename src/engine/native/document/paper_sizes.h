// The paper sizes that are known by a code, as the window system numbers them.
#pragma once

#include <cstdint>
#include <span>

namespace pagivo::native {

// Whole twips, as the paper is fed: upright, but for those whose name puts the longer side first.
struct PaperSize {
  std::int32_t code = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

inline constexpr std::int32_t kPaperA4 = 9;
// A size that the host has put; it stands in no table.
inline constexpr std::int32_t kPaperUserDefined = 256;

// A user-defined width or height, twips: 3 mm, which no Single holds exactly, to 200 inches.
inline constexpr double kMinimumPaperExtent = 170;
inline constexpr double kMaximumPaperExtent = 288000;

// Codes 1 to 41 in ascending order.
std::span<const PaperSize> KnownPaperSizes();

// Null when the code is none of those.
const PaperSize* FindPaperSize(std::int32_t code);

}  // namespace pagivo::native
