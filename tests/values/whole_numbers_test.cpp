// Rounding to whole numbers, the ends of the ranges, and arithmetic that keeps to them.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>

#include "outcome.h"
#include "values/conversions.h"

namespace pagivo {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const Outcome kOverflow = ErrorNumber::Overflow;

struct Rounding {
  double value;
  std::int16_t rounded;
};

constexpr Rounding kRoundings[] = {
    {0, 0},
    {-0.0, 0},
    {0.25, 0},
    {0.5, 0},
    {0.75, 1},
    {1.5, 2},
    {2.5, 2},
    {3.5, 4},
    {4.5, 4},
    {-0.5, 0},
    {-1.5, -2},
    {-2.5, -2},
    {-3.5, -4},
    {1.4999999, 1},
    {1.5000001, 2},
    {2.4999999, 2},
    {2.5000001, 3},
    {-2.4999999, -2},
    {-2.5000001, -3},
    {32766.5, 32766},
    {32767.49, 32767},
    {-32767.5, -32768},
    {-32768.5, -32768},
    // the neighbours of a half
    {0.49999999999999994, 0},
    {0.50000000000000011, 1},
    // the smallest numbers
    {5e-324, 0},
    {-5e-324, 0},
};

TEST(ToInteger, RoundsHalvesToTheEvenNeighbour) {
  for (const Rounding& rounding : kRoundings) {
    EXPECT_EQ(ToInteger(rounding.value), rounding.rounded) << rounding.value;
  }
}

TEST(ToLong, RoundsLikeToInteger) {
  for (const Rounding& rounding : kRoundings) {
    EXPECT_EQ(ToLong(rounding.value), rounding.rounded) << rounding.value;
  }
}

TEST(ToInteger, RoundsEveryHalfOfItsRangeToAnEvenNumber) {
  for (int whole = -32768; whole < 32767; ++whole) {
    const int rounded = ToInteger(whole + 0.5);
    ASSERT_EQ(rounded % 2, 0) << whole;
    ASSERT_EQ(std::abs(rounded - (whole + 0.5)), 0.5) << whole;
  }
}

TEST(ToInteger, KeepsEveryWholeNumberOfItsRange) {
  for (int whole = -32768; whole <= 32767; ++whole) ASSERT_EQ(ToInteger(double(whole)), whole);
}

TEST(ToInteger, RoundsTheSameInEveryRoundingMode) {
  const int before = std::fegetround();
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO, FE_TONEAREST}) {
    std::fesetround(mode);
    for (const Rounding& rounding : kRoundings) {
      EXPECT_EQ(ToInteger(rounding.value), rounding.rounded) << rounding.value;
    }
  }
  std::fesetround(before);
}

TEST(ToInteger, OverflowsBeyondSixteenBits) {
  EXPECT_EQ(ToInteger(32767.0), 32767);
  EXPECT_EQ(ToInteger(-32768.0), -32768);
  for (const double value :
       {32767.5, 32768.0, -32768.50001, -32769.0, 1e5, -1e5, 1e300, kInfinity, -kInfinity, kNaN}) {
    EXPECT_EQ(OutcomeOf([&] { return ToInteger(value); }), kOverflow) << value;
  }
}

TEST(ToLong, OverflowsBeyondThirtyTwoBits) {
  EXPECT_EQ(ToLong(2147483647.0), 2147483647);
  EXPECT_EQ(ToLong(2147483647.4999998), 2147483647);
  EXPECT_EQ(ToLong(2147483646.5), 2147483646);
  EXPECT_EQ(ToLong(-2147483648.0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  for (const double value : {2147483647.5, 2147483648.0, -2147483648.500001, -2147483649.0, 1e300,
                             kInfinity, -kInfinity, kNaN}) {
    EXPECT_EQ(OutcomeOf([&] { return ToLong(value); }), kOverflow) << value;
  }
}

TEST(ToSingle, RoundsToTheNearestSingle) {
  EXPECT_EQ(ToSingle(144.0 / 2.54), 56.69291305541992F);
  EXPECT_EQ(ToSingle(1440.0 / 2.54), 566.9291381835938F);
  EXPECT_EQ(ToSingle(16777217.0), 16777216.0F);
  EXPECT_EQ(ToSingle(1e-46), 0.0F);
}

TEST(ToSingle, OverflowsBeyondTheLargestSingle) {
  const double largest = std::numeric_limits<float>::max();
  EXPECT_EQ(ToSingle(largest), std::numeric_limits<float>::max());
  EXPECT_EQ(ToSingle(-largest), std::numeric_limits<float>::lowest());
  // Rounds down to the largest Single.
  EXPECT_EQ(ToSingle(largest * (1 + 1e-9)), std::numeric_limits<float>::max());
  for (const double value : {largest * (1 + 1e-7), -largest * (1 + 1e-7), 1e39, kInfinity}) {
    EXPECT_EQ(OutcomeOf([&] { return ToSingle(value); }), kOverflow) << value;
  }
}

TEST(ToSingle, LetsNaNThrough) {
  EXPECT_TRUE(std::isnan(ToSingle(kNaN)));
}

// --- Arithmetic on Integers -------------------------------------------------------------------

Outcome Sum(int left, int right) {
  return OutcomeOf([&] {
    return AddIntegers(static_cast<std::int16_t>(left), static_cast<std::int16_t>(right));
  });
}

Outcome Difference(int left, int right) {
  return OutcomeOf([&] {
    return SubtractIntegers(static_cast<std::int16_t>(left), static_cast<std::int16_t>(right));
  });
}

Outcome Integer(int value) {
  return Variant(static_cast<std::int16_t>(value));
}

TEST(AddIntegers, OverflowsBeyondSixteenBits) {
  EXPECT_EQ(Sum(32766, 1), Integer(32767));
  EXPECT_EQ(Sum(-32767, -1), Integer(-32768));
  EXPECT_EQ(Sum(32767, 1), kOverflow);
  EXPECT_EQ(Sum(-32768, -1), kOverflow);
}

TEST(SubtractIntegers, OverflowsBeyondSixteenBits) {
  EXPECT_EQ(Difference(-32767, 1), Integer(-32768));
  EXPECT_EQ(Difference(0, -32767), Integer(32767));
  EXPECT_EQ(Difference(-32768, 1), kOverflow);
  EXPECT_EQ(Difference(0, -32768), kOverflow);
}

}  // namespace
}  // namespace pagivo
