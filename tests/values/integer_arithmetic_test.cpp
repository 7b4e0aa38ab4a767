#include "values/integer_arithmetic.h"

#include <gtest/gtest.h>

#include "outcome.h"

namespace pagivo {
namespace {

const Outcome kOverflow = ErrorNumber::Overflow;

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
