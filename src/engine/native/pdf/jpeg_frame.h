// What a JPEG file says about its pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace pagivo::native {

struct JpegFrame {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t components = 0;
};

// None when the bytes are no JPEG file with eight bits a sample.
std::optional<JpegFrame> ReadJpegFrame(std::span<const std::uint8_t> file);

}  // namespace pagivo::native
