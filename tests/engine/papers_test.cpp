#include "engine/papers.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>
#include <vector>

namespace pagivo {
namespace {

TEST(Papers, HaveTheCodes1To41AndATitleOfTheirOwn) {
  std::set<std::int32_t> codes;
  std::set<std::string_view> titles;
  for (const Paper& paper : KnownPapers()) {
    EXPECT_TRUE(codes.insert(paper.code).second) << paper.code;
    EXPECT_TRUE(titles.insert(paper.title).second) << paper.title;
    EXPECT_NE(paper.title, "") << paper.code;
  }
  EXPECT_EQ(codes.size(), 41U);
  EXPECT_EQ(*codes.begin(), 1);
  EXPECT_EQ(*codes.rbegin(), kLastPaper);
}

TEST(Papers, BeginWithTheMostCommonSize) {
  EXPECT_EQ(KnownPapers().front().code, kPaperA4);
}

TEST(Papers, TheEnvelopesAndLargeSheetsAreNotReported) {
  for (const Paper& paper : KnownPapers()) {
    EXPECT_EQ(paper.reportedName.empty(), paper.code >= 19 && paper.code <= 38) << paper.code;
  }
}

// Inches times 1440, millimetres times 1440 / 25.4, to the nearest twip.
TEST(Papers, AreThePublishedSizes) {
  struct Size {
    std::int32_t code;
    std::int32_t width;
    std::int32_t height;
  };
  const std::vector<Size> published = {
      {1, 12240, 15840},  {3, 15840, 24480},  {4, 24480, 15840},  {5, 12240, 20160},
      {6, 7920, 12240},   {7, 10440, 15120},  {8, 16838, 23811},  {9, 11906, 16838},
      {11, 8391, 11906},  {12, 14173, 20069}, {13, 10318, 14570}, {14, 12240, 18720},
      {15, 12189, 15591}, {16, 14400, 20160}, {17, 15840, 24480}, {20, 5940, 13680},
      {27, 6236, 12472},  {37, 5580, 10800},  {38, 5220, 9360},   {39, 21420, 15840},
      {40, 12240, 17280}, {41, 12240, 18720},
  };
  for (const Size& expected : published) {
    const Paper* size = FindPaper(expected.code);
    ASSERT_NE(size, nullptr) << expected.code;
    EXPECT_EQ(size->width, expected.width) << expected.code;
    EXPECT_EQ(size->height, expected.height) << expected.code;
  }
}

TEST(Papers, NotesAndSmallSheetsAreAsLargeAsTheirNamesakes) {
  const std::vector<std::pair<std::int32_t, std::int32_t>> pairs = {{2, 1}, {18, 1}, {10, 9}};
  for (const auto& [code, sameAs] : pairs) {
    EXPECT_EQ(FindPaper(code)->width, FindPaper(sameAs)->width);
    EXPECT_EQ(FindPaper(code)->height, FindPaper(sameAs)->height);
  }
}

TEST(Papers, KnowNoOtherCode) {
  for (const std::int32_t code : {-1, 0, 42, 255, 256, 257, 65545}) {
    EXPECT_EQ(FindPaper(code), nullptr) << code;
  }
}

}  // namespace
}  // namespace pagivo
