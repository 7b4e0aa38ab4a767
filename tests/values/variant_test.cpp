#include "pagivo/variant.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "outcome.h"

namespace pagivo {
namespace {

using Kind = Variant::Kind;

struct Thing : Object {};

struct KindRow {
  Variant value;
  Kind kind;
  std::string_view name;
};

// One value of every kind, in the order of the kinds.
std::vector<KindRow> OneOfEveryKind() {
  return {
      {Variant(), Kind::Empty, "Empty"},
      {Null, Kind::Null, "Null"},
      {Missing, Kind::Missing, "Missing"},
      {true, Kind::Boolean, "Boolean"},
      {std::int16_t{1}, Kind::Integer, "Integer"},
      {std::int32_t{1}, Kind::Long, "Long"},
      {1.0F, Kind::Single, "Single"},
      {1.0, Kind::Double, "Double"},
      {"1", Kind::String, "String"},
      {std::make_shared<Thing>(), Kind::Object, "Object"},
      {std::make_shared<Array<std::int16_t>>(), Kind::IntegerArray, "Integer()"},
      {std::make_shared<Array<float>>(), Kind::SingleArray, "Single()"},
      {std::make_shared<Array<std::string>>(), Kind::StringArray, "String()"},
  };
}

TEST(Variant, KnowsTheKindOfItsValue) {
  for (const KindRow& row : OneOfEveryKind()) {
    EXPECT_EQ(row.value.GetKind(), row.kind) << row.name;
    EXPECT_EQ(NameOf(row.kind), row.name);
    EXPECT_EQ(row.value.IsMissing(), row.kind == Kind::Missing);
    EXPECT_EQ(row.value.IsNull(), row.kind == Kind::Null);
  }
}

template <typename T>
std::optional<T> HeldAs(const Variant& value) {
  const T* held = value.GetIf<T>();
  if (held == nullptr) return std::nullopt;
  return *held;
}

TEST(Variant, GivesItsValueInItsOwnKindAlone) {
  const Variant value(std::int16_t{12});
  EXPECT_EQ(HeldAs<std::int16_t>(value), 12);
  EXPECT_EQ(HeldAs<std::int32_t>(value), std::nullopt);
  EXPECT_EQ(HeldAs<double>(value), std::nullopt);
  EXPECT_EQ(HeldAs<std::string>(value), std::nullopt);
}

TEST(Variant, ShowsItsValueToAVisitorInItsOwnType) {
  const auto isText = [](const auto& value) {
    return std::is_same_v<decltype(value), const std::string&>;
  };
  for (const KindRow& row : OneOfEveryKind()) {
    EXPECT_EQ(row.value.Visit(isText), row.kind == Kind::String) << row.name;
  }
}

TEST(Variant, HoldsTextFromEveryKindOfString) {
  EXPECT_EQ(Variant("t"), Variant(std::string("t")));
  EXPECT_EQ(Variant("t"), Variant(std::string_view("t")));
}

TEST(Variant, TakesANullPointerForTheEmptyText) {
  const char* nothing = nullptr;
  EXPECT_EQ(Variant(nothing), Variant(""));
}

TEST(Variant, HoldsANumberOfAnyTypeAsALongOrBeyondItsRangeAsADouble) {
  EXPECT_EQ(Variant(5L), Variant(std::int32_t{5}));
  EXPECT_EQ(Variant(5U), Variant(std::int32_t{5}));
  EXPECT_EQ(Variant(std::size_t{5}), Variant(std::int32_t{5}));
  EXPECT_EQ(Variant(std::uint16_t{65535}), Variant(std::int32_t{65535}));
  EXPECT_EQ(Variant(std::int8_t{-5}), Variant(std::int32_t{-5}));
  EXPECT_EQ(Variant(-2147483648LL), Variant(std::numeric_limits<std::int32_t>::min()));
  EXPECT_EQ(Variant(-2147483649LL), Variant(-2147483649.0));
  EXPECT_EQ(Variant(2147483648U), Variant(2147483648.0));
  EXPECT_EQ(Variant(1.5L), Variant(1.5));
  EXPECT_EQ(Variant(2.0L), Variant(2.0));
}

TEST(Variant, EqualsAValueOfTheSameKindAlone) {
  const std::vector<KindRow> rows = OneOfEveryKind();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t j = 0; j < rows.size(); ++j) {
      EXPECT_EQ(rows[i].value == rows[j].value, i == j) << rows[i].name << ' ' << rows[j].name;
    }
  }
}

TEST(Variant, ComparesValuesWithinAKind) {
  EXPECT_NE(Variant(std::int16_t{1}), Variant(std::int16_t{2}));
  EXPECT_NE(Variant("a"), Variant("A"));
  EXPECT_NE(Variant(true), Variant(false));
  EXPECT_EQ(Variant(0.0), Variant(-0.0));
  const Variant notANumber(std::numeric_limits<double>::quiet_NaN());
  EXPECT_NE(notANumber, notANumber);
}

TEST(Variant, EqualsANumberByValueWhateverItsKind) {
  for (const Variant& twelve : {Variant(std::int16_t{12}), Variant(std::int32_t{12}),
                                Variant(12.0F), Variant(12.0), Variant("12")}) {
    EXPECT_TRUE(twelve == 12);
    EXPECT_TRUE(12.0F == twelve);
    EXPECT_TRUE(twelve != 12.5);
    EXPECT_TRUE(twelve == std::size_t{12});
  }
  EXPECT_TRUE(Variant() == 0);
  EXPECT_TRUE(Variant(true) == -1);
}

TEST(Variant, IsOrderedByValueWhateverItsKind) {
  EXPECT_TRUE(Variant(2.5F) < Variant(std::int16_t{3}));
  EXPECT_TRUE(Variant(std::int32_t{3}) <= Variant(3.0));
  EXPECT_TRUE(Variant("10") > 9);
  EXPECT_TRUE(2 < Variant(2.5));
  EXPECT_TRUE(Variant("10") < Variant("9"));
  EXPECT_TRUE(Variant("a") > Variant("Z"));
  EXPECT_TRUE(Variant() < Variant("a"));
  EXPECT_TRUE(Variant("a") > Variant());
}

TEST(Variant, IsNeitherLessNorGreaterThanWhatItCannotBeComparedWith) {
  const Variant notANumber(std::numeric_limits<double>::quiet_NaN());
  for (const Variant& value :
       {Variant(Null), Variant(Missing), Variant("abc"), Variant(ObjectRef()), notANumber}) {
    EXPECT_TRUE((value <=> Variant(1.0)) == std::partial_ordering::unordered);
    EXPECT_FALSE(value == 0);
    EXPECT_TRUE(value != 0);
  }
}

TEST(Variant, ComparesObjectsAndArraysByIdentity) {
  const auto thing = std::make_shared<Thing>();
  EXPECT_EQ(Variant(thing), Variant(ObjectRef(thing)));
  EXPECT_NE(Variant(thing), Variant(std::make_shared<Thing>()));
  const auto numbers = std::make_shared<Array<float>>(1, 3);
  EXPECT_EQ(Variant(numbers), Variant(numbers));
  EXPECT_NE(Variant(numbers), Variant(std::make_shared<Array<float>>(1, 3)));
}

TEST(Variant, SharesAnArrayWithItsCopies) {
  const auto numbers = std::make_shared<Array<float>>(1, 3);
  const Variant original(numbers);
  const Variant copy = original;
  EXPECT_EQ(HeldAs<std::shared_ptr<Array<float>>>(copy), numbers);
  EXPECT_EQ(original, copy);
}

}  // namespace
}  // namespace pagivo
