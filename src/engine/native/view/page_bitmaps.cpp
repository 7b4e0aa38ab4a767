#include "engine/native/view/page_bitmaps.h"

#include <algorithm>
#include <bit>
#include <span>
#include <utility>

#include "values/hashes.h"

namespace pagivo::native {
namespace {

std::size_t BytesOf(const BitmapKey& key) {
  return static_cast<std::size_t>(key.width) * static_cast<std::size_t>(key.height) *
         sizeof(std::uint32_t);
}

PixelSize TileSizeOf(const PixelSize& page) {
  const auto bytes =  // of a page that may be larger than memory
      static_cast<std::uint64_t>(page.width) * static_cast<std::uint64_t>(page.height) *
      sizeof(std::uint32_t);
  if (bytes <= PageBitmaps::kMaximumWholePageBytes) return page;
  return {PageBitmaps::kTileSide, PageBitmaps::kTileSide};
}

// The pixels of a row, from `left` on, of a bitmap whose rows have that many.
template <typename Pixels>
auto RowOf(Pixels& pixels, std::int32_t width, std::int32_t left, std::int32_t row) {
  return pixels.begin() + static_cast<std::ptrdiff_t>(row) * width + left;
}

// Copies `part` of the surface from a tile whose upper left pixel lies at (left, top) there.
void Copy(const Bitmap& tile, std::int32_t left, std::int32_t top, const SurfaceBox& part,
          const SurfaceBitmap& surface) {
  for (std::int32_t y = part.top; y < part.bottom; ++y) {
    std::copy_n(RowOf(tile.pixels, tile.width, part.left - left, y - top), part.Width(),
                RowOf(surface.pixels, surface.width, part.left, y));
  }
}

// The first multiple of `step` that is not after `offset`.
std::int32_t TileStart(std::int32_t offset, std::int32_t step) {
  return offset / step * step;
}

}  // namespace

std::size_t BitmapCache::Hash::operator()(const BitmapKey& key) const noexcept {
  auto hash = std::bit_cast<std::uint64_t>(key.pixelsPerTwip);
  for (const std::uint64_t part :
       {std::uint64_t{key.revision}, static_cast<std::uint64_t>(key.page),
        static_cast<std::uint64_t>(key.left), static_cast<std::uint64_t>(key.top)}) {
    hash = Mix(hash, part);
  }
  return TableHash(hash);
}

const Bitmap& BitmapCache::Get(const BitmapKey& key, const Drawing& draw) {
  if (const auto found = places_.find(key); found != places_.end()) {
    entries_.splice(entries_.begin(), entries_, found->second);
    return entries_.front().bitmap;
  }
  MakeRoom(BytesOf(key));
  Bitmap bitmap{key.width, key.height, std::vector<std::uint32_t>(BytesOf(key) / 4, kPaperPixel)};
  draw(bitmap);
  ++drawn_;
  std::list<Entry> made;  // so that nothing is kept by half when memory runs out
  made.push_front({key, std::move(bitmap)});
  places_.emplace(key, made.begin());
  entries_.splice(entries_.begin(), made);
  bytes_ += BytesOf(key);
  return entries_.front().bitmap;
}

void BitmapCache::MakeRoom(std::size_t bytes) {
  while (!entries_.empty() && bytes_ + bytes > maximumBytes_) {
    const BitmapKey& last = entries_.back().key;
    bytes_ -= BytesOf(last);
    places_.erase(last);
    entries_.pop_back();
  }
}

void BitmapCache::Clear() noexcept {
  places_.clear();
  entries_.clear();
  bytes_ = 0;
}

void PageBitmaps::Show(const Document& document, const PlacedPage& placed,
                       const SurfaceBitmap& surface) {
  const SurfaceBox& paper = placed.box;
  const SurfaceBox visible = Intersection(paper, {0, 0, surface.width, surface.height});
  if (visible.IsEmpty()) return;
  const PixelSize page{paper.Width(), paper.Height()};
  const PixelSize step = TileSizeOf(page);
  BitmapKey key{.page = placed.page,
                .revision = document.RevisionOf(placed.page),
                .pixelsPerTwip = placed.pixelsPerTwip};
  const auto draw = [&](Bitmap& bitmap) {
    DrawPage(document, key.page, {key.pixelsPerTwip, key.left, key.top}, bitmap, PaperState::Laid);
  };
  for (key.top = TileStart(visible.top - paper.top, step.height);
       key.top < visible.bottom - paper.top; key.top += step.height) {
    key.height = std::min(step.height, page.height - key.top);
    for (key.left = TileStart(visible.left - paper.left, step.width);
         key.left < visible.right - paper.left; key.left += step.width) {
      key.width = std::min(step.width, page.width - key.left);
      const SurfaceBox tile =
          SurfaceBox{0, 0, key.width, key.height}.Moved(paper.left + key.left, paper.top + key.top);
      Copy(cache_.Get(key, draw), tile.left, tile.top, Intersection(tile, visible), surface);
    }
  }
}

}  // namespace pagivo::native
