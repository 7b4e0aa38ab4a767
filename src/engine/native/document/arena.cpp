#include "engine/native/document/arena.h"

#include <algorithm>

namespace pagivo::native {

void Arena::AddChunk(std::size_t atLeast) {
  const std::size_t size = std::max(atLeast, kChunkSize);
  chunks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
  next_ = chunks_.back().get();
  free_ = size;
  bytes_ += size;
}

}  // namespace pagivo::native
