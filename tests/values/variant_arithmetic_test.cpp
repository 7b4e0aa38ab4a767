#include "values/variant_arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "outcome.h"
#include "system/decimal_separator_in_test.h"
#include "values/conversions.h"

namespace pagivo {
namespace {

constexpr ErrorNumber kMismatch = ErrorNumber::TypeMismatch;
constexpr ErrorNumber kOverflow = ErrorNumber::Overflow;
constexpr ErrorNumber kByZero = ErrorNumber::DivisionByZero;

Variant Int(int value) {
  return static_cast<std::int16_t>(value);
}
Variant Long(std::int32_t value) {
  return value;
}

struct Thing : Object {};

struct Row {
  Variant left;
  Variant right;
  Outcome expected;
};

using Operation = Variant (*)(const Variant&, const Variant&);

void ExpectRows(Operation operation, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(OutcomeOf([&] { return operation(row.left, row.right); }), row.expected)
        << ::testing::PrintToString(row.left) << " and " << ::testing::PrintToString(row.right);
  }
}

// One operand of every kind that counts as a number. All but Empty and Boolean are 8.
struct Operand {
  Variant value;
  double number;
};

const std::vector<Operand>& Operands() {
  static const std::vector<Operand> operands = {
      {Variant(), 0}, {true, -1}, {Int(8), 8}, {Long(8), 8}, {8.0F, 8}, {8.0, 8}, {"8", 8},
  };
  return operands;
}

using Kind = Variant::Kind;
constexpr Kind I = Kind::Integer;
constexpr Kind L = Kind::Long;
constexpr Kind S = Kind::Single;
constexpr Kind D = Kind::Double;

// Rows and columns in the order of Operands: Empty, Boolean, Integer, Long, Single, Double, String.
constexpr Kind kKindOfProduct[7][7] = {
    {I, I, I, L, S, D, D},  //
    {I, I, I, L, S, D, D},  //
    {I, I, I, L, S, D, D},  //
    {L, L, L, L, D, D, D},  //
    {S, S, S, D, S, D, D},  //
    {D, D, D, D, D, D, D},  //
    {D, D, D, D, D, D, D},
};
constexpr Kind kKindOfQuotient[7][7] = {
    {S, S, S, D, S, D, D},  //
    {S, S, S, D, S, D, D},  //
    {S, S, S, D, S, D, D},  //
    {D, D, D, D, D, D, D},  //
    {S, S, S, D, S, D, D},  //
    {D, D, D, D, D, D, D},  //
    {D, D, D, D, D, D, D},
};

// What is no operand at all.
std::vector<Variant> NoOperands() {
  return {Missing,
          std::make_shared<Thing>(),
          ObjectRef(),
          std::make_shared<Array<std::int16_t>>(0, 1),
          std::make_shared<Array<float>>(0, 1),
          std::make_shared<Array<std::string>>(0, 1),
          "geen getal",
          ""};
}

// --- Product ----------------------------------------------------------------------------------

TEST(Multiply, KeepsTheWiderKindOfEveryPair) {
  for (std::size_t i = 0; i < Operands().size(); ++i) {
    for (std::size_t j = 0; j < Operands().size(); ++j) {
      const Variant product = Multiply(Operands()[i].value, Operands()[j].value);
      EXPECT_EQ(product.GetKind(), kKindOfProduct[i][j]) << i << ' ' << j;
      EXPECT_EQ(ToDouble(product), Operands()[i].number * Operands()[j].number) << i << ' ' << j;
    }
  }
}

TEST(Multiply, WidensAResultThatOverflowsItsKind) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  const float largest = std::numeric_limits<float>::max();
  ExpectRows(Multiply, {
                           {Int(181), Int(181), Int(32761)},
                           {Int(-16384), Int(2), Int(-32768)},
                           {Int(16384), Int(2), Long(32768)},
                           {Int(182), Int(182), Long(33124)},
                           {Int(-32768), Int(-32768), Long(1073741824)},
                           {true, Int(-32768), Long(32768)},
                           {Long(65536), Long(-32768), Long(kLowest)},
                           {Long(65536), Long(32768), 2147483648.0},
                           {Long(kLowest), Int(-1), 2147483648.0},
                           {Long(2147483647), Long(2147483647), 2147483647.0 * 2147483647.0},
                           {largest, 1.0F, largest},
                           {largest, 2.0F, double{largest} * 2},
                           {-largest, Int(10), double{-largest} * 10},
                       });
}

TEST(Multiply, RoundsAProductOfSinglesOnce) {
  EXPECT_EQ(Multiply(56.69291305541992F, 0.1F), Variant(56.69291305541992F * 0.1F));
  EXPECT_EQ(Multiply(Int(25), 56.69291305541992F), Variant(25 * 56.69291305541992F));
  EXPECT_EQ(Multiply(Long(25), 56.69291305541992F), Variant(25 * 56.69291305541992));
  EXPECT_EQ(Multiply(1e-30F, 1e-30F), Variant(0.0F));
}

TEST(Multiply, OverflowsBeyondDouble) {
  ExpectRows(
      Multiply,
      {{1e300, 1e10, kOverflow}, {-1e300, "1E300", kOverflow}, {"1E400", Int(1), kOverflow}});
}

TEST(Multiply, ReadsATextWithTheRegionalSeparator) {
  const DecimalSeparatorInTest comma(',');
  ExpectRows(Multiply, {{"2,5", 2.0F, 5.0}});
}

TEST(Multiply, GivesNullForANullOperand) {
  for (const Operand& operand : Operands()) {
    EXPECT_EQ(Multiply(Null, operand.value), Variant(Null));
    EXPECT_EQ(Multiply(operand.value, Null), Variant(Null));
  }
  EXPECT_EQ(Multiply(Null, Null), Variant(Null));
}

TEST(Multiply, RefusesWhatIsNoNumber) {
  for (const Variant& other : NoOperands()) {
    ExpectRows(Multiply, {{other, 2.0F, kMismatch}, {2.0F, other, kMismatch}});
  }
  ExpectRows(Multiply, {{Missing, Null, kMismatch}, {Null, Missing, kMismatch}});
}

// --- Quotient ---------------------------------------------------------------------------------

TEST(Divide, GivesASingleForIntegersAndSinglesAlone) {
  for (std::size_t i = 0; i < Operands().size(); ++i) {
    // Empty is zero and divides nothing.
    for (std::size_t j = 1; j < Operands().size(); ++j) {
      const Variant quotient = Divide(Operands()[i].value, Operands()[j].value);
      EXPECT_EQ(quotient.GetKind(), kKindOfQuotient[i][j]) << i << ' ' << j;
      EXPECT_EQ(ToDouble(quotient), Operands()[i].number / Operands()[j].number) << i << ' ' << j;
    }
  }
}

TEST(Divide, RoundsAQuotientToItsKind) {
  ExpectRows(Divide, {{Int(1), 3.0F, 1.0F / 3.0F},
                      {1.0F, Int(3), 1.0F / 3.0F},
                      {Long(1), 3.0F, 1.0 / 3.0},
                      {Int(1417), 56.69291305541992F, 1417.0F / 56.69291305541992F},
                      {Long(1417), 56.69291305541992F, 1417 / 56.69291305541992}});
}

TEST(Divide, RaisesOnAZeroDivisor) {
  for (const Operand& operand : Operands()) {
    for (const Variant& zero :
         {Variant(), Variant(false), Int(0), Long(0), Variant(0.0F), Variant(-0.0), Variant("0")}) {
      EXPECT_EQ(OutcomeOf([&] { return Divide(operand.value, zero); }), Outcome(kByZero))
          << ::testing::PrintToString(operand.value) << ::testing::PrintToString(zero);
    }
  }
}

TEST(Divide, OverflowsBeyondItsKind) {
  ExpectRows(Divide, {{3e38F, 0.1F, kOverflow},
                      {Int(1), 1e-40F, kOverflow},
                      {3e38, 0.5F, 6e38},
                      {1e300, 1e-300, kOverflow}});
}

TEST(Divide, ReadsATextWithTheRegionalSeparator) {
  const DecimalSeparatorInTest comma(',');
  ExpectRows(Divide, {{"2,5", 2.0F, 1.25}});
}

TEST(Divide, GivesNullForANullOperand) {
  for (const Operand& operand : Operands()) {
    EXPECT_EQ(Divide(Null, operand.value), Variant(Null));
    EXPECT_EQ(Divide(operand.value, Null), Variant(Null));
  }
  EXPECT_EQ(Divide(Null, Int(0)), Variant(Null));
}

TEST(Divide, RefusesWhatIsNoNumber) {
  for (const Variant& other : NoOperands()) {
    ExpectRows(Divide, {{other, 2.0F, kMismatch}, {2.0F, other, kMismatch}});
  }
  ExpectRows(Divide, {{Missing, Null, kMismatch}, {Null, Missing, kMismatch}});
}

TEST(Arithmetic, CarriesNaNThrough) {
  const float single = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(std::isnan(ToDouble(Multiply(single, 2.0F))));
  EXPECT_TRUE(std::isnan(ToDouble(Divide(single, 2.0F))));
  EXPECT_TRUE(std::isnan(ToDouble(Multiply(double{single}, Int(2)))));
}

}  // namespace
}  // namespace pagivo
