// The visible parts of pages, as pixels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/native/document/document.h"
#include "engine/native/view/bitmap_cache.h"
#include "engine/native/view/page_layout.h"

namespace pagivo::native {

// Draws pages when they become visible and keeps them: whole ones while they are small, else in
// square tiles, of which only the visible ones are drawn. A page that has been drawn upon since is
// drawn anew.
class PageBitmaps {
 public:
  static constexpr std::size_t kMaximumWholePageBytes = std::size_t{8} << 20;
  static constexpr std::int32_t kTileSide = 512;  // pixels

  // Copies the visible part of a page onto the surface.
  void Show(const Document& document, const PlacedPage& placed, const SurfaceBitmap& surface);
  // Forgets everything. To be called when there is another document.
  void Clear() noexcept { cache_.Clear(); }

  const BitmapCache& Cache() const noexcept { return cache_; }

 private:
  BitmapCache cache_;
};

}  // namespace pagivo::native
