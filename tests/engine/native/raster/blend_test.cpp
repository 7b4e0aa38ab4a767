#include "engine/native/raster/blend.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace pagivo::native {
namespace {

constexpr Color kOrange = 0x0080FF;
constexpr std::uint32_t kOrangePixel = 0xFFFF8000;

std::uint32_t Blended(const Ink& ink, std::uint32_t ground, std::uint32_t coverage) {
  ink.Blend(ground, coverage);
  return ground;
}

TEST(Blend, LeavesTheGroundWhereNothingIsCovered) {
  for (std::uint32_t level = 0; level < 256; ++level) {
    const std::uint32_t ground = 0xFF000000 | level << 16 | (255 - level) << 8 | level;
    EXPECT_EQ(Blended(Ink(kOrange), ground, 0), ground);
  }
}

TEST(Blend, GivesTheColourItselfWhereAllIsCovered) {
  for (std::uint32_t level = 0; level < 256; ++level) {
    EXPECT_EQ(Blended(Ink(kOrange), 0xFF000000 | level * 0x10101, 255), kOrangePixel);
  }
}

TEST(Blend, MixesInProportionWithinALevel) {
  for (std::uint32_t ground = 0; ground < 256; ++ground) {
    for (std::uint32_t coverage = 0; coverage < 256; ++coverage) {
      const std::uint32_t pixel = Blended(Ink(kOrange), 0xFF000000 | ground << 8, coverage);
      const double share = coverage / 255.0;
      ASSERT_NEAR(pixel >> 8 & 0xFF, ground * (1 - share) + 0x80 * share, 1.01);
      ASSERT_EQ(pixel >> 24, 0xFFU);
    }
  }
}

using BlendingRows = void (Ink::*)(const CoveredRows& rows) const;
class BlendOfRows : public testing::TestWithParam<BlendingRows> {};
INSTANTIATE_TEST_SUITE_P(AsTheProcessorCan, BlendOfRows, testing::Values(&Ink::BlendRows));
INSTANTIATE_TEST_SUITE_P(InFours, BlendOfRows, testing::Values(&Ink::BlendRowsInFours));

TEST_P(BlendOfRows, EqualsThatOfTheirPixels) {
  const Ink ink(kOrange);
  for (std::uint32_t ground = 0; ground < 256; ++ground) {
    std::vector<std::uint32_t> row(256, 0xFF000000 | ground << 16 | (255 - ground) << 8 | ground);
    std::vector<std::uint32_t> expected = row;
    std::vector<std::uint8_t> coverages(256);
    for (std::uint32_t x = 0; x < 256; ++x) {
      coverages[x] = static_cast<std::uint8_t>(x * 37);
      ink.Blend(expected[x], coverages[x]);
    }
    (ink.*GetParam())({.pixels = row.data(), .coverages = coverages.data(), .width = 256});
    ASSERT_EQ(row, expected);
  }
}

TEST_P(BlendOfRows, TouchesNoPixelBeyondThem) {
  const std::vector<std::uint8_t> coverages(16, 255);
  for (std::int32_t count = 0; count <= 16; ++count) {
    std::vector<std::uint32_t> row(20, 0xFFFFFFFF);
    (Ink(kOrange).*
     GetParam())({.pixels = row.data() + 1, .coverages = coverages.data(), .width = count});
    const auto covered = std::count(row.begin(), row.end(), kOrangePixel);
    EXPECT_EQ(covered, count);
    EXPECT_EQ(row[0], 0xFFFFFFFF);
    EXPECT_EQ(row[static_cast<std::size_t>(count) + 1], 0xFFFFFFFF);
  }
}

TEST_P(BlendOfRows, GoesFromRowToRow) {
  std::vector<std::uint32_t> pixels(30, 0xFFFFFFFF);
  std::vector<std::uint8_t> coverages(33, 0);
  for (const std::size_t at : {0U, 8U, 11U, 19U, 22U, 30U}) coverages[at] = 255;
  (Ink(kOrange).*GetParam())({.pixels = pixels.data(),
                              .stride = 10,
                              .coverages = coverages.data(),
                              .pitch = 11,
                              .width = 9,
                              .height = 3});
  for (std::size_t at = 0; at < pixels.size(); ++at) {
    const bool isCovered = at % 10 == 0 || at % 10 == 8;
    EXPECT_EQ(pixels[at], isCovered ? kOrangePixel : 0xFFFFFFFF) << at;
  }
}

TEST(Blend, OfARunEqualsThatOfItsPixels) {
  for (std::uint32_t coverage = 0; coverage < 256; ++coverage) {
    std::vector<std::uint32_t> row(7, 0xFF204060);
    Ink(kOrange).BlendRun(row.data(), row.data() + row.size(), coverage);
    EXPECT_EQ(row, std::vector(7, Blended(Ink(kOrange), 0xFF204060, coverage)));
  }
}

}  // namespace
}  // namespace pagivo::native
