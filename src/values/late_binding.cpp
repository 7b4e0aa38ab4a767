#include "values/late_binding.h"

#include "values/characters.h"

namespace pagivo {

namespace {

bool CanBeLastGiven(const Parameter& parameter) {
  return parameter.defaultValue != DefaultValue::MarkerWithNext;
}

// The numbers of arguments that a member takes, e.g. "4 tot en met 10" or "3 of 5".
std::string ExpectedCount(const MemberSignature& signature, std::size_t fewest) {
  const std::size_t most = signature.parameterCount;
  if (fewest == most) return std::to_string(most);
  const bool isPair = most - fewest == 2 && !CanBeLastGiven(signature.Parameters()[fewest]);
  return std::to_string(fewest) + (isPair ? " of " : " tot en met ") + std::to_string(most);
}

}  // namespace

void ThrowArgumentError(const MemberSignature& signature, std::size_t index,
                        const Variant& argument, const Error& cause) {
  throw Error(cause.Number(), std::string(signature.name) + ", argument " +
                                  std::to_string(index + 1) + " (" +
                                  std::string(NameOf(argument.GetKind())) + "): " + cause.what());
}

void CheckArgumentCount(const MemberSignature& signature, std::size_t count) {
  const auto fewest = static_cast<std::size_t>(
      std::ranges::count(signature.Parameters(), DefaultValue::Required, &Parameter::defaultValue));
  const bool isPossible = count >= fewest && count <= signature.parameterCount;
  if (isPossible && (count == 0 || CanBeLastGiven(signature.Parameters()[count - 1]))) return;
  throw Error(ErrorNumber::WrongArgumentCount, std::string(signature.name) +
                                                   ": verkeerd aantal argumenten (" +
                                                   std::to_string(count) + " in plaats van " +
                                                   ExpectedCount(signature, fewest) + ")");
}

Variant MakeDefault(DefaultValue defaultValue) {
  switch (defaultValue) {
    case DefaultValue::False:
      return false;
    case DefaultValue::LongZero:
      return std::int32_t{0};
    case DefaultValue::IntegerZero:
      return std::int16_t{0};
    case DefaultValue::Marker:
    case DefaultValue::MarkerWithNext:
    case DefaultValue::Required:
      break;
  }
  return Missing;
}

bool IsAskedFor(const MemberSignature& signature, std::string_view name) {
  return EqualInAnyCase(signature.name, name);
}

bool IsAskedFor(const MemberSignature& signature, std::int32_t dispatchId) {
  return signature.dispatchId == dispatchId;
}

void ThrowUnknownMember(std::int32_t dispatchId) {
  ThrowUnknownMember("dispatch-id " + std::to_string(dispatchId));
}

Object::~Object() = default;

Variant Object::GetMember(std::string_view name) {
  ThrowUnknownMember(name);
}

void Object::PutMember(std::string_view name, const Variant&) {
  ThrowUnknownMember(name);
}

Variant Object::CallMember(std::string_view name, std::span<Variant>) {
  ThrowUnknownMember(name);
}

}  // namespace pagivo
