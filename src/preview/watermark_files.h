// The watermark pictures as files, embedded when the library is built.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace pagivo {

// In the order of imageWatermerk; 288 x 396 pixels each.
extern const std::array<std::span<const std::uint8_t>, 3> kWatermarkFiles;

}  // namespace pagivo
