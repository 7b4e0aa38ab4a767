#include "engine/native/document/storage.h"

#include <algorithm>
#include <bit>

#include "values/hashes.h"

namespace pagivo::native {
namespace {

// 0.0 and -0.0 are equal and must hash alike.
std::uint32_t BitsOf(float number) {
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
  return TableHash(Mix(Mix(std::hash<std::string>{}(font.name), BitsOf(font.size)), styles));
}

std::size_t PenHash::operator()(const Pen& pen) const noexcept {
  return TableHash(Mix(Mix(static_cast<std::uint64_t>(pen.style), BitsOf(pen.width)), pen.color));
}

std::size_t BrushHash::operator()(const Brush& brush) const noexcept {
  return TableHash(Mix(static_cast<std::uint64_t>(brush.style), brush.color));
}

}  // namespace pagivo::native
