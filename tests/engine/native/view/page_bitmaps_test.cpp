#include "engine/native/view/page_bitmaps.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "engine/native/document/recorder.h"
#include "engine/native/view/drawn_surface.h"

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

// --- Pages ------------------------------------------------------------------------------------

constexpr double kTwipPixels = 1.0 / 15;

// A page of 800 x 1200 pixels at 100 percent, full of slanted lines and text.
class PageBitmapsTest : public testing::Test {
 protected:
  PageBitmapsTest() {
    recorder.BeginPage(kPage);
    for (float x = 0; x < kPage.width; x += 500) {
      recorder.DrawLine({x, 0}, {kPage.width - x, kPage.height});
      recorder.DrawText({x, 1.3F * x}, "Pluimstijging");
    }
  }

  // The page with its upper left corner at (left, top) of the surface.
  PlacedPage Placed(double percent, std::int32_t left, std::int32_t top) const {
    const double pixelsPerTwip = percent / 100 * kTwipPixels;
    const PixelSize size = PagePixelSize(kPage, pixelsPerTwip);
    return {1, {left, top, left + size.width, top + size.height}, pixelsPerTwip};
  }
  void Show(const PlacedPage& placed, DrawnSurface& surface) {
    bitmaps.Show(document, placed, surface.Bitmap());
  }
  std::size_t Drawn() const { return bitmaps.Cache().Drawn(); }

  static constexpr PageGeometry kPage{12000, 18000};
  Document document;
  Recorder recorder{document};
  PageBitmaps bitmaps;
};

TEST_F(PageBitmapsTest, EveryPixelIsThatOfThePageDrawnWhole) {
  struct Row {
    double percent;
    std::int32_t left, top;  // of the page
  };
  for (const Row& row : {Row{25, 10, 20}, Row{100, 10, 20}, Row{100, -300, -700},
                         Row{150, -37, -911}, Row{400, -1000, -2000}, Row{400, -2800, -4500}}) {
    DrawnSurface surface(500, 400);
    Show(Placed(row.percent, row.left, row.top), surface);
    const Bitmap whole = DrawWholePage(document, 1, row.percent / 100 * 96);
    for (std::int32_t y = 0; y < 400; ++y) {
      for (std::int32_t x = 0; x < 500; ++x) {
        const std::int32_t pageX = x - row.left;
        const std::int32_t pageY = y - row.top;
        const bool isPaper =
            pageX >= 0 && pageX < whole.width && pageY >= 0 && pageY < whole.height;
        const std::uint32_t expected =
            isPaper ? whole.pixels[static_cast<std::size_t>(pageY * whole.width + pageX)]
                    : DrawnSurface::kUntouched;
        ASSERT_EQ(surface.At(x, y), expected) << row.percent << " % at " << x << ", " << y;
      }
    }
  }
}

TEST_F(PageBitmapsTest, ASmallPageIsDrawnWholeAndOnce) {
  DrawnSurface surface(300, 200);
  for (const std::int32_t top : {0, -500, -1000, 100}) Show(Placed(100, 0, top), surface);
  EXPECT_EQ(Drawn(), 1U);
}

TEST_F(PageBitmapsTest, OfALargePageOnlyVisibleTilesAreDrawn) {
  DrawnSurface surface(800, 600);
  Show(Placed(1000, -512 * 3, -512 * 5), surface);
  EXPECT_EQ(Drawn(), 4U) << "two by two tiles of 512 pixels cover 800 x 600";
  EXPECT_EQ(bitmaps.Cache().Bytes(), 4U * 512 * 512 * 4);
  Show(Placed(1000, -512 * 3 - 100, -512 * 5 - 100), surface);
  EXPECT_EQ(Drawn(), 4U) << "scrolling within them draws nothing";
  Show(Placed(1000, -512 * 3 - 300, -512 * 5), surface);
  EXPECT_EQ(Drawn(), 6U) << "a column of tiles appears";
}

TEST_F(PageBitmapsTest, APageOutsideTheSurfaceIsNotDrawn) {
  DrawnSurface surface(300, 200);
  for (const auto& [left, top] : {std::pair{300, 0}, {0, 200}, {-800, 0}, {0, -1200}}) {
    Show(Placed(100, left, top), surface);
  }
  EXPECT_EQ(Drawn(), 0U);
}

TEST_F(PageBitmapsTest, APageThatIsDrawnUponIsNeverShownAsItWas) {
  DrawnSurface surface(800, 1200);
  const std::vector<std::function<void()>> changes{
      [this] {
        recorder.DrawLine({0, 9000}, {12000, 9000});
      },
      [this] {
        recorder.BeginPage(kPage);
        recorder.BeginOverlay(1);
        recorder.DrawLine({0, 3000}, {12000, 3000});
        recorder.EndOverlay();
      },
      [this] {
        recorder.DrawLine({0, 0}, {10, 10});  // on page 2
        recorder.BeginOverlay(1);
        recorder.DrawLine({0, 4000}, {12000, 4000});
      },
      [this] {
        recorder.DrawLine({0, 5000}, {12000, 5000});
      },
  };
  for (const auto& change : changes) {
    change();
    Show(Placed(100, 0, 0), surface);
    EXPECT_EQ(surface.Pixels(), DrawWholePage(document, 1, 96).pixels);
  }
}

TEST_F(PageBitmapsTest, ABlankPageIsDrawnUponToo) {
  recorder.BeginPage(kPage);
  PlacedPage blank = Placed(100, 0, 0);
  blank.page = 2;
  DrawnSurface surface(800, 1200);
  Show(blank, surface);
  EXPECT_EQ(surface.Pixels(), std::vector<std::uint32_t>(800 * 1200, 0xFFFFFFFF));
  recorder.DrawLine({0, 0}, {12000, 18000});
  Show(blank, surface);
  EXPECT_EQ(surface.Pixels(), DrawWholePage(document, 2, 96).pixels);
}

TEST_F(PageBitmapsTest, MemoryStaysBoundedHoweverMuchIsLookedAt) {
  DrawnSurface surface(1600, 1200);
  for (const double percent : {100.0, 400.0, 700.0, 1000.0}) {
    for (const std::int32_t offset : {0, 1000, 3000})
      Show(Placed(percent, -offset, -offset), surface);
    ASSERT_LE(bitmaps.Cache().Bytes(), BitmapCache::kMaximumBytes);
  }
  EXPECT_GT(bitmaps.Cache().Bytes(), BitmapCache::kMaximumBytes / 2);
}

}  // namespace
}  // namespace pagivo::native
