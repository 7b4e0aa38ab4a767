// Memory that only grows and is given back all at once.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace pagivo::native {

// Hands out stretches of large chunks. What was handed out never moves.
class Arena {
 public:
  static constexpr std::size_t kChunkSize = 65536;

  // The next free byte, with room for `size` bytes after it. Asking again without Advance gives the
  // same bytes. Raises std::bad_alloc.
  std::byte* Reserve(std::size_t size) {
    if (size > free_) AddChunk(size);
    return next_;
  }

  // Takes the first `size` of the reserved bytes.
  void Advance(std::size_t size) noexcept {
    next_ += size;
    free_ -= size;
  }

  // Bytes of all chunks, used or not.
  std::size_t Bytes() const noexcept { return bytes_; }

 private:
  void AddChunk(std::size_t atLeast);

  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::byte* next_ = nullptr;
  std::size_t free_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace pagivo::native
