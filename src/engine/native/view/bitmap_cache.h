// Bitmaps of pages, kept for when they are shown again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <unordered_map>

#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {

// Which part of a page, as it is now, at which size.
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

// Whatever was used longest ago goes first when the bitmaps' bytes would reach beyond the bound.
class BitmapCache {
 public:
  static constexpr std::size_t kMaximumBytes = std::size_t{64} << 20;

  using Drawing = std::function<void(Bitmap& bitmap)>;

  // The bound, bytes. A single bitmap larger than that is kept until the next one comes.
  explicit BitmapCache(std::size_t maximumBytes = kMaximumBytes) : maximumBytes_(maximumBytes) {}

  // The bitmap of the key's size, drawn when it is not there yet; what `draw` gets is uninitialised
  // in no way but its contents, which are zeros. Holds until the next call. When `draw` fails
  // nothing is kept of it.
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

}  // namespace pagivo::native
