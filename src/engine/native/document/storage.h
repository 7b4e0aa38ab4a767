// What a document is made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/native/document/arena.h"
#include "engine/native/document/display_list.h"
#include "engine/native/document/document.h"
#include "engine/native/document/intern_table.h"

namespace pagivo::native {

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
