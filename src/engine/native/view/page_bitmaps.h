// Bitmaps of the visible parts of pages, kept for when they are shown again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <unordered_map>

#include "engine/native/document/document.h"
#include "engine/native/raster/bitmap_player.h"
#include "engine/native/view/page_placement.h"

namespace pagivo::native {

// Names a bitmap: which part of a page, as it is now, at which size.
struct BitmapKey {
  std::int32_t page = 0;
  std::size_t revision = 0;  // of the page's record
  double pixelsPerTwip = 0;
  // The part, in the page's pixels.
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  friend bool operator==(const BitmapKey&, const BitmapKey&) = default;
};

// Keeps bitmaps up to a bound of bytes. The one that was used longest ago goes first.
class BitmapCache {
 public:
  static constexpr std::size_t kMaximumBytes = std::size_t{64} << 20;

  using Drawing = std::function<void(Bitmap& bitmap)>;

  // The bound, bytes. A single bitmap larger than that is kept until the next one comes.
  explicit BitmapCache(std::size_t maximumBytes = kMaximumBytes) : maximumBytes_(maximumBytes) {}

  // The bitmap of that key. When it is not there yet, `draw` gets one of the key's size whose
  // pixels are zeros; when `draw` fails nothing is kept. The bitmap holds until the next call.
  const Bitmap& Get(const BitmapKey& key, const Drawing& draw);
  void Clear() noexcept;

  // What is kept.
  std::size_t Bytes() const noexcept { return bytes_; }
  std::size_t Count() const noexcept { return entries_.size(); }
  // How many have been drawn in all.
  std::size_t Drawn() const noexcept { return drawn_; }

 private:
  struct Entry {
    BitmapKey key;
    Bitmap bitmap;
  };
  struct Hash {
    std::size_t operator()(const BitmapKey& key) const noexcept;
  };

  void MakeRoom(std::size_t bytes);

  std::size_t maximumBytes_;
  std::list<Entry> entries_;  // the one used last first
  std::unordered_map<BitmapKey, std::list<Entry>::iterator, Hash> places_;
  std::size_t bytes_ = 0;
  std::size_t drawn_ = 0;
};

// Draws pages when they become visible and keeps them: whole ones while they are small, else in
// square tiles, of which only the visible ones are drawn. A page that has been drawn upon since is
// drawn anew.
class PageBitmaps {
 public:
  static constexpr std::size_t kMaximumWholePageBytes = std::size_t{8} << 20;
  static constexpr std::int32_t kTileSide = 512;  // pixels

  // Copies the visible part of a page onto the surface.
  void Show(const Document& document, const PlacedPage& placed, const SurfaceBitmap& surface);
  // Forgets everything, which must happen when there is another document.
  void Clear() noexcept { cache_.Clear(); }

  const BitmapCache& Cache() const noexcept { return cache_; }

 private:
  BitmapCache cache_;
};

}  // namespace pagivo::native
