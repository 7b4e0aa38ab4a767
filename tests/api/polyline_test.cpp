#include <limits>
#include <span>
#include <string_view>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

class Polylines : public ApiTest {
 protected:
  // Points 1 to n.
  static Array<float> Points(std::vector<float> values) {
    return Array<float>::FromValues(std::move(values), 1);
  }

  // The point list that the engine is given.
  std::string PointList(const Array<float>& x, const Array<float>& y) {
    constexpr std::string_view kPut = "put Polyline ";
    platform.Log().Clear();
    print.VsPPDrawPolyline(x, y);
    const Lines drawn = platform.Log().LinesBeginning(kPut);
    return drawn.size() == 1 ? drawn.front().substr(kPut.size()) : "drawn not once";
  }
};

TEST_F(Polylines, APolylineIsAListOfPointsEachNumberFollowedByASpace) {
  EXPECT_EQ(LogOf([&] {
              print.VsPPDrawPolyline(Points({0, 10, 20}), Points({0, 0, 10}));
            }).back(),
            "put Polyline String \"0 0 10 0 20 10 \"");
}

TEST_F(Polylines, VectorsAndSpansAreDrawnWhole) {
  const std::vector<float> x = {0, 10, 20};
  const std::vector<float> y = {0, 0, 10};
  EXPECT_EQ(LogOf([&] { print.VsPPDrawPolyline(x, y); }).back(),
            "put Polyline String \"0 0 10 0 20 10 \"");
  EXPECT_EQ(LogOf([&] {
              print.VsPPDrawPolyline(std::span(x).first(2), std::span<const float>(y), true);
            }).back(),
            "put Polygon String \"0 0 10 0 \"");
}

TEST_F(Polylines, AClosedPolylineIsAPolygon) {
  EXPECT_EQ(LogOf([&] {
              print.VsPPDrawPolyline(Points({0, 10, 20}), Points({0, 0, 10}), true);
            }).back(),
            "put Polygon String \"0 0 10 0 20 10 \"");
}

TEST_F(Polylines, ClosedIsAnyConditionAndNullIsFalse) {
  const std::pair<Variant, bool> rows[] = {
      {true, true},  {false, false},  {Integer(1), true}, {Integer(0), false},
      {0.25, true},  {"True", true},  {"0", false},       {Variant(), false},
      {Null, false}, {Missing, true}, {"gesloten", true},
  };
  for (const auto& [closed, isPolygon] : rows) {
    EXPECT_EQ(LogOf([&] { print.VsPPDrawPolyline(Points({1}), Points({2}), closed); }).back(),
              isPolygon ? "put Polygon String \"1 2 \"" : "put Polyline String \"1 2 \"")
        << Describe(closed);
  }
}

TEST_F(Polylines, PointsAreWrittenWithTheRegionalDecimalSeparator) {
  print.VsPPSetScaleMode(Integer(6));
  {
    const DecimalSeparatorInTest comma(',');
    EXPECT_EQ(PointList(Points({10, 25}), Points({0.5F, 20})),
              "String \"566,9291 28,34646 1417,323 1133,858 \"");
  }
  const DecimalSeparatorInTest point('.');
  EXPECT_EQ(PointList(Points({10, 25}), Points({0.5F, 20})),
            "String \"566.9291 28.34646 1417.323 1133.858 \"");
}

TEST_F(Polylines, PointsAreWrittenInTheGeneralFormatOfASingle) {
  const DecimalSeparatorInTest comma(',');
  EXPECT_EQ(PointList(Points({1.5e7F, 0.00001F, -0.25F}), Points({1234567, 0.1F, -100})),
            "String \"1,5E+07 1234567 1E-05 0,1 -0,25 -100 \"");
}

TEST_F(Polylines, TheElementZeroOfAZeroBasedArrayIsNotDrawn) {
  const auto x = Array<float>::FromValues({7, 1, 3}, 0);
  const auto y = Array<float>::FromValues({8, 2, 4}, 0);
  EXPECT_EQ(PointList(x, y), "String \"1 2 3 4 \"");
}

TEST_F(Polylines, PointsTakeTheirNumbersFromBothArraysOwnSubscripts) {
  const auto x = Array<float>::FromValues({1, 3}, 1);
  const auto y = Array<float>::FromValues({9, 2, 4, 9}, 0);
  EXPECT_EQ(PointList(x, y), "String \"1 2 3 4 \"");
}

TEST_F(Polylines, APointWithoutAnElementIsLeftOut) {
  EXPECT_EQ(PointList(Points({1, 3, 5}), Points({2})), "String \"1 2 \"");
  EXPECT_EQ(PointList(Points({1, 3, 5}), Array<float>::FromValues({4, 6}, 2)),
            "String \"3 4 5 6 \"");
  EXPECT_EQ(PointList(Array<float>::FromValues({5}, 3), Points({2, 4, 6})), "String \"5 6 \"");
}

TEST_F(Polylines, APointThatNoSingleHoldsIsLeftOut) {
  UseScale(1e10F, 1);
  EXPECT_EQ(PointList(Points({0, 3e38F, 0}), Points({1, 2, 3})), "String \"0 1 0 3 \"");
}

TEST_F(Polylines, NoPointsMakeAnEmptyList) {
  EXPECT_EQ(PointList(Points({}), Points({})), "String \"\"");
  EXPECT_EQ(PointList({}, {}), "String \"\"");
  EXPECT_EQ(PointList(Array<float>::FromValues({7}, 0), Array<float>::FromValues({8}, 0)),
            "String \"\"");
}

TEST_F(Polylines, TheLastPointThatSixteenBitsCountIsDrawnAndEndsTheList) {
  constexpr std::int32_t kLast = std::numeric_limits<std::int16_t>::max();
  const std::string points = PointList(Array<float>(1, kLast), Array<float>(1, kLast));
  EXPECT_EQ(points.size(), std::string_view("String \"\"").size() + 4 * std::size_t{kLast});
}

TEST_F(Polylines, OfMorePointsThanSixteenBitsCountTheFirst32767AreDrawn) {
  const std::string most = PointList(Array<float>(1, 32767), Array<float>(1, 32767));
  for (const std::int32_t last : {32768, 65537}) {
    EXPECT_EQ(PointList(Array<float>(1, last), Array<float>(1, last)), most) << last;
  }
}

TEST_F(Polylines, APointThatIsNoNumberIsLeftOutAlone) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinity = std::numeric_limits<float>::infinity();
  for (const float none : {nan, infinity, -infinity}) {
    EXPECT_EQ(PointList(Points({0, none, 4, 6}), Points({1, 3, none, 7})), "String \"0 1 6 7 \"");
  }
}

}  // namespace
}  // namespace pagivo::testing
