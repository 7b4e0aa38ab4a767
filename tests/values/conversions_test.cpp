// Every kind of value to every kind of value.
#include "values/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include "outcome.h"
#include "system/decimal_separator_in_test.h"

namespace pagivo {
namespace {

constexpr ErrorNumber kMismatch = ErrorNumber::TypeMismatch;
constexpr ErrorNumber kOverflow = ErrorNumber::Overflow;

Variant Int(int value) {
  return static_cast<std::int16_t>(value);
}
Variant Long(std::int32_t value) {
  return value;
}

struct Target {
  const char* name;
  std::function<Variant(const Variant&)> convert;
};

const std::vector<Target>& Targets() {
  static const std::vector<Target> targets = {
      {"Boolean", [](const Variant& v) { return v.ToBoolean(); }},
      {"Integer", [](const Variant& v) { return v.ToInteger(); }},
      {"Long", [](const Variant& v) { return v.ToLong(); }},
      {"Single", [](const Variant& v) { return v.ToSingle(); }},
      {"Double", [](const Variant& v) { return v.ToDouble(); }},
      {"String", [](const Variant& v) { return v.ToText(); }},
      {"Object", [](const Variant& v) { return v.ToObject(); }},
  };
  return targets;
}

struct Row {
  Variant value;
  std::vector<Outcome> expected;  // in the order of Targets
};

void ExpectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    ASSERT_EQ(row.expected.size(), Targets().size());
    for (std::size_t i = 0; i < Targets().size(); ++i) {
      const Target& target = Targets()[i];
      EXPECT_EQ(OutcomeOf([&] { return target.convert(row.value); }), row.expected[i])
          << ::testing::PrintToString(row.value) << " to " << target.name;
    }
  }
}

struct Thing : Object {};

TEST(Conversions, TakeEveryKindToEveryKind) {
  const DecimalSeparatorInTest comma(',');
  const auto thing = std::make_shared<Thing>();
  const std::vector<Outcome> nothing(Targets().size(), kMismatch);
  ExpectRows({
      {Variant(), {false, Int(0), Long(0), 0.0F, 0.0, "", kMismatch}},
      {Null, nothing},
      {Missing, nothing},
      {false, {false, Int(0), Long(0), 0.0F, 0.0, "False", kMismatch}},
      {true, {true, Int(-1), Long(-1), -1.0F, -1.0, "True", kMismatch}},
      {Int(0), {false, Int(0), Long(0), 0.0F, 0.0, "0", kMismatch}},
      {Int(-32768), {true, Int(-32768), Long(-32768), -32768.0F, -32768.0, "-32768", kMismatch}},
      {Long(32767), {true, Int(32767), Long(32767), 32767.0F, 32767.0, "32767", kMismatch}},
      {Long(16777217),
       {true, kOverflow, Long(16777217), 16777216.0F, 16777217.0, "16777217", kMismatch}},
      {Long(-2147483647 - 1),
       {true, kOverflow, Long(-2147483647 - 1), -2147483648.0F, -2147483648.0, "-2147483648",
        kMismatch}},
      {2.5F, {true, Int(2), Long(2), 2.5F, 2.5, "2,5", kMismatch}},
      {0.1F, {true, Int(0), Long(0), 0.1F, double{0.1F}, "0,1", kMismatch}},
      {3e38F, {true, kOverflow, kOverflow, 3e38F, double{3e38F}, "3E+38", kMismatch}},
      {3.5, {true, Int(4), Long(4), 3.5F, 3.5, "3,5", kMismatch}},
      {0.1, {true, Int(0), Long(0), 0.1F, 0.1, "0,1", kMismatch}},
      {70000.0, {true, kOverflow, Long(70000), 70000.0F, 70000.0, "70000", kMismatch}},
      {1e39, {true, kOverflow, kOverflow, kOverflow, 1e39, "1E+39", kMismatch}},
      {"12", {true, Int(12), Long(12), 12.0F, 12.0, "12", kMismatch}},
      {"-2,5", {true, Int(-2), Long(-2), -2.5F, -2.5, "-2,5", kMismatch}},
      {"0", {false, Int(0), Long(0), 0.0F, 0.0, "0", kMismatch}},
      {"70000", {true, kOverflow, Long(70000), 70000.0F, 70000.0, "70000", kMismatch}},
      {"True", {true, kMismatch, kMismatch, kMismatch, kMismatch, "True", kMismatch}},
      {"", {kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, "", kMismatch}},
      {"een", {kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, "een", kMismatch}},
      {thing, {kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, ObjectRef(thing)}},
      {ObjectRef(),
       {kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, kMismatch, ObjectRef()}},
      {std::make_shared<Array<std::int16_t>>(0, 1), nothing},
      {std::make_shared<Array<float>>(0, 1), nothing},
      {std::make_shared<Array<std::string>>(0, 1), nothing},
  });
}

TEST(Conversions, ReadAndWriteTextWithTheRegionalSeparator) {
  {
    const DecimalSeparatorInTest point('.');
    EXPECT_EQ(ToText(56.69291305541992F), "56.69291");
    EXPECT_EQ(ToText(0.1), "0.1");
    EXPECT_EQ(ToDouble("2.5"), 2.5);
  }
  const DecimalSeparatorInTest comma(',');
  EXPECT_EQ(ToText(56.69291305541992F), "56,69291");
  EXPECT_EQ(ToDouble("2,5"), 2.5);
}

// --- Boolean ----------------------------------------------------------------------------------

TEST(ToBoolean, KnowsTrueAndFalseInAnyCase) {
  for (const char* text : {"True", "true", "TRUE", "tRuE"}) EXPECT_TRUE(ToBoolean(text)) << text;
  for (const char* text : {"False", "false", "FALSE", "fAlSe"}) {
    EXPECT_FALSE(ToBoolean(text)) << text;
  }
}

TEST(ToBoolean, TakesNumericTextsForTheirNumber) {
  EXPECT_TRUE(ToBoolean("-1"));
  EXPECT_TRUE(ToBoolean(" 2 "));
  EXPECT_FALSE(ToBoolean("0"));
  EXPECT_FALSE(ToBoolean("-0"));
  EXPECT_FALSE(ToBoolean("0E5"));
}

TEST(ToBoolean, RefusesOtherTexts) {
  for (const char* text : {"", " ", "waar", "Tru", "Truee", " True", "onwaar", "1x"}) {
    EXPECT_EQ(OutcomeOf([&] { return ToBoolean(text); }), Outcome(kMismatch)) << text;
  }
}

TEST(ToBoolean, TakesAnyNumberButZeroForTrue) {
  for (const Variant& value : {Int(2), Long(-1), Variant(0.001F), Variant(1e-300),
                               Variant(std::numeric_limits<float>::denorm_min())}) {
    EXPECT_TRUE(ToBoolean(value)) << ::testing::PrintToString(value);
  }
  for (const Variant& value : {Int(0), Long(0), Variant(-0.0F), Variant(-0.0)}) {
    EXPECT_FALSE(ToBoolean(value)) << ::testing::PrintToString(value);
  }
}

// --- Assigning --------------------------------------------------------------------------------

Variant Assigned(Variant variable, const Variant& value) {
  AssignKeepingKind(variable, value);
  return variable;
}

TEST(AssigningKeepingKind, ConvertsTheValueToTheVariablesKind) {
  EXPECT_EQ(Assigned(1.5, Int(3)), Variant(3.0));
  EXPECT_EQ(Assigned(1.5F, Int(3)), Variant(3.0F));
  EXPECT_EQ(Assigned(Long(1), Int(3)), Long(3));
  EXPECT_EQ(Assigned(Int(1), Long(3)), Int(3));
  EXPECT_EQ(Assigned("1", Int(3)), Variant("3"));
  EXPECT_EQ(Assigned(true, Int(0)), Variant(false));
}

TEST(AssigningKeepingKind, TakesTheValuesKindWhereItsOwnCannotHoldTheValue) {
  EXPECT_EQ(Assigned(Int(1), Long(70000)), Long(70000));
  EXPECT_EQ(Assigned(1.5, "Laser"), Variant("Laser"));
  for (const Variant& kindless : {Variant(), Variant(Null), Variant(ObjectRef())}) {
    EXPECT_EQ(Assigned(kindless, Int(3)), Int(3));
  }
}

}  // namespace
}  // namespace pagivo
