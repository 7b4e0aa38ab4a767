// The pictures that travel inside the library, embedded when it is built.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace pagivo {

// The toolbar's images as PNG files, in the order of kImageKeys: 16 x 16 and 32 x 32 pixels,
// transparent, to be seen on light and on dark grounds.
extern const std::array<std::span<const std::uint8_t>, 7> kToolbarImages16;
extern const std::array<std::span<const std::uint8_t>, 7> kToolbarImages32;

// The watermark pictures as files, in the order of imageWatermerk; 288 x 396 pixels each.
extern const std::array<std::span<const std::uint8_t>, 3> kWatermarkFiles;

}  // namespace pagivo
