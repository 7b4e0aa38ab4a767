#include "values/conversions.h"

#include "values/letter_case.h"
#include "values/overloaded.h"
#include "values/regional_settings.h"

namespace pagivo {

bool ToBoolean(const Variant& value) {
  if (const bool* boolean = value.GetIf<bool>()) return *boolean;
  if (const auto* text = value.GetIf<std::string>()) {
    if (EqualInAnyCase(*text, "True")) return true;
    if (EqualInAnyCase(*text, "False")) return false;
  }
  return ToDouble(value) != 0;
}

std::string ToText(const Variant& value) {
  const auto format = [](auto number) {
    return FormatGeneral(number, CurrentRegionalSettings().decimalSeparator);
  };
  return value.Visit(Overloaded{
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

ObjectRef ToObject(const Variant& value) {
  const auto* object = value.GetIf<ObjectRef>();
  if (object == nullptr) ThrowTypeMismatch();
  return *object;
}

}  // namespace pagivo
