#include "engine/native/document/storage.h"

#include <algorithm>
#include <bit>

namespace pagivo::native {
namespace {

std::size_t Combine(std::size_t hash, std::size_t more) {
  return (hash ^ more) * 0x9E3779B97F4A7C15ULL;
}

// 0.0 and -0.0 are equal and must hash alike.
std::size_t HashOf(float number) {
  return std::bit_cast<std::uint32_t>(number + 0.0F);
}

}  // namespace

void Arena::AddChunk(std::size_t atLeast) {
  const std::size_t size = std::max(atLeast, kChunkSize);
  chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
  next_ = chunks_.back().get();
  free_ = size;
  bytes_ += size;
}

std::size_t FontHash::operator()(const FontDescription& font) const noexcept {
  const unsigned styles =
      unsigned{font.bold} | unsigned{font.italic} << 1 | unsigned{font.underline} << 2;
  return Combine(Combine(std::hash<std::string>{}(font.name), HashOf(font.size)), styles);
}

std::size_t PenHash::operator()(const Pen& pen) const noexcept {
  return Combine(Combine(static_cast<std::size_t>(pen.style), HashOf(pen.width)), pen.color);
}

std::size_t BrushHash::operator()(const Brush& brush) const noexcept {
  return Combine(static_cast<std::size_t>(brush.style), brush.color);
}

}  // namespace pagivo::native
