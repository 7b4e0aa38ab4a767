#include "dutch_numbers.h"

#include <gtest/gtest.h>

namespace plumeo {
namespace {

TEST(Fixed, HasADecimalCommaAndPointsBetweenThousands) {
  EXPECT_EQ(Fixed(0, 0), "0");
  EXPECT_EQ(Fixed(3.14159, 2), "3,14");
  EXPECT_EQ(Fixed(999.96, 1), "1.000,0");
  EXPECT_EQ(Fixed(1234567, 0), "1.234.567");
}

TEST(Fixed, HasATrueMinusButNoneBeforeZero) {
  EXPECT_EQ(Fixed(-1480, 0), "−1.480");
  EXPECT_EQ(Fixed(-0.001, 1), "0,0");
}

TEST(Significant, ChoosesTheDecimals) {
  EXPECT_EQ(Significant(0.041738, 3), "0,0417");
  EXPECT_EQ(Significant(12.345, 3), "12,3");
  EXPECT_EQ(Significant(1234.9, 3), "1.235");
  EXPECT_EQ(Significant(0, 3), "0");
}

TEST(Shortest, HasNoMoreDecimalsThanItNeeds) {
  EXPECT_EQ(Shortest(20), "20");
  EXPECT_EQ(Shortest(3 * 0.05), "0,15");
  EXPECT_EQ(Shortest(1.0 / 3), "0,333333");
}

TEST(ReadNumber, TakesACommaOrAPoint) {
  EXPECT_EQ(ReadNumber("6,8"), 6.8);
  EXPECT_EQ(ReadNumber("-6.8"), -6.8);
}

TEST(ReadNumber, RefusesWhatIsNotWhollyANumber) {
  for (const char* text : {"", "6,8 g", "1,2,3", "inf", "nan", "twaalf", "1e999"}) {
    EXPECT_EQ(ReadNumber(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace plumeo
