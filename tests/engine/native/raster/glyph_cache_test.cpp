#include "engine/native/raster/glyph_cache.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "engine/native/fonts/font_library.h"

namespace pagivo::native {
namespace {

const Face* ArialFace() {
  ShapedLine line;
  FontLibrary::Instance().Find("Arial", false, false).Shape("H", line);
  return line.runs.at(0).face;
}

std::vector<std::uint8_t> BytesOf(const GlyphBitmap& bitmap) {
  return {bitmap.coverage.bytes,
          bitmap.coverage.bytes + bitmap.coverage.pitch * bitmap.coverage.height};
}

double InkOf(const GlyphBitmap& bitmap) {
  const auto bytes = BytesOf(bitmap);
  return std::accumulate(bytes.begin(), bytes.end(), 0.0);
}

std::uint32_t GlyphOf(const char* letter) {
  ShapedLine line;
  FontLibrary::Instance().Find("Arial", false, false).Shape(letter, line);
  return line.glyphs.at(0).glyph;
}

TEST(GlyphCache, GivesTheSameGlyphTwice) {
  GlyphCache cache;
  const auto style = cache.Select({ArialFace(), 20, false, false});
  const auto first = BytesOf(cache.Find(style, GlyphOf("H"), 1, 2));
  EXPECT_EQ(BytesOf(cache.Find(style, GlyphOf("H"), 1, 2)), first);
  const std::size_t bytes = cache.Bytes();
  cache.Find(style, GlyphOf("H"), 1, 2);
  EXPECT_EQ(cache.Bytes(), bytes);
}

TEST(GlyphCache, KeepsTheInkAtEveryQuarter) {
  GlyphCache cache;
  const auto style = cache.Select({ArialFace(), 20, false, false});
  const double ink = InkOf(cache.Find(style, GlyphOf("g"), 0, 0));
  for (std::uint32_t quarter = 1; quarter < 4; ++quarter) {
    EXPECT_NEAR(InkOf(cache.Find(style, GlyphOf("g"), quarter, 0)) / ink, 1, 0.01);
    EXPECT_NEAR(InkOf(cache.Find(style, GlyphOf("g"), 0, quarter)) / ink, 1, 0.01);
  }
}

TEST(GlyphCache, HasNoPixelsForABlank) {
  GlyphCache cache;
  const auto style = cache.Select({ArialFace(), 20, false, false});
  EXPECT_EQ(cache.Find(style, GlyphOf(" "), 0, 0).coverage.width, 0);
}

TEST(GlyphCache, ThickensAndSlantsWhereTheFaceCannot) {
  GlyphCache cache;
  const auto glyph = GlyphOf("l");
  const GlyphBitmap plain = cache.Find(cache.Select({ArialFace(), 60, false, false}), glyph, 0, 0);
  const double plainInk = InkOf(plain);
  const auto plainWidth = plain.coverage.width;
  const GlyphBitmap bold = cache.Find(cache.Select({ArialFace(), 60, true, false}), glyph, 0, 0);
  EXPECT_GT(InkOf(bold), 1.2 * plainInk);
  EXPECT_LE(bold.coverage.width, plainWidth + 3);
  const GlyphBitmap slanted = cache.Find(cache.Select({ArialFace(), 60, false, true}), glyph, 0, 0);
  EXPECT_NEAR(slanted.coverage.width, plainWidth + kSlant * 60 * 0.72, 2);
}

// Beside a glyph of the largest size, a style's table may have grown when the bound is looked at.
constexpr std::size_t kAtMost = GlyphCache::kMaximumBytes + 128 * 128 + (std::size_t{128} << 10);

TEST(GlyphCache, StaysWithinItsBounds) {
  GlyphCache cache;
  for (float size = 10; size < 100; size += 0.25F) {
    const auto style = cache.Select({ArialFace(), size, false, false});
    for (std::uint32_t glyph = 30; glyph < 130; ++glyph) cache.Find(style, glyph, glyph & 3, 0);
    ASSERT_LE(cache.Bytes(), kAtMost);
  }
}

TEST(GlyphCache, StaysWithinItsBoundsInOneStyle) {
  GlyphCache cache;
  const auto style = cache.Select({ArialFace(), 100, false, false});
  for (std::uint32_t glyph = 0; glyph < 600; ++glyph) {
    for (std::uint32_t quarters = 0; quarters < 16; ++quarters) {
      cache.Find(style, glyph, quarters & 3, quarters >> 2);
    }
    ASSERT_LE(cache.Bytes(), kAtMost);
  }
}

TEST(GlyphCache, KeepsThePageOfAHundredStyles) {
  GlyphCache cache;
  const auto drawAll = [&] {
    for (float size = 8; size < 33; size += 0.25F) {
      const auto style = cache.Select({ArialFace(), size, false, false});
      for (std::uint32_t glyph = 40; glyph < 80; ++glyph) cache.Find(style, glyph, glyph & 3, 0);
    }
  };
  drawAll();
  const std::size_t bytes = cache.Bytes();
  EXPECT_EQ(cache.StyleCount(), 100U);
  drawAll();
  EXPECT_EQ(cache.Bytes(), bytes);
}

TEST(GlyphCache, DropsTheStylesUsedLongestAgo) {
  GlyphCache cache;
  const GlyphStyle usedAlways{ArialFace(), 9, false, false};
  const auto* kept = cache.Select(usedAlways);
  float size = 20;
  for (std::size_t before = 0; cache.StyleCount() > before; size += 0.25F) {
    before = cache.StyleCount();
    const auto style = cache.Select({ArialFace(), size, false, false});
    for (std::uint32_t glyph = 30; glyph < 130; ++glyph) cache.Find(style, glyph, 0, 0);
    EXPECT_EQ(cache.Select(usedAlways), kept);
  }
  EXPECT_GT(cache.StyleCount(), 20U);
}

TEST(GlyphCache, FindsTheRightGlyphAfterItsStyleWasDropped) {
  GlyphCache cache;
  const GlyphStyle style{ArialFace(), 20, false, false};
  const auto before = BytesOf(cache.Find(cache.Select(style), GlyphOf("H"), 0, 0));
  for (float size = 30; size < 80; size += 0.125F) {
    const auto other = cache.Select({ArialFace(), size, false, false});
    for (std::uint32_t glyph = 30; glyph < 130; ++glyph) cache.Find(other, glyph, 0, 0);
  }
  EXPECT_LT(cache.StyleCount(), 400U);
  EXPECT_EQ(BytesOf(cache.Find(cache.Select(style), GlyphOf("H"), 0, 0)), before);
}

}  // namespace
}  // namespace pagivo::native
