#include "engine/native/pdf/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

namespace pagivo::native {
namespace {

std::string Decimal(std::int64_t value, int decimals) {
  std::string text;
  AppendDecimal(text, value, decimals);
  return text;
}

TEST(NumberFormat, WritesNoMoreDigitsThanNeeded) {
  const struct {
    std::int64_t value;
    int decimals;
    const char* text;
  } rows[] = {
      {0, 2, "0"},
      {5, 2, ".05"},
      {-5, 2, "-.05"},
      {50, 2, ".5"},
      {-50, 2, "-.5"},
      {100, 2, "1"},
      {-100, 2, "-1"},
      {123, 2, "1.23"},
      {-12340, 2, "-123.4"},
      {1000, 3, "1"},
      {1, 3, ".001"},
      {-1001, 3, "-1.001"},
      {7, 0, "7"},
      {-7, 0, "-7"},
      {1, 9, ".000000001"},
      {84189, 2, "841.89"},
      {INT64_MAX, 0, "9223372036854775807"},
      {INT64_MIN, 0, "-9223372036854775808"},
      {INT64_MIN, 2, "-92233720368547758.08"},
  };
  for (const auto& row : rows) EXPECT_EQ(Decimal(row.value, row.decimals), row.text);
}

TEST(NumberFormat, ReadsBackAsTheSameNumber) {
  for (std::int64_t value = -2000; value <= 2000; ++value) {
    const std::string text = Decimal(value, 2);
    EXPECT_EQ(std::lround(std::strtod(text.c_str(), nullptr) * 100), value) << text;
  }
}

TEST(NumberFormat, Appends) {
  std::string text = "a ";
  AppendInteger(text, -12);
  text += ' ';
  AppendHundredths(text, 150);
  EXPECT_EQ(text, "a -12 1.5");
}

}  // namespace
}  // namespace pagivo::native
