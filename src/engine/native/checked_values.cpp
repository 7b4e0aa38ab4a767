#include "engine/native/checked_values.h"

#include <cmath>
#include <string>

#include "engine/native/document/point_list.h"
#include "engine/native/system_colors.h"
#include "pagivo/error.h"
#include "values/conversions.h"

namespace pagivo::native {

void ThrowInvalidValue(std::string_view property) {
  throw Error(ErrorNumber::InvalidPropertyValue,
              "Ongeldige waarde voor de eigenschap " + std::string(property));
}

double CheckedCoordinate(std::string_view property, double value) {
  if (!(std::abs(value) <= kMaximumCoordinate)) ThrowInvalidValue(property);  // catches NaN too
  return value;
}

double CheckedCoordinate(std::string_view property, const Variant& value) {
  return CheckedCoordinate(property, ToDouble(value));
}

double CheckedLength(std::string_view property, const Variant& value) {
  const double length = CheckedCoordinate(property, value);
  if (length < 0) ThrowInvalidValue(property);
  return length;
}

Color CheckedColor(std::string_view property, std::int32_t value) {
  const auto color = ResolveColor(value);
  if (!color) ThrowInvalidValue(property);
  return *color;
}

}  // namespace pagivo::native
