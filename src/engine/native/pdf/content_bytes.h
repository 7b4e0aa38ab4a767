// The bytes of a content stream while it is written.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace pagivo::native {

// Grows at its end, where whoever has a few bytes to add writes them in place: a content is made of
// thousands of such pieces. The storage is kept.
class ContentBytes {
 public:
  void Clear() noexcept { size_ = 0; }
  std::size_t Size() const noexcept { return size_; }
  std::string_view View() const noexcept { return {storage_.data(), size_}; }

  // Memory for `count` bytes behind the last one, until the next call. They belong to the content
  // as far as EndAt says.
  char* Room(std::size_t count) {
    if (storage_.size() - size_ < count) storage_.resize(2 * (size_ + count));
    return storage_.data() + size_;
  }
  void EndAt(const char* end) noexcept { size_ = static_cast<std::size_t>(end - storage_.data()); }

  ContentBytes& operator+=(std::string_view bytes) {
    EndAt(std::ranges::copy(bytes, Room(bytes.size())).out);
    return *this;
  }

 private:
  std::vector<char> storage_;
  std::size_t size_ = 0;
};

}  // namespace pagivo::native
