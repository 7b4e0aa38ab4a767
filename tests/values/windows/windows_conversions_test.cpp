// Texts as Windows reads them, by the rules of two countries.
#include <gtest/gtest.h>

#include <string>

#include "system/decimal_separator_in_test.h"
#include "values/conversions.h"
#include "values/outcome.h"

namespace pagivo {
namespace {

const Outcome kMismatch = ErrorNumber::TypeMismatch;
const Outcome kOverflow = ErrorNumber::Overflow;

struct Reading {
  const char* text;
  Outcome american;
  Outcome dutch;
};

const Reading kDoubles[] = {
    {"1.5", 1.5, 15.0},
    {"1,5", 15.0, 1.5},
    {"1,000.5", 1000.5, 1.0005},
    {"1.000,5", 1.0005, 1000.5},
    {"1,000,000", 1000000.0, kMismatch},
    {"1.000.000", kMismatch, 1000000.0},
    {"\t1", 1.0, 1.0},
    {"1\n", 1.0, 1.0},
    {"- 1", -1.0, -1.0},
    {"1-", -1.0, -1.0},
    {"(1)", -1.0, -1.0},
    {"$1", 1.0, kMismatch},
    {"\u20AC 1", kMismatch, 1.0},
    {"&H10", 16.0, 16.0},
    {"&O17", 15.0, 15.0},
    {"1E+3", 1000.0, 1000.0},
    {"", kMismatch, kMismatch},
    {"een", kMismatch, kMismatch},
    {"1 2", kMismatch, kMismatch},
    {"caf\xE9", kMismatch, kMismatch},
    {"1E+400", kOverflow, kOverflow},
};

TEST(WindowsConversions, ReadTextsByTheRulesOfTheCountry) {
  for (const Reading& row : kDoubles) {
    const DecimalSeparatorInTest point('.');
    EXPECT_EQ(OutcomeOf([&] { return ToDouble(row.text); }), row.american) << row.text;
    const DecimalSeparatorInTest comma(',');
    EXPECT_EQ(OutcomeOf([&] { return ToDouble(row.text); }), row.dutch) << row.text;
  }
}

TEST(WindowsConversions, HaveTheirOwnRangesAndRoundHalvesToTheEvenNeighbour) {
  const DecimalSeparatorInTest point('.');
  EXPECT_EQ(ToInteger("2.5"), 2);
  EXPECT_EQ(ToInteger("&HFFFF"), -1) << "the bits of an Integer";
  EXPECT_EQ(ToLong("&HFFFF"), 65535);
  EXPECT_EQ(OutcomeOf([] { return ToInteger("32768"); }), kOverflow);
  EXPECT_EQ(ToLong("3.5"), 4);
  EXPECT_EQ(OutcomeOf([] { return ToLong("2147483648"); }), kOverflow);
  EXPECT_EQ(ToSingle("0.1"), 0.1F);
  EXPECT_EQ(OutcomeOf([] { return ToSingle("1E+39"); }), kOverflow);
  EXPECT_TRUE(ToBoolean("true"));
  EXPECT_TRUE(ToBoolean("$1"));
  EXPECT_FALSE(ToBoolean("0"));
  EXPECT_EQ(OutcomeOf([] { return ToBoolean("waar"); }), kMismatch);
}

TEST(WindowsConversions, TakeTheUsersOwnRulesUnlessOthersArePut) {
  const std::string separator(1, CurrentRegionalSettings().decimalSeparator);
  EXPECT_EQ(ToDouble("2" + separator + "5"), 2.5);
}

}  // namespace
}  // namespace pagivo
