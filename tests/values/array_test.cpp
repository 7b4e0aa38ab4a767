#include "pagivo/array.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "outcome.h"

namespace pagivo {
namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
const Outcome kOutOfRange = ErrorNumber::SubscriptOutOfRange;
const Outcome kOutOfMemory = ErrorNumber::OutOfMemory;

struct Bounds {
  std::int32_t lower;
  std::int32_t upper;
};

TEST(Array, HasNoElementsAtFirst) {
  Array<float> array;
  EXPECT_EQ(array.LowerBound(), 0);
  EXPECT_EQ(array.UpperBound(), -1);
  EXPECT_EQ(OutcomeOf([&] { return array(0); }), kOutOfRange);
}

TEST(Array, KnowsItsBoundsAndStartsWithZeroValues) {
  for (const Bounds bounds :
       {Bounds{0, 3}, Bounds{1, 3}, Bounds{-2, 2}, Bounds{5, 5}, Bounds{kLowest, kLowest + 2},
        Bounds{kHighest - 2, kHighest}, Bounds{kHighest, kHighest}}) {
    const Array<float> array(bounds.lower, bounds.upper);
    EXPECT_EQ(array.LowerBound(), bounds.lower);
    EXPECT_EQ(array.UpperBound(), bounds.upper);
    EXPECT_EQ(array(bounds.lower), 0);
    EXPECT_EQ(array(bounds.upper), 0);
  }
}

TEST(Array, NumbersItsElementsFromTheLowerBound) {
  for (const std::int32_t lowerBound : {0, 1}) {
    Array<std::string> array = Array<std::string>::FromValues({"a", "b", "c"}, lowerBound);
    EXPECT_EQ(array.UpperBound(), lowerBound + 2);
    EXPECT_EQ(array(lowerBound), "a");
    EXPECT_EQ(array(lowerBound + 2), "c");
    array(lowerBound + 1) = std::string("B");
    EXPECT_EQ(array(lowerBound + 1), "B");
  }
}

TEST(Array, RaisesOnASubscriptOutsideItsBounds) {
  for (const std::int32_t lowerBound : {0, 1}) {
    Array<float> array(lowerBound, lowerBound + 2);
    const Array<float>& constant = array;
    for (const std::int32_t subscript :
         {lowerBound - 1, lowerBound + 3, kLowest, kHighest, -kHighest}) {
      EXPECT_EQ(OutcomeOf([&] { return array(subscript); }), kOutOfRange) << subscript;
      EXPECT_EQ(OutcomeOf([&] { return constant(subscript); }), kOutOfRange) << subscript;
    }
  }
}

TEST(Array, MayHaveNoElementsBetweenItsBounds) {
  const Array<float> array(1, 0);
  EXPECT_EQ(array.LowerBound(), 1);
  EXPECT_EQ(array.UpperBound(), 0);
  EXPECT_EQ(OutcomeOf([&] { return array(1); }), kOutOfRange);
}

TEST(Array, RedimForgetsTheElements) {
  Array<float> array = Array<float>::FromValues({1, 2, 3}, 1);
  array.Redim(0, 3);
  EXPECT_EQ(array.LowerBound(), 0);
  EXPECT_EQ(array.UpperBound(), 3);
  for (std::int32_t i = 0; i <= 3; ++i) EXPECT_EQ(array(i), 0) << i;
}

TEST(Array, RedimPreserveKeepsWhatHasAPlaceInBothRanges) {
  struct Row {
    Bounds bounds;
    std::vector<float> expected;
  };
  const Row rows[] = {
      {{1, 3}, {1, 2, 3}}, {{1, 5}, {1, 2, 3, 0, 0}}, {{1, 2}, {1, 2}},   {{0, 3}, {0, 1, 2, 3}},
      {{2, 4}, {2, 3, 0}}, {{7, 8}, {0, 0}},          {{-3, -2}, {0, 0}}, {{1, 0}, {}},
  };
  for (const Row& row : rows) {
    Array<float> array = Array<float>::FromValues({1, 2, 3}, 1);
    array.RedimPreserve(row.bounds.lower, row.bounds.upper);
    ASSERT_EQ(array.LowerBound(), row.bounds.lower);
    ASSERT_EQ(array.UpperBound(), row.bounds.upper);
    for (std::size_t i = 0; i < row.expected.size(); ++i) {
      EXPECT_EQ(array(row.bounds.lower + static_cast<std::int32_t>(i)), row.expected[i]);
    }
  }
}

TEST(Array, RedimPreserveWorksAtTheEndsOfTheSubscripts) {
  Array<float> high = Array<float>::FromValues({1, 2}, kHighest - 1);
  high.RedimPreserve(kHighest - 2, kHighest);
  EXPECT_EQ(high(kHighest), 2);
  Array<float> low = Array<float>::FromValues({1, 2}, kLowest);
  low.RedimPreserve(kLowest, kLowest);
  EXPECT_EQ(low(kLowest), 1);
}

TEST(Array, RefusesBoundsThatNoArrayCanHaveAndStaysAsItWas) {
  Array<float> array = Array<float>::FromValues({1, 2, 3}, 1);
  for (const Bounds bounds : {Bounds{1, -1}, Bounds{10, 0}, Bounds{kHighest, kLowest}}) {
    const auto redim = [&] {
      array.Redim(bounds.lower, bounds.upper);
      return true;
    };
    const auto preserve = [&] {
      array.RedimPreserve(bounds.lower, bounds.upper);
      return true;
    };
    EXPECT_EQ(OutcomeOf(redim), kOutOfRange);
    EXPECT_EQ(OutcomeOf(preserve), kOutOfRange);
  }
  EXPECT_EQ(array.UpperBound(), 3);
  EXPECT_EQ(array(2), 2);
}

TEST(Array, RefusesValuesWhoseLastSubscriptDoesNotExist) {
  const auto make = [](std::vector<float> values, std::int32_t lowerBound) {
    return OutcomeOf([&] { return Array<float>::FromValues(values, lowerBound).UpperBound(); });
  };
  EXPECT_EQ(make({1, 2}, kHighest), kOutOfRange);
  EXPECT_EQ(make({}, kLowest), kOutOfRange);
  EXPECT_EQ(make({1}, kHighest), Outcome(kHighest));
}

template <typename Element>
void ExpectHugeBoundsAreRefused() {
  Array<Element> array(1, 2);
  for (const Bounds bounds :
       {Bounds{0, kHighest}, Bounds{kLowest, kHighest},
        Bounds{1,
               static_cast<std::int32_t>(Array<Element>::kMaximumBytes / sizeof(Element)) + 1}}) {
    const auto redim = [&] {
      array.Redim(bounds.lower, bounds.upper);
      return true;
    };
    const auto preserve = [&] {
      array.RedimPreserve(bounds.lower, bounds.upper);
      return true;
    };
    EXPECT_EQ(OutcomeOf(redim), kOutOfMemory);
    EXPECT_EQ(OutcomeOf(preserve), kOutOfMemory);
  }
  EXPECT_EQ(array.UpperBound(), 2);
}

TEST(Array, RefusesHugeBoundsAndStaysAsItWas) {
  ExpectHugeBoundsAreRefused<std::int16_t>();
  ExpectHugeBoundsAreRefused<float>();
  ExpectHugeBoundsAreRefused<std::string>();
}

TEST(Array, TakesAnyRowOfItsElementsAndNumbersThemFromOne) {
  const std::vector<float> values = {1.5F, 2.5F};
  const std::array<float, 2> sameValues = {1.5F, 2.5F};
  for (const Array<float>& array : {Array<float>(values), Array<float>(sameValues),
                                    Array<float>(std::span<const float>(values))}) {
    EXPECT_EQ(array.LowerBound(), 1);
    EXPECT_EQ(array.UpperBound(), 2);
    EXPECT_EQ(array(1), 1.5F);
    EXPECT_EQ(array(2), 2.5F);
  }
  EXPECT_EQ(Array<std::string>(std::vector<std::string>{"a", "b"})(2), "b");
  EXPECT_EQ(Array<float>(std::vector<float>()).UpperBound(), 0);
}

}  // namespace
}  // namespace pagivo
