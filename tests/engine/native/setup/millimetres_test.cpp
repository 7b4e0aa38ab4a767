#include "engine/native/setup/millimetres.h"

#include <gtest/gtest.h>

#include <utility>

namespace pagivo::native {
namespace {

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
}  // namespace pagivo::native
