#include "values/late_binding.h"

#include <gmock/gmock.h>

#include <vector>

namespace pagivo {
namespace {

// One member for every kind of parameter and result; `seen` tells what arrived.
class Gadget {
 public:
  virtual ~Gadget() = default;

  virtual void TakeByReference(const bool& yes, const std::int16_t& small,
                               const std::int32_t& large) {
    seen = {yes, small, large};
  }
  virtual void TakeByValue(float single, double exact, std::string text) {
    seen = {single, exact, text};
  }
  void TakeAny(const Variant& value, const ObjectRef& object) { seen = {value, object}; }
  void Optional(const Variant& needed, const Variant& marker, const Variant& flag,
                const Variant& color, const Variant& width) {
    seen = {needed, marker, flag, color, width};
  }
  bool Change(std::string& name, std::int16_t& count, bool& on, std::int32_t& large, float& single,
              double& exact, Variant& any, ObjectRef& object) {
    name += "!";
    ++count;
    on = !on;
    large *= 2;
    single /= 2;
    exact += 0.25;
    any = Null;
    object = nullptr;
    return true;
  }
  void Keep(std::string&, std::int16_t&, bool&, std::int32_t&, float&, double&, Variant&,
            ObjectRef&) {}
  void Raise(IntegerVariable limit) {
    if (limit < 10) limit = 10;
  }
  void AssignAgain(IntegerVariable value) { value = std::int16_t{value}; }
  void Corner(const Variant& x, const Variant& radiusX, const Variant& radiusY) {
    seen = {x, radiusX, radiusY};
  }
  void TakeText(const TextArgument& text, const IntegerArgument& number) {
    seen = {std::string(text), std::int16_t{number}};
  }
  void ChangeAndFail(std::int16_t& count) {
    count = 99;
    throw Error(ErrorNumber::NoDocument, "Er is geen document");
  }
  float SumOf(const Array<float>& values) {
    float sum = 0;
    for (std::int32_t i = values.LowerBound(); i <= values.UpperBound(); ++i) sum += values(i);
    return sum;
  }
  std::int16_t Fill(Array<std::string>& names, Array<std::int16_t>& codes) {
    names.Redim(0, 2);
    codes.Redim(0, 2);
    names(2) = "A4";
    codes(2) = 9;
    return 2;
  }
  std::int32_t GetLevel() { return level; }
  void PutLevel(std::int32_t newLevel) { level = newLevel; }
  double GetTenfold(std::int16_t value) { return value * 10.0; }
  std::string GiveText() { return "text"; }
  ObjectRef GiveObject() { return nullptr; }
  Variant GiveAny() { return Null; }

  std::vector<Variant> seen;
  std::int32_t level = 7;
};

constexpr std::array kRows = {
    BindMember<&Gadget::TakeByReference>("TakeByReference", 1, MemberKind::Call),
    BindMember<&Gadget::TakeByValue>("TakeByValue", 2, MemberKind::Call),
    BindMember<&Gadget::TakeAny>("TakeAny", 3, MemberKind::Call),
    BindMember<&Gadget::Optional>("Optional", 4, MemberKind::Call,
                                  {DefaultValue::Marker, DefaultValue::False,
                                   DefaultValue::LongZero, DefaultValue::IntegerZero}),
    BindMember<&Gadget::Change>("Change", 5, MemberKind::Call),
    BindMember<&Gadget::ChangeAndFail>("ChangeAndFail", 6, MemberKind::Call),
    BindMember<&Gadget::SumOf>("SumOf", 7, MemberKind::Call),
    BindMember<&Gadget::Fill>("Fill", 8, MemberKind::Call),
    BindMember<&Gadget::GetLevel>("Level", -9, MemberKind::Get),
    BindMember<&Gadget::PutLevel>("Level", -9, MemberKind::Put),
    BindMember<&Gadget::GetTenfold>("Tenfold", 10, MemberKind::Get),
    BindMember<&Gadget::GiveText>("GiveText", 11, MemberKind::Call),
    BindMember<&Gadget::GiveObject>("GiveObject", 12, MemberKind::Call),
    BindMember<&Gadget::GiveAny>("GiveAny", 13, MemberKind::Call),
    BindMember<&Gadget::Keep>("Keep", 14, MemberKind::Call),
    BindMember<&Gadget::Raise>("Raise", 15, MemberKind::Call),
    BindMember<&Gadget::AssignAgain>("AssignAgain", 16, MemberKind::Call),
    BindMember<&Gadget::Corner>("Corner", 17, MemberKind::Call,
                                {DefaultValue::MarkerWithNext, DefaultValue::Marker}),
    BindMember<&Gadget::TakeText>("TakeText", 18, MemberKind::Call),
};
constexpr MemberTable<Gadget> kMembers(kRows);

using Arguments = std::vector<Variant>;

std::int16_t Int(int value) {
  return static_cast<std::int16_t>(value);
}

class LateBinding : public ::testing::Test {
 protected:
  Variant Call(std::string_view name, Arguments& arguments) {
    return kMembers.Call(gadget, name, arguments);
  }
  Variant Call(std::string_view name, Arguments&& arguments) { return Call(name, arguments); }

  template <typename Access>
  void ExpectError(ErrorNumber number, const std::string& description, Access access) {
    try {
      access();
      ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number);
      EXPECT_EQ(error.what(), description);
    }
  }

  Gadget gadget;
};

// --- Rows -------------------------------------------------------------------------------------

static_assert(kRows[0].result == ValueKind::Nothing);
static_assert(kRows[4].result == ValueKind::Boolean);
static_assert(kRows[6].parameterCount == 1);

TEST(LateBindingRow, ReadsKindsAndPassingFromTheSignature) {
  const auto kinds = [](const MemberSignature& row) {
    std::vector<std::pair<ValueKind, Passing>> result;
    for (const Parameter& parameter : row.Parameters()) {
      result.emplace_back(parameter.kind, parameter.passing);
    }
    return result;
  };
  using Expected = std::vector<std::pair<ValueKind, Passing>>;
  EXPECT_EQ(kinds(kRows[0]), (Expected{{ValueKind::Boolean, Passing::ByReference},
                                       {ValueKind::Integer, Passing::ByReference},
                                       {ValueKind::Long, Passing::ByReference}}));
  EXPECT_EQ(kinds(kRows[1]), (Expected{{ValueKind::Single, Passing::ByValue},
                                       {ValueKind::Double, Passing::ByValue},
                                       {ValueKind::String, Passing::ByValue}}));
  EXPECT_EQ(kinds(kRows[2]), (Expected{{ValueKind::Variant, Passing::ByReference},
                                       {ValueKind::Object, Passing::ByReference}}));
  EXPECT_EQ(kinds(kRows[4]), (Expected{{ValueKind::String, Passing::WrittenBack},
                                       {ValueKind::Integer, Passing::WrittenBack},
                                       {ValueKind::Boolean, Passing::WrittenBack},
                                       {ValueKind::Long, Passing::WrittenBack},
                                       {ValueKind::Single, Passing::WrittenBack},
                                       {ValueKind::Double, Passing::WrittenBack},
                                       {ValueKind::Variant, Passing::WrittenBack},
                                       {ValueKind::Object, Passing::WrittenBack}}));
  EXPECT_EQ(kinds(kRows[6]), (Expected{{ValueKind::SingleArray, Passing::ByReference}}));
  EXPECT_EQ(kinds(kRows[7]), (Expected{{ValueKind::StringArray, Passing::WrittenBack},
                                       {ValueKind::IntegerArray, Passing::WrittenBack}}));
  EXPECT_EQ(kinds(kRows[15]), (Expected{{ValueKind::Integer, Passing::WrittenBack}}));
  EXPECT_EQ(kinds(kRows[18]), (Expected{{ValueKind::String, Passing::ByReference},
                                        {ValueKind::Integer, Passing::ByReference}}));
}

TEST(LateBindingRow, ReadsTheResultKindFromTheSignature) {
  const std::vector<ValueKind> expected = {
      ValueKind::Nothing, ValueKind::Nothing, ValueKind::Nothing, ValueKind::Nothing,
      ValueKind::Boolean, ValueKind::Nothing, ValueKind::Single,  ValueKind::Integer,
      ValueKind::Long,    ValueKind::Nothing, ValueKind::Double,  ValueKind::String,
      ValueKind::Object,  ValueKind::Variant};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(kRows.at(i).result, expected[i]) << kRows[i].name;
  }
}

TEST(LateBindingRow, GivesTheDefaultsToTheLastParameters) {
  std::vector<DefaultValue> defaults;
  for (const Parameter& parameter : kRows[3].Parameters()) {
    defaults.push_back(parameter.defaultValue);
  }
  EXPECT_THAT(defaults, ::testing::ElementsAre(DefaultValue::Required, DefaultValue::Marker,
                                               DefaultValue::False, DefaultValue::LongZero,
                                               DefaultValue::IntegerZero));
}

// --- Arguments --------------------------------------------------------------------------------

TEST_F(LateBinding, ConvertsEachArgumentToTheKindOfItsParameter) {
  Call("TakeByReference", {"true", "12", 40000.5});
  EXPECT_EQ(gadget.seen, (Arguments{true, Int(12), std::int32_t{40000}}));
  Call("TakeByValue", {Int(3), 2.5F, std::int32_t{70000}});
  EXPECT_EQ(gadget.seen, (Arguments{3.0F, 2.5, "70000"}));
}

TEST_F(LateBinding, PassesAVariantAsItIs) {
  for (const Variant& value :
       {Variant(), Variant(Null), Variant(Missing), Variant("12"), Variant(1.5F)}) {
    Call("TakeAny", {value, ObjectRef()});
    EXPECT_EQ(gadget.seen, (Arguments{value, ObjectRef()}));
  }
}

TEST_F(LateBinding, GivesLeftOutTrailingArgumentsTheirDefaults) {
  Call("Optional", {Int(1)});
  EXPECT_EQ(gadget.seen, (Arguments{Int(1), Missing, false, std::int32_t{0}, Int(0)}));
  Call("Optional", {Int(1), Int(2), true});
  EXPECT_EQ(gadget.seen, (Arguments{Int(1), Int(2), true, std::int32_t{0}, Int(0)}));
}

TEST_F(LateBinding, GivesArgumentsLeftOutInTheMiddleTheirDefaults) {
  Arguments arguments = {Int(1), Missing, Missing, Missing, Int(5)};
  Call("Optional", arguments);
  EXPECT_EQ(gadget.seen, (Arguments{Int(1), Missing, false, std::int32_t{0}, Int(5)}));
  EXPECT_EQ(arguments, (Arguments{Int(1), Missing, Missing, Missing, Int(5)}));
  Call("Optional", {Int(1), Null, Null, Variant(), "x"});
  EXPECT_EQ(gadget.seen, (Arguments{Int(1), Null, Null, Variant(), "x"}));
}

TEST_F(LateBinding, PassesTheMissingMarkerOfARequiredVariantOn) {
  Call("Optional", {Missing, Int(2)});
  EXPECT_EQ(gadget.seen, (Arguments{Missing, Int(2), false, std::int32_t{0}, Int(0)}));
}

TEST_F(LateBinding, TakesArgumentsThatGoTogetherAllOrNone) {
  Call("Corner", {Int(1)});
  EXPECT_EQ(gadget.seen, (Arguments{Int(1), Missing, Missing}));
  Call("Corner", {Int(1), Int(2), Int(3)});
  EXPECT_EQ(gadget.seen, (Arguments{Int(1), Int(2), Int(3)}));
  ExpectError(ErrorNumber::WrongArgumentCount,
              "Corner: verkeerd aantal argumenten (2 in plaats van 1 of 3)", [&] {
                Call("Corner", {Int(1), Int(2)});
              });
}

TEST_F(LateBinding, ConvertsTextsAndIntegersForParametersThatTakeEveryTypeOfThem) {
  Call("TakeText", {1.5F, "12"});
  EXPECT_EQ(gadget.seen, (Arguments{Variant(1.5F).ToText(), Int(12)}));
  ExpectError(ErrorNumber::Overflow, "TakeText, argument 2 (Long): Overloop", [&] {
    Call("TakeText", {"", std::int32_t{70000}});
  });
}

TEST_F(LateBinding, ReportsAMissingMarkerForATypedParameterAsMismatch) {
  ExpectError(ErrorNumber::TypeMismatch,
              "TakeByReference, argument 2 (Missing): Typen komen niet met elkaar overeen", [&] {
                Call("TakeByReference", {true, Missing, Int(1)});
              });
}

TEST_F(LateBinding, NamesTheFirstArgumentThatCannotBeConverted) {
  ExpectError(ErrorNumber::Overflow, "TakeByReference, argument 2 (Long): Overloop", [&] {
    Call("takebyreference", {true, std::int32_t{40000}, "no number"});
  });
  EXPECT_TRUE(gadget.seen.empty());
}

TEST_F(LateBinding, ReportsAnObjectParameterThatGetsNoObject) {
  ExpectError(ErrorNumber::TypeMismatch,
              "TakeAny, argument 2 (Integer): Typen komen niet met elkaar overeen", [&] {
                Call("TakeAny", {Int(1), Int(2)});
              });
}

TEST_F(LateBinding, WritesNonConstReferencesBackInTheKindOfTheArgument) {
  Arguments arguments = {"naam", "4", false, Int(21), 5.0, 1.0F, "any", ObjectRef()};
  EXPECT_EQ(Call("Change", arguments), Variant(true));
  EXPECT_EQ(arguments, (Arguments{"naam!", "5", true, Int(42), 2.5, 1.25F, Null, ObjectRef()}));
}

TEST_F(LateBinding, WritesBackInTheKindOfTheParameterWhatTheArgumentsCannotHold) {
  Arguments arguments = {Int(5), 2.0, "True", Int(20000), 1.0F, Variant(), Variant(), ObjectRef()};
  Call("Change", arguments);
  EXPECT_EQ(arguments,
            (Arguments{"5!", 3.0, "False", std::int32_t{40000}, 0.5F, 0.25, Null, ObjectRef()}));
}

TEST_F(LateBinding, LeavesAVariableThatTheMemberDidNotChangeAsItIs) {
  const Arguments given = {Int(5),          3.0,  Int(1),    "12",
                           std::int32_t{5}, "25", Variant(), ObjectRef()};
  Arguments arguments = given;
  Call("Keep", arguments);
  EXPECT_EQ(arguments, given);
}

TEST_F(LateBinding, ChangesAnIntegerVariableOnlyWhenTheMemberAssignsIt) {
  const auto after = [&](std::string_view name, const Variant& given) {
    Arguments arguments = {given};
    Call(name, arguments);
    return arguments.front();
  };
  EXPECT_EQ(after("Raise", 12.0), Variant(12.0));
  EXPECT_EQ(after("Raise", 12.25), Variant(12.25));
  EXPECT_EQ(after("Raise", 3.0), Variant(10.0));
  EXPECT_EQ(after("Raise", "3"), Variant("10"));
  EXPECT_EQ(after("Raise", Int(3)), Variant(Int(10)));
  EXPECT_EQ(after("AssignAgain", 12.25), Variant(12.0));
}

TEST_F(LateBinding, ReportsAnIntegerVariableThatCannotBeConverted) {
  Arguments arguments = {std::int32_t{40000}};
  ExpectError(ErrorNumber::Overflow, "Raise, argument 1 (Long): Overloop",
              [&] { Call("Raise", arguments); });
}

TEST_F(LateBinding, LeavesOtherArgumentsAsTheCallerGaveThem) {
  Arguments arguments = {"true", "12", 40000.5};
  Call("TakeByReference", arguments);
  EXPECT_EQ(arguments, (Arguments{"true", "12", 40000.5}));
}

TEST_F(LateBinding, WritesNothingBackWhenTheMemberFails) {
  Arguments arguments = {Int(1)};
  ExpectError(ErrorNumber::NoDocument, "Er is geen document",
              [&] { Call("ChangeAndFail", arguments); });
  EXPECT_EQ(arguments, Arguments{Int(1)});
}

// --- Arrays -----------------------------------------------------------------------------------

TEST_F(LateBinding, PassesAnArrayByReference) {
  const auto values =
      std::make_shared<Array<float>>(Array<float>::FromValues({1.0F, 2.0F, 4.5F}, 1));
  EXPECT_EQ(Call("SumOf", {values}), Variant(7.5F));
}

TEST_F(LateBinding, LetsACalleeResizeTheCallersArrays) {
  const auto names = std::make_shared<Array<std::string>>();
  const auto codes = std::make_shared<Array<std::int16_t>>();
  Arguments arguments = {names, codes};
  EXPECT_EQ(Call("Fill", arguments), Variant(Int(2)));
  EXPECT_EQ(names->UpperBound(), 2);
  EXPECT_EQ((*names)(2), "A4");
  EXPECT_EQ((*codes)(2), 9);
  EXPECT_EQ(arguments, (Arguments{names, codes}));
}

TEST_F(LateBinding, RefusesEverythingButAnArrayOfTheVeryKind) {
  for (const Variant& other :
       {Variant(), Variant(Null), Variant(Missing), Variant(1.5F), Variant("1"),
        Variant(std::make_shared<Array<std::int16_t>>()), Variant(std::shared_ptr<Array<float>>()),
        Variant(std::make_shared<Array<std::string>>()), Variant(ObjectRef())}) {
    ExpectError(ErrorNumber::TypeMismatch,
                "SumOf, argument 1 (" + std::string(NameOf(other.GetKind())) +
                    "): Typen komen niet met elkaar overeen",
                [&] { Call("SumOf", {other}); });
  }
}

// --- Results ----------------------------------------------------------------------------------

TEST_F(LateBinding, ReturnsResultsInTheirOwnKind) {
  EXPECT_EQ(Call("GiveText", {}), Variant("text"));
  EXPECT_EQ(Call("GiveObject", {}), Variant(ObjectRef()));
  EXPECT_EQ(Call("GiveAny", {}), Variant(Null));
  EXPECT_EQ(Call("TakeByReference", {true, Int(1), Int(1)}), Variant());
}

// --- Finding members --------------------------------------------------------------------------

TEST_F(LateBinding, FindsMembersByNameInAnyCase) {
  for (const std::string_view name : {"GiveText", "givetext", "GIVETEXT", "gIVEtEXT"}) {
    EXPECT_EQ(Call(name, {}), Variant("text"));
  }
}

TEST_F(LateBinding, FindsMembersByDispatchId) {
  EXPECT_EQ(kMembers.Call(gadget, 11, {}), Variant("text"));
  EXPECT_EQ(kMembers.Get(gadget, -9), Variant(std::int32_t{7}));
}

TEST_F(LateBinding, GetsAndPutsPropertiesOfOneName) {
  kMembers.Put(gadget, "level", "12");
  EXPECT_EQ(gadget.level, 12);
  EXPECT_EQ(kMembers.Get(gadget, "LEVEL"), Variant(std::int32_t{12}));
  kMembers.Put(gadget, -9, Int(13));
  EXPECT_EQ(gadget.level, 13);
}

TEST_F(LateBinding, CallsAPropertyThatTakesArguments) {
  EXPECT_EQ(Call("Tenfold", {Int(4)}), Variant(40.0));
  EXPECT_EQ(Call("Level", {}), Variant(std::int32_t{7}));
}

TEST_F(LateBinding, CallsVirtualMembersOfDerivedClasses) {
  struct Derived : Gadget {
    void TakeByReference(const bool&, const std::int16_t&, const std::int32_t&) override {
      seen = {"derived"};
    }
  };
  Derived derived;
  Arguments arguments = {true, Int(1), Int(1)};
  kMembers.Call(derived, "TakeByReference", arguments);
  EXPECT_EQ(derived.seen, Arguments{"derived"});
}

TEST_F(LateBinding, ReportsUnknownMembers) {
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: Nergens", [&] { Call("Nergens", {}); });
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: ", [&] { Call("", {}); });
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: dispatch-id 99",
              [&] { kMembers.Call(gadget, 99, {}); });
}

TEST_F(LateBinding, ReportsMembersOfAnotherKindAsUnknown) {
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: GiveText",
              [&] { kMembers.Get(gadget, "GiveText"); });
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: Tenfold",
              [&] { kMembers.Put(gadget, "Tenfold", Int(1)); });
}

TEST_F(LateBinding, ReportsAWrongCount) {
  ExpectError(ErrorNumber::WrongArgumentCount,
              "TakeByValue: verkeerd aantal argumenten (2 in plaats van 3)", [&] {
                Call("TakeByValue", {Int(1), Int(2)});
              });
  ExpectError(ErrorNumber::WrongArgumentCount,
              "Optional: verkeerd aantal argumenten (0 in plaats van 1 tot en met 5)",
              [&] { Call("Optional", {}); });
  ExpectError(ErrorNumber::WrongArgumentCount,
              "Optional: verkeerd aantal argumenten (6 in plaats van 1 tot en met 5)",
              [&] { Call("Optional", Arguments(6)); });
  ExpectError(ErrorNumber::WrongArgumentCount,
              "GiveText: verkeerd aantal argumenten (1000 in plaats van 0)",
              [&] { Call("GiveText", Arguments(1000)); });
}

}  // namespace
}  // namespace pagivo
