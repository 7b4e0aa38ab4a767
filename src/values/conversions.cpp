#include "values/conversions.h"

#include <algorithm>

#include "values/letter_case.h"
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
  using Kind = Variant::Kind;
  switch (value.GetKind()) {
    case Kind::Empty:
      return {};
    case Kind::Boolean:
      return *value.GetIf<bool>() ? "True" : "False";
    case Kind::Integer:
      return std::to_string(*value.GetIf<std::int16_t>());
    case Kind::Long:
      return std::to_string(*value.GetIf<std::int32_t>());
    case Kind::Single:
      return FormatGeneral(*value.GetIf<float>(), CurrentRegionalSettings().decimalSeparator);
    case Kind::Double:
      return FormatGeneral(*value.GetIf<double>(), CurrentRegionalSettings().decimalSeparator);
    case Kind::String:
      return *value.GetIf<std::string>();
    default:
      ThrowTypeMismatch();
  }
}

ObjectRef ToObject(const Variant& value) {
  const auto* object = value.GetIf<ObjectRef>();
  if (object == nullptr) ThrowTypeMismatch();
  return *object;
}

}  // namespace pagivo
