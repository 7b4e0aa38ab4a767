#include "engine/native/pdf/jpeg_frame.h"

namespace pagivo::native {
namespace {

// Markers of ITU-T T.81: those of frames are 0xC0 to 0xCF but for three that are none.
bool IsFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::int32_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t position) {
  return bytes[position] << 8 | bytes[position + 1];
}

}  // namespace

std::optional<JpegFrame> ReadJpegFrame(std::span<const std::uint8_t> file) {
  constexpr std::size_t kFrameHeader = 10;  // the marker included
  if (file.size() < 2 || NumberAt(file, 0) != 0xFFD8) return std::nullopt;
  std::span<const std::uint8_t> rest = file.subspan(2);
  while (rest.size() >= kFrameHeader && rest[0] == 0xFF) {
    if (rest[1] == 0xFF) {  // fill bytes may precede a marker
      rest = rest.subspan(1);
    } else if (IsFrame(rest[1])) {
      if (rest[4] != 8) return std::nullopt;
      return JpegFrame{NumberAt(rest, 7), NumberAt(rest, 5), rest[9]};
    } else {
      const auto segment = static_cast<std::size_t>(NumberAt(rest, 2)) + 2;
      if (segment > rest.size()) return std::nullopt;
      rest = rest.subspan(segment);
    }
  }
  return std::nullopt;
}

}  // namespace pagivo::native
