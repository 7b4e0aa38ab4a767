// Texts in our own notation, in which Windows reads more (see windows_conversions_test.cpp).
#include <gtest/gtest.h>

#include "system/decimal_separator_in_test.h"
#include "values/conversions.h"
#include "values/outcome.h"
#include "values/variant_arithmetic.h"

namespace pagivo {
namespace {

const Outcome kMismatch = ErrorNumber::TypeMismatch;
const Outcome kOverflow = ErrorNumber::Overflow;

TEST(PortableConversions, RefuseTheOtherSeparator) {
  const struct {
    char separator;
    const char* other;
  } rows[] = {{'.', "2,5"}, {',', "2.5"}};
  for (const auto& [separator, other] : rows) {
    const DecimalSeparatorInTest regional(separator);
    EXPECT_EQ(OutcomeOf([&] { return ToBoolean(other); }), kMismatch);
    EXPECT_EQ(OutcomeOf([&] { return ToInteger(other); }), kMismatch);
    EXPECT_EQ(OutcomeOf([&] { return ToLong(other); }), kMismatch);
    EXPECT_EQ(OutcomeOf([&] { return ToSingle(other); }), kMismatch);
    EXPECT_EQ(OutcomeOf([&] { return ToDouble(other); }), kMismatch);
    EXPECT_EQ(OutcomeOf([&] { return Multiply(other, 2.0F); }), kMismatch);
    EXPECT_EQ(OutcomeOf([&] { return Divide(other, 2.0F); }), kMismatch);
  }
}

TEST(PortableConversions, AreExactInADoubleAndOverflowTheNarrowerKinds) {
  EXPECT_EQ(ToDouble("1E+39"), 1e39);
  EXPECT_TRUE(ToBoolean("1E+39"));
  EXPECT_EQ(OutcomeOf([] { return ToInteger("1E+39"); }), kOverflow);
  EXPECT_EQ(OutcomeOf([] { return ToLong("1E+39"); }), kOverflow);
  EXPECT_EQ(OutcomeOf([] { return ToSingle("1E+39"); }), kOverflow);
}

}  // namespace
}  // namespace pagivo
