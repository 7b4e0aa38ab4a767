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
  EXPECT_EQ(cache.GlyphCount(), 1U);
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

TEST(GlyphCache, StaysWithinItsBounds) {
  GlyphCache cache;
  for (float size = 10; size < 100; size += 0.25F) {
    const auto style = cache.Select({ArialFace(), size, false, false});
    for (std::uint32_t glyph = 30; glyph < 130; ++glyph) cache.Find(style, glyph, glyph & 3, 0);
    ASSERT_LE(cache.Bytes(), GlyphCache::kMaximumBytes + 128 * 128);
    ASSERT_LE(cache.GlyphCount(), GlyphCache::kMaximumGlyphs);
  }
}

TEST(GlyphCache, FindsTheRightGlyphAfterItStartedAnew) {
  GlyphCache cache;
  const GlyphStyle style{ArialFace(), 20, false, false};
  const auto before = BytesOf(cache.Find(cache.Select(style), GlyphOf("H"), 0, 0));
  for (std::size_t i = 0; i <= GlyphCache::kMaximumStyles; ++i) {
    cache.Find(cache.Select({ArialFace(), 30 + float(i), false, false}), GlyphOf("x"), 0, 0);
  }
  EXPECT_EQ(BytesOf(cache.Find(cache.Select(style), GlyphOf("H"), 0, 0)), before);
}

}  // namespace
}  // namespace pagivo::native
