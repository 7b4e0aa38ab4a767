#include "pagivo/arguments.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "outcome.h"

namespace pagivo {
namespace {

// --- Texts --------------------------------------------------------------------------------------

const std::string& Borrowed(const TextArgument& text) {
  return text;
}

std::string Taken(const TextArgument& text) {
  return text;
}

TEST(TextArgument, BorrowsAString) {
  const std::string text = "tekst";
  EXPECT_EQ(&Borrowed(text), &text);
}

TEST(TextArgument, TakesEveryTypeOfText) {
  using std::string_view_literals::operator""sv;
  EXPECT_EQ(Taken("tekst"), "tekst");
  EXPECT_EQ(Taken("tekstdeel"sv.substr(0, 5)), "tekst");
  EXPECT_EQ(Taken(std::string("tekst")), "tekst");
}

TEST(TextArgument, TakesANullPointerForTheEmptyText) {
  const char* nothing = nullptr;
  EXPECT_EQ(Taken(nothing), "");
  EXPECT_EQ(Taken(nullptr), "");
}

// --- Integers -----------------------------------------------------------------------------------

Outcome Read(const IntegerArgument& number) {
  return OutcomeOf([&] { return std::int16_t{number}; });
}

Outcome Integer(int value) {
  return Variant(static_cast<std::int16_t>(value));
}

TEST(IntegerArgument, TakesANumberOfAnyType) {
  enum Plain { Three = 3 };
  EXPECT_EQ(Read(3), Integer(3));
  EXPECT_EQ(Read(std::int16_t{3}), Integer(3));
  EXPECT_EQ(Read(3L), Integer(3));
  EXPECT_EQ(Read(std::size_t{3}), Integer(3));
  EXPECT_EQ(Read(Three), Integer(3));
  EXPECT_EQ(Read(-32768), Integer(-32768));
  EXPECT_EQ(Read(32767U), Integer(32767));
}

TEST(IntegerArgument, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(Read(2.5), Integer(2));
  EXPECT_EQ(Read(3.5F), Integer(4));
}

TEST(IntegerArgument, OverflowsOutsideSixteenBits) {
  const Outcome overflow = ErrorNumber::Overflow;
  EXPECT_EQ(Read(32768), overflow);
  EXPECT_EQ(Read(-32769), overflow);
  EXPECT_EQ(Read(65537), overflow);
  EXPECT_EQ(Read(std::uint64_t{1} << 48), overflow);
  EXPECT_EQ(Read(1e300), overflow);
}

// --- Variables ----------------------------------------------------------------------------------

void Double(IntegerVariable variable) {
  variable = static_cast<std::int16_t>(2 * variable);
}

TEST(IntegerVariable, ChangesAVariableOfAnySignedWholeType) {
  std::int16_t small = 4;
  int usual = 5;
  long large = 6;
  Double(small);
  Double(usual);
  Double(large);
  EXPECT_EQ(small, 8);
  EXPECT_EQ(usual, 10);
  EXPECT_EQ(large, 12);
}

TEST(IntegerVariable, ChangesAVariantInItsOwnKind) {
  Variant variable = 4.0;
  Double(variable);
  EXPECT_EQ(variable, Variant(8.0));
}

TEST(IntegerVariable, ServesForPlainValuesToo) {
  const int constant = 4;
  Double(constant);
  Double(5);
  IntegerVariable variable = 6;
  variable = 7;
  EXPECT_EQ(std::int16_t{variable}, 7);
}

TEST(IntegerVariable, OverflowsWhenItIsReadAndLeavesTheVariable) {
  int large = 40000;
  EXPECT_EQ(OutcomeOf([&] {
              Double(large);
              return Variant();
            }),
            Outcome(ErrorNumber::Overflow));
  EXPECT_EQ(large, 40000);
}

}  // namespace
}  // namespace pagivo
