#include "engine/native/pictures/pixel_alpha.h"

#include <algorithm>

namespace pagivo::native {
namespace {

std::uint8_t Straight(std::uint8_t premultiplied, std::uint8_t alpha) {
  const int value = (premultiplied * 255 + alpha / 2) / alpha;
  return static_cast<std::uint8_t>(std::min(value, 255));
}

bool UsesAlpha(const std::vector<std::uint8_t>& data) {
  for (std::size_t at = 3; at < data.size(); at += 4) {
    if (data[at] != 0xFF) return true;
  }
  return false;
}

}  // namespace

void MakeAlphaStraight(std::span<std::uint8_t> data) {
  for (std::size_t at = 0; at < data.size(); at += 4) {
    const std::uint8_t alpha = data[at + 3];
    if (alpha == 0 || alpha == 0xFF) continue;
    for (std::size_t channel = at; channel < at + 3; ++channel) {
      data[channel] = Straight(data[channel], alpha);
    }
  }
}

void DropUnusedAlpha(PictureImage::Pixels& pixels) {
  std::vector<std::uint8_t>& data = pixels.data;
  if (!pixels.hasAlpha || UsesAlpha(data)) return;
  std::size_t to = 0;
  for (std::size_t from = 0; from < data.size(); from += 4, to += 3) {
    data[to] = data[from];
    data[to + 1] = data[from + 1];
    data[to + 2] = data[from + 2];
  }
  data.resize(to);
  data.shrink_to_fit();
  pixels.hasAlpha = false;
}

}  // namespace pagivo::native
