#include "engine/native/checked_values.h"

#include "engine/native/system_colors.h"
#include "pagivo/error.h"
#include "values/conversions.h"

namespace pagivo::native {

double CheckedCoordinate(std::string_view property, const Variant& value) {
  return CheckedCoordinate(property, ToDouble(value));
}

double CheckedLength(std::string_view property, const Variant& value) {
  const double length = CheckedCoordinate(property, value);
  if (length < 0) ThrowInvalidPropertyValue(property);
  return length;
}

Color CheckedColor(std::string_view property, std::int32_t value) {
  const auto color = ResolveColor(value);
  if (!color) ThrowInvalidPropertyValue(property);
  return *color;
}

}  // namespace pagivo::native
