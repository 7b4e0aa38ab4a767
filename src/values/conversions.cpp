#include "values/conversions.h"

#include "values/letter_case.h"
#include "values/overloaded.h"
#include "values/regional_settings.h"

namespace pagivo {

namespace {

// `value` in another kind, or as it is for a kind that nothing is converted to.
Variant InKind(Variant::Kind kind, const Variant& value) {
  switch (kind) {
    case Variant::Kind::Boolean:
      return value.ToBoolean();
    case Variant::Kind::Integer:
      return value.ToInteger();
    case Variant::Kind::Long:
      return value.ToLong();
    case Variant::Kind::Single:
      return value.ToSingle();
    case Variant::Kind::Double:
      return value.ToDouble();
    case Variant::Kind::String:
      return value.ToText();
    default:
      return value;
  }
}

}  // namespace

bool Variant::ToBoolean() const {
  if (const bool* boolean = GetIf<bool>()) return *boolean;
  if (const auto* text = GetIf<std::string>()) {
    if (EqualInAnyCase(*text, "True")) return true;
    if (EqualInAnyCase(*text, "False")) return false;
  }
  return ToDouble() != 0;
}

std::string Variant::ToText() const {
  const auto format = [](auto number) {
    return FormatGeneral(number, CurrentRegionalSettings().decimalSeparator);
  };
  return Visit(Overloaded{
      [](std::monostate) { return std::string(); },
      [](bool boolean) { return std::string(boolean ? "True" : "False"); },
      [](std::int16_t number) { return std::to_string(number); },
      [](std::int32_t number) { return std::to_string(number); },
      [&](float number) { return format(number); },
      [&](double number) { return format(number); },
      [](const std::string& text) { return text; },
      [](const auto&) -> std::string { ThrowTypeMismatch(); },
  });
}

ObjectRef Variant::ToObject() const {
  const auto* object = GetIf<ObjectRef>();
  if (object == nullptr) ThrowTypeMismatch();
  return *object;
}

void AssignKeepingKind(Variant& variable, const Variant& value) {
  try {
    variable = InKind(variable.GetKind(), value);
  } catch (const Error&) {
    variable = value;
  }
}

}  // namespace pagivo
