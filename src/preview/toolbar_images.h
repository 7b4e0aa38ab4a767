// The toolbar's images as PNG files, embedded when the library is built.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace pagivo {

// In the order of kImageKeys: 16 x 16 and 32 x 32 pixels, transparent, to be seen on light and on
// dark grounds.
extern const std::array<std::span<const std::uint8_t>, 7> kToolbarImages16;
extern const std::array<std::span<const std::uint8_t>, 7> kToolbarImages32;

}  // namespace pagivo
