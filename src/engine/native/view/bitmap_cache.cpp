#include "engine/native/view/bitmap_cache.h"

#include <bit>
#include <utility>

namespace pagivo::native {
namespace {

std::size_t BytesOf(const BitmapKey& key) {
  return static_cast<std::size_t>(key.width) * static_cast<std::size_t>(key.height) *
         sizeof(std::uint32_t);
}

}  // namespace

std::size_t BitmapCache::Hash::operator()(const BitmapKey& key) const noexcept {
  std::size_t hash = std::bit_cast<std::uint64_t>(key.pixelsPerTwip);
  for (const std::size_t part :
       {key.revision, static_cast<std::size_t>(key.page), static_cast<std::size_t>(key.left),
        static_cast<std::size_t>(key.top)}) {
    hash = (hash ^ part) * 0x9E3779B97F4A7C15ULL;
  }
  return hash ^ hash >> 32;
}

const Bitmap& BitmapCache::Get(const BitmapKey& key, const Drawing& draw) {
  if (const auto found = places_.find(key); found != places_.end()) {
    entries_.splice(entries_.begin(), entries_, found->second);
    return entries_.front().bitmap;
  }
  MakeRoom(BytesOf(key));
  Bitmap bitmap{key.width, key.height, std::vector<std::uint32_t>(BytesOf(key) / 4)};
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

}  // namespace pagivo::native
