// How a command is laid out in the record: an operation byte, then its operands without padding, in
// the machine's own byte order. Whole numbers take as few bytes as they need, seven bits a byte.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <type_traits>

#include "engine/native/document/geometry.h"

namespace pagivo::native {

enum class Operation : std::uint8_t {
  SetFont,       // number of the font
  SetTextColor,  // number of the colour
  SetPen,        // number of the pen
  SetBrush,      // number of the brush
  Text,          // Point, number of bytes, bytes
  Line,          // Point, Point
  Rectangle,     // Rectangle
  Circle,        // Point, radius
  Arc,           // Arc
  Polyline,      // number of points, Points
  Polygon,       // the same
  Picture,       // Rectangle, number of the picture
};

// The longest form of a whole number.
inline constexpr std::size_t kMaximumNumberSize = 10;

// Writes one command into memory that has room for it.
class CommandWriter {
 public:
  CommandWriter(std::byte* target, Operation operation) : next_(target) { Put(operation); }

  template <typename Value>
  void Put(const Value& value) {
    static_assert(std::is_trivially_copyable_v<Value>);
    PutBytes(&value, sizeof value);
  }

  // A count or an index.
  void PutNumber(std::size_t number) {
    for (; number >= 0x80; number >>= 7) *next_++ = static_cast<std::byte>(number | 0x80);
    *next_++ = static_cast<std::byte>(number);
  }

  void PutBytes(const void* bytes, std::size_t size) {
    if (size == 0) return;
    std::memcpy(next_, bytes, size);
    next_ += size;
  }

  std::byte* End() const noexcept { return next_; }

 private:
  std::byte* next_;
};

// Reads what CommandWriter wrote.
class CommandReader {
 public:
  CommandReader(const std::byte* begin, const std::byte* end) : next_(begin), end_(end) {}

  bool AtEnd() const noexcept { return next_ == end_; }

  template <typename Value>
  Value Get() {
    Value value;
    std::memcpy(&value, next_, sizeof value);
    next_ += sizeof value;
    return value;
  }

  std::size_t GetNumber() {
    std::size_t number = 0;
    for (unsigned shift = 0;; shift += 7) {
      const auto byte = static_cast<std::size_t>(*next_++);
      number |= (byte & 0x7F) << shift;
      if (byte < 0x80) return number;
    }
  }

  std::string_view GetText() {
    const std::size_t size = GetNumber();
    return {reinterpret_cast<const char*>(Skip(size)), size};
  }

  // The bytes of `size` bytes' worth of operands, which are skipped.
  const std::byte* Skip(std::size_t size) {
    const std::byte* bytes = next_;
    next_ += size;
    return bytes;
  }

 private:
  const std::byte* next_;
  const std::byte* end_;
};

}  // namespace pagivo::native
