#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "decimal_separator_in_test.h"
#include "outcome.h"
#include "values/conversions.h"

namespace pagivo {
namespace {

struct TextNumber {
  const char* text;
  double number;
};

const Outcome kMismatch = ErrorNumber::TypeMismatch;
const Outcome kOverflow = ErrorNumber::Overflow;

// --- The whole text ---------------------------------------------------------------------------

constexpr TextNumber kWithEitherSeparator[] = {
    {"0", 0},        {"12", 12},     {"-3", -3},       {"+3", 3},     {"007", 7},
    {" 12", 12},     {"12  ", 12},   {"  -12  ", -12}, {"1E3", 1000}, {"1e3", 1000},
    {"1E+03", 1000}, {"25e-1", 2.5}, {"32768", 32768}, {"1E-400", 0},
};

TEST(ParseNumber, ReadsWholeTextsWithEitherSeparator) {
  for (const char separator : {'.', ','}) {
    const DecimalSeparatorInTest regional(separator);
    for (const TextNumber& row : kWithEitherSeparator) {
      EXPECT_EQ(ParseNumber(row.text), row.number) << row.text;
    }
  }
}

TEST(ParseNumber, ReadsDecimalsAfterTheRegionalSeparator) {
  {
    const DecimalSeparatorInTest point('.');
    EXPECT_EQ(ParseNumber("2.5"), 2.5);
    EXPECT_EQ(ParseNumber(" -.5 "), -0.5);
    EXPECT_EQ(ParseNumber("3."), 3);
    EXPECT_EQ(ParseNumber("1.5E+07"), 1.5e7);
  }
  const DecimalSeparatorInTest comma(',');
  EXPECT_EQ(ParseNumber("2,5"), 2.5);
  EXPECT_EQ(ParseNumber(" -,5 "), -0.5);
  EXPECT_EQ(ParseNumber("3,"), 3);
  EXPECT_EQ(ParseNumber("1,5E+07"), 1.5e7);
}

TEST(ParseNumber, RefusesTheOtherSeparator) {
  {
    const DecimalSeparatorInTest point('.');
    EXPECT_EQ(OutcomeOf([] { return ParseNumber("2,5"); }), kMismatch);
  }
  const DecimalSeparatorInTest comma(',');
  EXPECT_EQ(OutcomeOf([] { return ParseNumber("2.5"); }), kMismatch);
  EXPECT_EQ(OutcomeOf([] { return ParseNumber("1.000,5"); }), kMismatch);
}

TEST(ParseNumber, RefusesTextsThatAreNoNumber) {
  for (const char separator : {'.', ','}) {
    const DecimalSeparatorInTest regional(separator);
    for (const std::string_view text :
         {"",      " ",   "abc", "12abc", "1 2",       "-",    "+",    "+-5",  "--5",
          "- 5",   ".",   ",",   "1e",    "1e+",       "e5",   "1..2", "1,,2", "1.2.3",
          "1,2,3", "nan", "NaN", "inf",   "-infinity", "0x10", "&H1F", "12\t", "\xEF\xBC\x91",
          "-nan"}) {
      EXPECT_EQ(OutcomeOf([&] { return ParseNumber(text); }), kMismatch) << text;
    }
  }
  EXPECT_EQ(OutcomeOf([] { return ParseNumber(std::string_view("1\0", 2)); }), kMismatch);
}

TEST(ParseNumber, OverflowsBeyondTheLargestDouble) {
  for (const std::string& text :
       {std::string("1E309"), std::string("-1E309"), std::string("1E99999999999999999999"),
        "1" + std::string(400, '0'), "1" + std::string(5000, '0') + "E-4000"}) {
    EXPECT_EQ(OutcomeOf([&] { return ParseNumber(text); }), kOverflow) << text;
  }
}

TEST(ParseNumber, TakesWhatIsTooSmallForADoubleAsZero) {
  const DecimalSeparatorInTest point('.');
  for (const std::string& text :
       {std::string("1E-400"), std::string("-1E-400"), std::string("1E-99999999999999999999"),
        "0." + std::string(400, '0') + "1", "0." + std::string(5000, '0') + "1E4000",
        std::string("0E99999999999999999999")}) {
    EXPECT_EQ(ParseNumber(text), 0) << text;
  }
}

TEST(ParseNumber, ReadsBackWhatFormatGeneralWrites) {
  std::mt19937_64 generator(7);
  std::uniform_int_distribution<std::int64_t> digits(-999999999999999, 999999999999999);
  std::uniform_int_distribution<int> exponents(-30, 30);
  for (const char separator : {'.', ','}) {
    const DecimalSeparatorInTest regional(separator);
    for (int i = 0; i < 20000; ++i) {
      const std::string text =
          std::to_string(digits(generator)) + "E" + std::to_string(exponents(generator));
      const double value = ParseNumber(text);
      ASSERT_EQ(ParseNumber(FormatGeneral(value, separator)), value) << text;
    }
  }
}

// --- The number at the start ------------------------------------------------------------------

constexpr TextNumber kLeadingNumbers[] = {
    {"12", 12},         {"12abc", 12},   {"2.5", 2.5},    {" -3", -3},         {"+4", 4},
    {"1e3", 1000},      {"1E-2x", 0.01}, {"1 2", 12},     {" 1 2 . 5 ", 12.5}, {"- 3", -3},
    {"1\t2\r\n3", 123}, {".5", 0.5},     {"-.5.5", -0.5}, {"5.", 5},           {"2,5", 2},
    {"3-5", 3},         {"3/4", 3},      {"1e", 1},       {"1e+", 1},          {"1ex", 1},
    {"007", 7},         {"0x10", 0},     {"1E-400", 0},
};

TEST(LeadingNumber, StopsAtTheFirstOtherCharacter) {
  for (const TextNumber& row : kLeadingNumbers) {
    EXPECT_EQ(LeadingNumber(row.text), row.number) << row.text;
  }
}

TEST(LeadingNumber, IsZeroWhereThereIsNone) {
  for (const std::string_view text : {"", " ", "abc", "-", "+", ".", "-.", "e5", ",5", "--1", "+-1",
                                      "nan", "inf", "-inf", "infinity", "x12", "\xE2\x82\xAC 5"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
}

TEST(LeadingNumber, KnowsTheDecimalPointAloneWhateverTheRegion) {
  const DecimalSeparatorInTest comma(',');
  for (const TextNumber& row : kLeadingNumbers) {
    EXPECT_EQ(LeadingNumber(row.text), row.number) << row.text;
  }
}

TEST(LeadingNumber, OverflowsBeyondTheLargestDouble) {
  EXPECT_EQ(OutcomeOf([] { return LeadingNumber("1e999 pagina's"); }), kOverflow);
  EXPECT_EQ(OutcomeOf([] { return LeadingNumber(std::string(100000, '9')); }), kOverflow);
}

}  // namespace
}  // namespace pagivo
