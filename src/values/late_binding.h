// Late binding: members of a class reached by name or dispatch id, with Variants for arguments.
//
// A class lists its members once, in a constexpr table of rows:
//
//   constexpr std::array kRows = {
//       BindMember<&Clock::Start>("Start", 1, MemberKind::Call),
//       BindMember<&Clock::Alarm>("Alarm", 2, MemberKind::Call, {DefaultValue::False}),
//   };
//   constexpr MemberTable<Clock> kMembers(kRows);
//
//   kMembers.Call(clock, "alarm", arguments);  // or kMembers.Call(clock, 2, arguments)
//
// What a member takes and gives is read from its C++ signature:
//
//   parameter type      the argument is                       and afterwards
//   T, const T&         converted to T                        unchanged
//   T&                  converted to T                        what the member left, when it changed
//   IntegerVariable     converted to Integer                  what the member assigned, if anything
//   [const] Array<T>&   a reference to an array of T          that same array
//
// with T one of bool, std::int16_t, std::int32_t, float, double, std::string, Variant, ObjectRef,
// TextArgument, IntegerArgument. An array is never converted: its elements must be of the very
// kind. An argument keeps its kind when it is written back, but where that cannot hold the new
// value; one for a Variant becomes whatever the member left.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "pagivo/arguments.h"
#include "pagivo/array.h"
#include "pagivo/export.h"
#include "pagivo/object.h"
#include "pagivo/variant.h"
#include "values/conversions.h"

namespace pagivo {

// --- What a row of a table says ---------------------------------------------------------------

enum class MemberKind : std::uint8_t { Call, Get, Put };

// What a parameter or a result holds. Nothing is the result of a procedure, Variant any kind.
enum class ValueKind : std::uint8_t {
  Nothing,
  Boolean,
  Integer,
  Long,
  Single,
  Double,
  String,
  Variant,
  Object,
  IntegerArray,
  SingleArray,
  StringArray,
};

enum class Passing : std::uint8_t { ByValue, ByReference, WrittenBack };

// What a parameter holds when its argument was left out: at the end, or by the missing marker.
// MarkerWithNext is a Marker that must not be the last one given: it and the parameter after it are
// left out together.
enum class DefaultValue : std::uint8_t {
  Required,
  Marker,
  MarkerWithNext,
  False,
  LongZero,
  IntegerZero
};

struct Parameter {
  ValueKind kind = ValueKind::Nothing;
  Passing passing = Passing::ByValue;
  DefaultValue defaultValue = DefaultValue::Required;

  friend bool operator==(const Parameter&, const Parameter&) = default;
};

// As many as the widest member has.
inline constexpr std::size_t kMaximumParameters = 10;

struct MemberSignature {
  std::string_view name;
  std::int32_t dispatchId = 0;
  MemberKind kind = MemberKind::Call;
  ValueKind result = ValueKind::Nothing;
  std::array<Parameter, kMaximumParameters> parameterSlots{};  // the first parameterCount are used
  std::size_t parameterCount = 0;
  std::string_view parameterNames{};  // in their order, a blank between two; of methods alone

  constexpr std::span<const Parameter> Parameters() const {
    return std::span(parameterSlots).first(parameterCount);
  }
};

template <typename Class>
struct Member : MemberSignature {
  // Takes one argument for each parameter.
  Variant (*invoke)(const MemberSignature& signature, Class& object, std::span<Variant> arguments);
};

// --- How a value of each type is bound --------------------------------------------------------

// A binding says what kind T is and what is kept of an argument while a member runs.
template <typename T>
struct Binding;

template <>
struct Binding<void> {
  static constexpr ValueKind kKind = ValueKind::Nothing;
};
template <>
struct Binding<bool> {
  static constexpr ValueKind kKind = ValueKind::Boolean;
  static bool Convert(const Variant& argument) { return ToBoolean(argument); }
};
template <>
struct Binding<std::int16_t> {
  static constexpr ValueKind kKind = ValueKind::Integer;
  static std::int16_t Convert(const Variant& argument) { return ToInteger(argument); }
};
template <>
struct Binding<std::int32_t> {
  static constexpr ValueKind kKind = ValueKind::Long;
  static std::int32_t Convert(const Variant& argument) { return ToLong(argument); }
};
template <>
struct Binding<float> {
  static constexpr ValueKind kKind = ValueKind::Single;
  static float Convert(const Variant& argument) { return ToSingle(argument); }
};
template <>
struct Binding<double> {
  static constexpr ValueKind kKind = ValueKind::Double;
  static double Convert(const Variant& argument) { return ToDouble(argument); }
};
template <>
struct Binding<std::string> {
  static constexpr ValueKind kKind = ValueKind::String;
  static std::string Convert(const Variant& argument) { return ToText(argument); }
};
template <>
struct Binding<Variant> {
  static constexpr ValueKind kKind = ValueKind::Variant;
  static Variant Convert(const Variant& argument) { return argument; }
};
template <>
struct Binding<TextArgument> : Binding<std::string> {};
template <>
struct Binding<IntegerArgument> : Binding<std::int16_t> {};
// Writes to the very argument.
template <>
struct Binding<IntegerVariable> {
  static constexpr ValueKind kKind = ValueKind::Integer;
  static IntegerVariable Convert(Variant& argument) { return argument; }
};
template <>
struct Binding<ObjectRef> {
  static constexpr ValueKind kKind = ValueKind::Object;
  static ObjectRef Convert(const Variant& argument) { return ToObject(argument); }
};

template <ValueKind kArrayKind, typename Element>
struct ArrayBinding {
  static constexpr ValueKind kKind = kArrayKind;
  static std::shared_ptr<Array<Element>> Convert(const Variant& argument) {
    const auto* array = argument.GetIf<std::shared_ptr<Array<Element>>>();
    if (array == nullptr || *array == nullptr) ThrowTypeMismatch();
    return *array;
  }
};
template <>
struct Binding<Array<std::int16_t>> : ArrayBinding<ValueKind::IntegerArray, std::int16_t> {};
template <>
struct Binding<Array<float>> : ArrayBinding<ValueKind::SingleArray, float> {};
template <>
struct Binding<Array<std::string>> : ArrayBinding<ValueKind::StringArray, std::string> {};

template <typename T>
using BindingOf = Binding<std::remove_cvref_t<T>>;

template <typename T>
inline constexpr bool kIsArray = false;
template <typename Element>
inline constexpr bool kIsArray<Array<Element>> = true;

template <typename ParameterType>
inline constexpr bool kIsVariable = std::is_lvalue_reference_v<ParameterType> &&
                                    !std::is_const_v<std::remove_reference_t<ParameterType>>;

template <typename ParameterType>
consteval Passing PassingOf() {
  if (kIsVariable<ParameterType> || std::same_as<ParameterType, IntegerVariable>) {
    return Passing::WrittenBack;
  }
  return std::is_reference_v<ParameterType> ? Passing::ByReference : Passing::ByValue;
}

// --- One call ---------------------------------------------------------------------------------

// Raises the error of an argument that cannot be converted, naming it and the member.
[[noreturn]] void ThrowArgumentError(const MemberSignature& signature, std::size_t index,
                                     const Variant& argument, const Error& cause);

// Raises WrongArgumentCount unless every required parameter and no more than all have an argument.
PAGIVO_EXPORT void CheckArgumentCount(const MemberSignature& signature, std::size_t count);

// A required parameter has no default to give.
PAGIVO_EXPORT Variant MakeDefault(DefaultValue defaultValue);

// One argument while its member runs.
template <typename ParameterType>
class Argument {
 public:
  Argument(const MemberSignature& signature, std::size_t index, Variant& given)
      : kept_(Convert(signature, index, given)) {}

  // What the member is called with.
  auto& Get() {
    if constexpr (kIsArray<std::remove_cvref_t<ParameterType>>) {
      return *kept_;
    } else {
      return kept_;
    }
  }

  void WriteBack(Variant& given) {
    if constexpr (std::same_as<ParameterType, Variant&>) {
      given = std::move(kept_);
    } else if constexpr (kIsVariable<ParameterType>) {
      if (kept_ != BindingOf<ParameterType>::Convert(given)) AssignKeepingKind(given, kept_);
    }
  }

 private:
  using Kept = decltype(BindingOf<ParameterType>::Convert(std::declval<Variant&>()));

  static Kept Convert(const MemberSignature& signature, std::size_t index, Variant& given) {
    try {
      return BindingOf<ParameterType>::Convert(given);
    } catch (const Error& cause) {
      ThrowArgumentError(signature, index, given, cause);
    }
  }

  Kept kept_;
};

// What the compiler knows of a member function.
template <typename Method>
struct MethodTraits;

template <typename ClassType, typename ResultType, typename... ParameterTypes>
struct MethodTraits<ResultType (ClassType::*)(ParameterTypes...)> {
  using Class = ClassType;
  static constexpr ValueKind kResult = BindingOf<ResultType>::kKind;
  static constexpr std::array<Parameter, sizeof...(ParameterTypes)> kParameters = {
      Parameter{BindingOf<ParameterTypes>::kKind, PassingOf<ParameterTypes>()}...};

  // Converts the arguments from left to right, calls, and writes back what the member changed.
  // Nothing is written back when anything fails.
  template <auto kMethod>
  static Variant Invoke(const MemberSignature& signature, Class& object,
                        std::span<Variant> arguments) {
    return InvokeIndexed<kMethod>(signature, object, arguments,
                                  std::index_sequence_for<ParameterTypes...>());
  }

 private:
  template <auto kMethod, std::size_t... kIndex>
  static Variant InvokeIndexed([[maybe_unused]] const MemberSignature& signature, Class& object,
                               [[maybe_unused]] std::span<Variant> arguments,
                               std::index_sequence<kIndex...>) {
    std::tuple<Argument<ParameterTypes>...> typed{
        Argument<ParameterTypes>(signature, kIndex, arguments[kIndex])...};
    const auto call = [&]() -> ResultType {
      return (object.*kMethod)(std::get<kIndex>(typed).Get()...);
    };
    Variant result;
    if constexpr (std::is_void_v<ResultType>) {
      call();
    } else {
      result = Variant(call());
    }
    (std::get<kIndex>(typed).WriteBack(arguments[kIndex]), ...);
    return result;
  }
};

// --- Making and using a table -----------------------------------------------------------------

// A row of a table. `trailingDefaults` are those of the last parameters; a parameter before them is
// required. Only a Variant that is not written back can have a default.
template <auto kMethod>
constexpr auto BindMember(std::string_view name, std::int32_t dispatchId, MemberKind kind,
                          std::initializer_list<DefaultValue> trailingDefaults = {}) {
  using Traits = MethodTraits<decltype(kMethod)>;
  static_assert(Traits::kParameters.size() <= kMaximumParameters);
  Member<typename Traits::Class> member;
  member.name = name;
  member.dispatchId = dispatchId;
  member.kind = kind;
  member.result = Traits::kResult;
  member.parameterCount = Traits::kParameters.size();
  std::ranges::copy(Traits::kParameters, member.parameterSlots.begin());
  std::size_t index = member.parameterCount - trailingDefaults.size();
  for (const DefaultValue defaultValue : trailingDefaults) {
    Parameter& parameter = member.parameterSlots.at(index++);
    if (parameter.kind != ValueKind::Variant || parameter.passing == Passing::WrittenBack) {
      throw "only a Variant that is not written back can have a default";
    }
    parameter.defaultValue = defaultValue;
  }
  member.invoke = &Traits::template Invoke<kMethod>;
  return member;
}

// Calls a member, arguments that are left out holding their defaults. What is written back reaches
// `arguments`. Raises WrongArgumentCount, an error that names the argument that cannot be
// converted, and what the member itself raises.
template <typename Class>
Variant InvokeMember(const Member<Class>& member, Class& object, std::span<Variant> arguments) {
  CheckArgumentCount(member, arguments.size());
  const std::span<const Parameter> parameters = member.Parameters();
  std::array<Variant, kMaximumParameters> complete;
  std::ranges::copy(arguments, complete.begin());
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const bool hasDefault = parameters[i].defaultValue != DefaultValue::Required;
    const bool isLeftOut = i >= arguments.size() || arguments[i].IsMissing();
    if (hasDefault && isLeftOut) complete[i] = MakeDefault(parameters[i].defaultValue);
  }
  Variant result = member.invoke(member, object, std::span(complete).first(parameters.size()));
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (parameters[i].passing == Passing::WrittenBack) arguments[i] = std::move(complete[i]);
  }
  return result;
}

// How a member is asked for: a name in any case, or a dispatch id.
PAGIVO_EXPORT bool IsAskedFor(const MemberSignature& signature, std::string_view name);
bool IsAskedFor(const MemberSignature& signature, std::int32_t dispatchId);
[[noreturn]] void ThrowUnknownMember(std::int32_t dispatchId);

// The members of a class; the rows are borrowed. A key is a name or a dispatch id. Every access
// raises UnknownMember for a key that no row of a fitting kind has, and what InvokeMember raises.
template <typename Class>
class MemberTable {
 public:
  constexpr explicit MemberTable(std::span<const Member<Class>> rows) : rows_(rows) {}

  constexpr std::span<const Member<Class>> Rows() const { return rows_; }

  // A method, or a property that takes arguments.
  template <typename Key>
  Variant Call(Class& object, Key key, std::span<Variant> arguments) const {
    return InvokeMember(Find(key, {MemberKind::Call, MemberKind::Get}), object, arguments);
  }

  template <typename Key>
  Variant Get(Class& object, Key key) const {
    return InvokeMember(Find(key, {MemberKind::Get}), object, {});
  }

  template <typename Key>
  void Put(Class& object, Key key, Variant value) const {
    InvokeMember(Find(key, {MemberKind::Put}), object, std::span(&value, 1));
  }

 private:
  template <typename Key>
  const Member<Class>& Find(Key key, std::initializer_list<MemberKind> kinds) const {
    for (const Member<Class>& row : rows_) {
      if (IsAskedFor(row, key) && std::ranges::find(kinds, row.kind) != kinds.end()) return row;
    }
    ThrowUnknownMember(key);
  }

  std::span<const Member<Class>> rows_;
};

}  // namespace pagivo
