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
  end_ = next_ + size;
  bytes_ += size;
}

template <typename Value, typename Hash>
std::uint32_t InternTable<Value, Hash>::IndexOf(const Value& value) {
  const auto known = indices_.find(value);
  if (known != indices_.end()) return known->second;
  MakeRoom();  // first, so that nothing fails once the value is in the map
  const auto entry = indices_.emplace(value, static_cast<std::uint32_t>(values_.size())).first;
  values_.push_back(&entry->first);
  return entry->second;
}

template <typename Value, typename Hash>
void InternTable<Value, Hash>::MakeRoom() {
  if (values_.size() == values_.capacity()) values_.reserve(2 * values_.size() + 8);
}

template class InternTable<FontDescription, FontHash>;
template class InternTable<Color, std::hash<Color>>;
template class InternTable<Pen, PenHash>;
template class InternTable<Brush, BrushHash>;
template class InternTable<PictureImageRef, std::hash<PictureImageRef>>;

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
