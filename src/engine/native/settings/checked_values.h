// What hosts put, checked. Every Checked function raises Error with a Dutch description that names
// the property, or ErrorNumber::TypeMismatch for a value that is no number (Null, Missing, a text).
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

#include "engine/native/document/display_list.h"
#include "engine/native/document/point_list.h"
#include "pagivo/error.h"
#include "pagivo/variant.h"

namespace pagivo::native {

// A position in twips, finite and not beyond kMaximumCoordinate.
inline double CheckedCoordinate(std::string_view property, double value) {
  const bool isPossible = std::abs(value) <= kMaximumCoordinate;  // what is no number is not
  if (!isPossible) ThrowInvalidPropertyValue(property);
  return value;
}
inline double CheckedCoordinate(std::string_view property, const Variant& value) {
  return CheckedCoordinate(property, value.ToDouble());
}

// The same and not negative.
double CheckedLength(std::string_view property, const Variant& value);

// A number of the enumeration's values 0..last.
template <typename Enumeration>
Enumeration CheckedChoice(std::string_view property, std::int32_t value, Enumeration last) {
  if (value < 0 || value > static_cast<std::int32_t>(last)) ThrowInvalidPropertyValue(property);
  return static_cast<Enumeration>(value);
}

// The colour that a host's number stands for: 0x00BBGGRR for itself, 0x800000nn for the window
// system's colour nn (0 to 30 but 25), in its usual light scheme so that a document does not depend
// on the machine. Any other number stands for none.
std::optional<Color> ResolveColor(std::int32_t value);

Color CheckedColor(std::string_view property, std::int32_t value);

}  // namespace pagivo::native
