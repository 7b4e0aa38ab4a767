#include "engine/native/document/point_list.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace pagivo::native {
namespace {

struct GoodList {
  std::string text;
  std::vector<Point> points;
};

TEST(PointList, ReadsNumbersInPairs) {
  const std::vector<GoodList> lists = {
      {"", {}},
      {"   ", {}},
      {"1 2", {{1, 2}}},
      {"0 0 10 0 20 10 ", {{0, 0}, {10, 0}, {20, 10}}},
      {"  1   2  ", {{1, 2}}},
      {"1\t2\r\n3\n4", {{1, 2}, {3, 4}}},
      {"-1 +2", {{-1, 2}}},
      {"1.5 2,25", {{1.5F, 2.25F}}},
      {"56,6929 113,3858 ", {{56.6929F, 113.3858F}}},
      {"1,5E+07 1.5e-05", {{1.5e7F, 1.5e-5F}}},
      {"1E3 2e+2", {{1000, 200}}},
      {".5 ,5", {{0.5F, 0.5F}}},
      {"5. 5,", {{5, 5}}},
      {"-0 0", {{0, 0}}},
      {"1000000000 -1000000000", {{1e9F, -1e9F}}},
  };
  for (const GoodList& list : lists) EXPECT_EQ(ParsePointList(list.text), list.points) << list.text;
}

TEST(PointList, RefusesOddCountsAndWhatIsNoNumber) {
  for (const char* text : {
           "1",
           "1 2 3",
           "a b",
           "1 x",
           "1 2 x 4",
           "1.2.3 4",
           "1,2,3 4",
           "1.234,5 6",
           "- 1",
           "+ 1",
           "+-1 2",
           "-+1 2",
           "--1 2",
           "1e 2",
           "1e+ 2",
           "e5 2",
           ". 1",
           ", 1",
           "1;2",
           "1 2;",
           "inf 1",
           "nan 1",
           "0x10 1",
           "1 0b1",
           "1e400 2",
           "1000000001 2",
           "1 -1e10",
           "1 2e",
           "1\v2",
           "1\f2",
           "1\xC2\xA0"
           "2",
           "\xFF\xFE 1",
           "1 2 \x01 3",
       }) {
    EXPECT_EQ(ParsePointList(text), std::nullopt) << text;
  }
}

TEST(PointList, RefusesAnEmbeddedNul) {
  EXPECT_EQ(ParsePointList(std::string("1 2\0", 4)), std::nullopt);
}

TEST(PointList, TakesAnyNumberOfPoints) {
  std::string text;
  for (int i = 0; i < 100000; ++i) text += "1,5 2.5 ";
  const auto points = ParsePointList(text);
  ASSERT_TRUE(points);
  EXPECT_EQ(points->size(), 100000U);
  EXPECT_EQ(points->back(), (Point{1.5F, 2.5F}));
}

// Whatever the bytes, the answer is nothing or finite points.
TEST(PointList, SurvivesRandomBytes) {
  std::mt19937 random(20);
  constexpr std::string_view kLikely = "0123456789.,-+eE \t\n";
  for (int i = 0; i < 20000; ++i) {
    std::string text(random() % 40, ' ');
    for (char& byte : text) {
      byte = random() % 8 == 0 ? static_cast<char>(random()) : kLikely[random() % kLikely.size()];
    }
    const auto points = ParsePointList(text);
    if (!points) continue;
    for (const Point& point : *points) {
      EXPECT_LE(std::abs(point.x), kMaximumCoordinate);
      EXPECT_LE(std::abs(point.y), kMaximumCoordinate);
    }
  }
}

}  // namespace
}  // namespace pagivo::native
