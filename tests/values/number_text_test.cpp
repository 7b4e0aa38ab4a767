#include "values/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "outcome.h"
#include "system/decimal_separator_in_test.h"

namespace pagivo {
namespace {

struct SingleText {
  float value;
  const char* text;  // with a decimal comma
};

constexpr SingleText kSingleTexts[] = {
    {0.0F, "0"},
    {-0.0F, "0"},
    {1.0F, "1"},
    {-1.0F, "-1"},
    {10.0F, "10"},
    {1440.0F, "1440"},
    {0.5F, "0,5"},
    {-0.25F, "-0,25"},
    {1.5F, "1,5"},
    {0.1F, "0,1"},
    {56.69291305541992F, "56,69291"},
    {566.9291381835938F, "566,9291"},
    {1133.8582F, "1133,858"},
    {-28.346457F, "-28,34646"},
    {123456.7F, "123456,7"},
    {1.0F / 3, "0,3333333"},
    {2.0F / 3, "0,6666667"},
    // seven digits before the separator are the most without an exponent
    {999999.9F, "999999,9"},
    {999999.94F, "999999,9"},
    {1000000.0F, "1000000"},
    {9999999.0F, "9999999"},
    {1e7F, "1E+07"},
    {15000000.0F, "1,5E+07"},
    {-15000000.0F, "-1,5E+07"},
    {12345678.0F, "1,234568E+07"},
    {16777216.0F, "1,677722E+07"},
    // 1E-04 is the smallest without an exponent
    {0.001F, "0,001"},
    {0.0001F, "0,0001"},
    {0.00012345F, "0,00012345"},
    {0.00012345678F, "0,0001234568"},
    {0.00009999F, "9,999E-05"},
    {0.0000999999975F, "0,0001"},
    {0.00001F, "1E-05"},
    {-0.000025F, "-2,5E-05"},
    // exact halves of the last digit go to the even one
    {1000000.5F, "1000000"},
    {1000001.5F, "1000002"},
    {1e10F, "1E+10"},
    {1e38F, "1E+38"},
    {std::numeric_limits<float>::max(), "3,402823E+38"},
    {std::numeric_limits<float>::lowest(), "-3,402823E+38"},
    {std::numeric_limits<float>::min(), "1,175494E-38"},
    {std::numeric_limits<float>::denorm_min(), "1,401298E-45"},
};

struct DoubleText {
  double value;
  const char* text;
};

constexpr DoubleText kDoubleTexts[] = {
    {0.0, "0"},
    {-0.0, "0"},
    {1.0, "1"},
    {-42.0, "-42"},
    {0.1, "0,1"},
    {0.1 + 0.2, "0,3"},
    {1.0 / 3, "0,333333333333333"},
    {2.0 / 3, "0,666666666666667"},
    {144.0 / 2.54, "56,6929133858268"},
    {25.000000000000004, "25"},
    {15000000.0, "15000000"},
    {999999999999999.0, "999999999999999"},
    {999999999999999.9, "1E+15"},
    {1e15, "1E+15"},
    {1.5e15, "1,5E+15"},
    {123456789012345678.0, "1,23456789012346E+17"},
    {0.0001, "0,0001"},
    {0.000123, "0,000123"},
    {0.00001, "1E-05"},
    {-0.000015, "-1,5E-05"},
    {1e100, "1E+100"},
    {1e-100, "1E-100"},
    {std::numeric_limits<double>::max(), "1,79769313486232E+308"},
    {std::numeric_limits<double>::lowest(), "-1,79769313486232E+308"},
    {std::numeric_limits<double>::min(), "2,2250738585072E-308"},
    {std::numeric_limits<double>::denorm_min(), "4,94065645841247E-324"},
};

std::string WithPoint(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

TEST(FormatGeneral, WritesASingleWithAtMostSevenDigits) {
  for (const SingleText& row : kSingleTexts) {
    EXPECT_EQ(FormatGeneral(row.value, ','), row.text);
    EXPECT_EQ(FormatGeneral(row.value, '.'), WithPoint(row.text));
  }
}

TEST(FormatGeneral, WritesADoubleWithAtMostFifteenDigits) {
  for (const DoubleText& row : kDoubleTexts) {
    EXPECT_EQ(FormatGeneral(row.value, ','), row.text);
    EXPECT_EQ(FormatGeneral(row.value, '.'), WithPoint(row.text));
  }
}

TEST(FormatGeneral, WritesWhatIsNoNumberWithoutDigits) {
  for (const float value :
       {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
        std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EQ(FormatGeneral(value, ',').find_first_of("0123456789"), std::string::npos);
    EXPECT_EQ(FormatGeneral(double{value}, ',').find_first_of("0123456789"), std::string::npos);
  }
}

double Read(const std::string& text) {
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  EXPECT_EQ(result.ptr, text.data() + text.size()) << text;
  return value;
}

// Every bit pattern is a Single, so these come from the whole range.
class RandomSingles {
 public:
  float Next() {
    float value = std::numeric_limits<float>::quiet_NaN();
    while (!std::isfinite(value))
      value = std::bit_cast<float>(static_cast<std::uint32_t>(generator_()));
    return value;
  }

 private:
  std::mt19937 generator_{20260101};
};

TEST(FormatGeneral, ReadsBackWithinHalfTheSeventhDigit) {
  RandomSingles singles;
  for (int i = 0; i < 200000; ++i) {
    const float value = singles.Next();
    const std::string text = FormatGeneral(value, '.');
    ASSERT_NEAR(Read(text), double{value}, std::abs(double{value}) * 5.0001e-7) << text;
  }
}

TEST(RoundToText, GivesWhatTheTextIsReadBackAs) {
  RandomSingles singles;
  for (int i = 0; i < 200000; ++i) {
    const float value = singles.Next();
    const auto expected = static_cast<float>(Read(FormatGeneral(value, '.')));
    ASSERT_EQ(std::bit_cast<std::uint32_t>(RoundToText(value)),
              std::bit_cast<std::uint32_t>(expected))
        << value;
  }
  for (const float value : {0.0F, -0.0F, 1e-4F, 9999999.5F, 1e7F, 3e38F, 1e-45F}) {
    EXPECT_EQ(RoundToText(value), static_cast<float>(Read(FormatGeneral(value, '.'))));
    EXPECT_FALSE(std::signbit(RoundToText(value)));
  }
}

TEST(FormatGeneral, AgreesWithThePrintfNotationOfSevenDigits) {
  RandomSingles singles;
  for (int i = 0; i < 200000; ++i) {
    const float value = singles.Next();
    char expected[32];
    std::snprintf(expected, sizeof expected, "%.7G", double{value});
    ASSERT_EQ(FormatGeneral(value, '.'), expected);
  }
}

TEST(FormatGeneral, KeepsSmallDecimalNumbersReadable) {
  for (int thousandths = -9999; thousandths <= 9999; ++thousandths) {
    const auto value = static_cast<float>(thousandths / 1000.0);
    ASSERT_EQ(Read(FormatGeneral(value, '.')), thousandths / 1000.0);
  }
}

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

// --- Millimetres ------------------------------------------------------------------------------

TEST(Millimetres, AreShownWithAtMostOneDecimalBehindAComma) {
  const std::pair<double, const char*> rows[] = {
      {0, "0"},   {0.04, "0"},    {0.05, "0,1"},   {0.5, "0,5"},   {9.95, "10"},
      {10, "10"}, {25.4, "25,4"}, {12.75, "12,8"}, {5080, "5080"}, {1234.56, "1234,6"},
  };
  for (const auto& [millimetres, text] : rows) EXPECT_EQ(FormatMillimetres(millimetres), text);
}

TEST(Millimetres, AreReadWithACommaOrAPoint) {
  const std::pair<const char*, double> rows[] = {
      {"0", 0},  {"12", 12},       {"12,5", 12.5}, {"12.5", 12.5},    {",5", 0.5},
      {"7,", 7}, {" 25,4 ", 25.4}, {"-3", -3},     {"0012,50", 12.5}, {"99999999", 99999999},
  };
  for (const auto& [text, millimetres] : rows) {
    EXPECT_EQ(ParseMillimetres(text), millimetres) << text;
  }
}

TEST(Millimetres, OtherTextsAreNoNumber) {
  for (const char* text : {"", " ", ",", "-", "breed", "12 mm", "1e3", "1 2", "1,2,3", "1.000,5",
                           "0x10", "inf", "nan", "+5", "--5", "½"}) {
    EXPECT_EQ(ParseMillimetres(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace pagivo
