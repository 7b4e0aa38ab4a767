#include "engine/native/document/paper_sizes.h"

#include <gtest/gtest.h>

#include <vector>

namespace pagivo::native {
namespace {

TEST(PaperSizes, HaveTheCodes1To41InOrder) {
  const auto sizes = KnownPaperSizes();
  ASSERT_EQ(sizes.size(), 41U);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    EXPECT_EQ(sizes[i].code, static_cast<std::int32_t>(i + 1));
  }
}

TEST(PaperSizes, LieWithinTheLimitsOfUserDefinedOnes) {
  for (const PaperSize& size : KnownPaperSizes()) {
    for (const std::int32_t extent : {size.width, size.height}) {
      EXPECT_GE(extent, kMinimumPaperExtent) << size.code;
      EXPECT_LE(extent, kMaximumPaperExtent) << size.code;
    }
  }
}

// Inches times 1440, millimetres times 1440 / 25.4, to the nearest twip.
TEST(PaperSizes, AreThePublishedSizes) {
  const std::vector<PaperSize> published = {
      {1, 12240, 15840},  {3, 15840, 24480},  {4, 24480, 15840},  {5, 12240, 20160},
      {6, 7920, 12240},   {7, 10440, 15120},  {8, 16838, 23811},  {9, 11906, 16838},
      {11, 8391, 11906},  {12, 14173, 20069}, {13, 10318, 14570}, {14, 12240, 18720},
      {15, 12189, 15591}, {16, 14400, 20160}, {17, 15840, 24480}, {20, 5940, 13680},
      {27, 6236, 12472},  {37, 5580, 10800},  {38, 5220, 9360},   {39, 21420, 15840},
      {40, 12240, 17280}, {41, 12240, 18720},
  };
  for (const PaperSize& expected : published) {
    const PaperSize* size = FindPaperSize(expected.code);
    ASSERT_NE(size, nullptr) << expected.code;
    EXPECT_EQ(size->width, expected.width) << expected.code;
    EXPECT_EQ(size->height, expected.height) << expected.code;
  }
}

TEST(PaperSizes, NotesAndSmallSheetsAreAsLargeAsTheirNamesakes) {
  const std::vector<std::pair<std::int32_t, std::int32_t>> pairs = {{2, 1}, {18, 1}, {10, 9}};
  for (const auto& [code, sameAs] : pairs) {
    EXPECT_EQ(FindPaperSize(code)->width, FindPaperSize(sameAs)->width);
    EXPECT_EQ(FindPaperSize(code)->height, FindPaperSize(sameAs)->height);
  }
}

TEST(PaperSizes, KnowNoOtherCode) {
  for (const std::int32_t code : {-1, 0, 42, 255, 256, 257, 65545}) {
    EXPECT_EQ(FindPaperSize(code), nullptr) << code;
  }
}

}  // namespace
}  // namespace pagivo::native
