// What hosts put, checked. Everything here raises Error with a Dutch description naming the
// property, or ErrorNumber::TypeMismatch for a value that is no number (Null, Missing, a text).
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/native/document/display_list.h"
#include "pagivo/variant.h"

namespace pagivo::native {

// ErrorNumber::InvalidPropertyValue.
[[noreturn]] void ThrowInvalidValue(std::string_view property);

// A position in twips, finite and not beyond kMaximumCoordinate.
double CheckedCoordinate(std::string_view property, double value);
double CheckedCoordinate(std::string_view property, const Variant& value);

// The same and not negative.
double CheckedLength(std::string_view property, const Variant& value);

// A number of the enumeration's values 0..last.
template <typename Enumeration>
Enumeration CheckedChoice(std::string_view property, std::int32_t value, Enumeration last) {
  if (value < 0 || value > static_cast<std::int32_t>(last)) ThrowInvalidValue(property);
  return static_cast<Enumeration>(value);
}

Color CheckedColor(std::string_view property, std::int32_t value);

}  // namespace pagivo::native
