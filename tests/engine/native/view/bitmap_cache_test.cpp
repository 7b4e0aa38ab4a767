#include "engine/native/view/bitmap_cache.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace pagivo::native {
namespace {

// Bitmaps of 1000 bytes each.
BitmapKey KeyOf(std::int32_t page) {
  return {.page = page, .pixelsPerTwip = 1, .width = 25, .height = 10};
}

class BitmapCacheTest : public testing::Test {
 protected:
  // Whether it had to be drawn; its pixels then hold the page's number.
  bool Draws(const BitmapKey& key) {
    bool drawn = false;
    const Bitmap& bitmap = cache.Get(key, [&](Bitmap& fresh) {
      drawn = true;
      for (std::uint32_t& pixel : fresh.pixels) pixel = static_cast<std::uint32_t>(key.page);
    });
    EXPECT_EQ(bitmap.width, key.width);
    EXPECT_EQ(bitmap.height, key.height);
    EXPECT_EQ(bitmap.pixels.size(), static_cast<std::size_t>(key.width * key.height));
    EXPECT_EQ(bitmap.pixels.back(), static_cast<std::uint32_t>(key.page));
    return drawn;
  }
  bool Draws(std::int32_t page) { return Draws(KeyOf(page)); }

  BitmapCache cache{3000};
};

TEST_F(BitmapCacheTest, ABitmapIsDrawnOnce) {
  EXPECT_TRUE(Draws(1));
  EXPECT_FALSE(Draws(1));
  EXPECT_EQ(cache.Count(), 1U);
  EXPECT_EQ(cache.Bytes(), 1000U);
  EXPECT_EQ(cache.Drawn(), 1U);
}

TEST_F(BitmapCacheTest, AnythingThatDiffersIsAnotherBitmap) {
  cache = BitmapCache();
  const BitmapKey key = KeyOf(1);
  EXPECT_TRUE(Draws(key));
  for (const auto change : {
           +[](BitmapKey& other) { other.page = 2; },
           +[](BitmapKey& other) { other.revision = 7; },
           +[](BitmapKey& other) { other.pixelsPerTwip = 1.0000001; },
           +[](BitmapKey& other) { other.left = 25; },
           +[](BitmapKey& other) { other.top = 10; },
           +[](BitmapKey& other) { other.width = 24; },
           +[](BitmapKey& other) { other.height = 9; },
       }) {
    BitmapKey other = key;
    change(other);
    EXPECT_TRUE(Draws(other));
    EXPECT_FALSE(Draws(other));
  }
  EXPECT_FALSE(Draws(key));
}

TEST_F(BitmapCacheTest, WhatWasUsedLongestAgoGoesFirst) {
  for (const std::int32_t page : {1, 2, 3}) Draws(page);
  EXPECT_FALSE(Draws(1));
  EXPECT_TRUE(Draws(4));
  EXPECT_FALSE(Draws(1));
  EXPECT_FALSE(Draws(3));
  EXPECT_TRUE(Draws(2));
}

TEST_F(BitmapCacheTest, ItsBytesStayWithinTheBound) {
  for (std::int32_t page = 1; page <= 1000; ++page) {
    BitmapKey key = KeyOf(page);
    key.height = 1 + page * 7 % 29;
    Draws(key);
    ASSERT_LE(cache.Bytes(), 3000U) << page;
  }
  EXPECT_GT(cache.Bytes(), 0U);
}

TEST_F(BitmapCacheTest, TheBoundIs64MiB) {
  EXPECT_EQ(BitmapCache::kMaximumBytes, 67108864U);
}

TEST_F(BitmapCacheTest, WhatIsLargerThanTheBoundStandsAlone) {
  Draws(1);
  BitmapKey large = KeyOf(2);
  large.height = 100;
  EXPECT_TRUE(Draws(large));
  EXPECT_EQ(cache.Count(), 1U);
  EXPECT_TRUE(Draws(1));
  EXPECT_EQ(cache.Bytes(), 1000U);
}

TEST_F(BitmapCacheTest, AFailedDrawingLeavesNothingBehind) {
  const auto fail = [](Bitmap&) { throw std::runtime_error("no"); };
  EXPECT_THROW(cache.Get(KeyOf(1), fail), std::runtime_error);
  EXPECT_EQ(cache.Count(), 0U);
  EXPECT_EQ(cache.Bytes(), 0U);
  EXPECT_TRUE(Draws(1));
}

TEST_F(BitmapCacheTest, ForgetsEverything) {
  Draws(1);
  cache.Clear();
  EXPECT_EQ(cache.Count(), 0U);
  EXPECT_EQ(cache.Bytes(), 0U);
  EXPECT_TRUE(Draws(1));
}

}  // namespace
}  // namespace pagivo::native
