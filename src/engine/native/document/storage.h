// What a document is made of: commands in memory that only grows, and tables of the fonts, colours,
// pens, brushes and pictures that the commands name by number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/native/document/display_list.h"
#include "engine/native/document/document.h"

namespace pagivo::native {

// Memory that only grows and is given back all at once. It hands out stretches of large
// chunks, and what was handed out never moves.
class Arena {
 public:
  static constexpr std::size_t kChunkSize = 65536;

  // The next free byte, with room for `size` bytes after it. Asking again without Advance gives the
  // same bytes. Raises std::bad_alloc.
  std::byte* Reserve(std::size_t size) {
    if (size > static_cast<std::size_t>(end_ - next_)) AddChunk(size);
    return next_;
  }

  // Takes the reserved bytes up to `next`.
  void Advance(std::byte* next) noexcept { next_ = next; }

  // Bytes of all chunks, used or not.
  std::size_t Bytes() const noexcept { return bytes_; }

 private:
  void AddChunk(std::size_t atLeast);

  std::vector<std::unique_ptr<std::byte[]>> chunks_;
  std::byte* next_ = nullptr;
  std::byte* end_ = nullptr;  // of the last chunk
  std::size_t bytes_ = 0;
};

// Values that a document keeps once and refers to by a small index. Indices count from 0 in the
// order of first use; a value stays where it is until the table goes.
template <typename Value, typename Hash>
class InternTable {
 public:
  std::uint32_t IndexOf(const Value& value);

  const Value& operator[](std::uint32_t index) const { return *values_[index]; }
  std::size_t Count() const noexcept { return values_.size(); }

  // An estimate of what the table holds, what the values point to not included.
  std::size_t Bytes() const noexcept {
    return values_.capacity() * sizeof(Value*) +
           indices_.size() * (sizeof(Value) + 4 * sizeof(void*));
  }

 private:
  void MakeRoom();

  std::unordered_map<Value, std::uint32_t, Hash> indices_;
  std::vector<const Value*> values_;
};

struct FontHash {
  std::size_t operator()(const FontDescription& font) const noexcept;
};
struct PenHash {
  std::size_t operator()(const Pen& pen) const noexcept;
};
struct BrushHash {
  std::size_t operator()(const Brush& brush) const noexcept;
};

inline constexpr std::uint32_t kNoSegment = UINT32_MAX;

// Commands that stand side by side in the arena. No command is split between two segments.
struct Segment {
  const std::byte* begin = nullptr;
  const std::byte* end = nullptr;
  std::uint32_t next = kNoSegment;  // of the same page
};

struct PageRecord {
  PageGeometry geometry;
  std::uint32_t firstSegment = kNoSegment;
  std::uint32_t lastSegment = kNoSegment;
};

struct Document::Storage {
  Arena arena;
  std::vector<PageRecord> pages;
  std::vector<Segment> segments;
  InternTable<FontDescription, FontHash> fonts;
  InternTable<Color, std::hash<Color>> colors;
  InternTable<Pen, PenHash> pens;
  InternTable<Brush, BrushHash> brushes;
  InternTable<PictureImageRef, std::hash<PictureImageRef>> pictures;
};

}  // namespace pagivo::native
