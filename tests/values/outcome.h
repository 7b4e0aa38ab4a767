// What a conversion or a calculation comes to: a value, or the number of the error that it raises.
#pragma once

#include <ostream>
#include <variant>

#include "pagivo/error.h"
#include "pagivo/variant.h"

namespace pagivo {

// For the messages of failing tests.
inline void PrintTo(const Variant& value, std::ostream* out) {
  *out << NameOf(value.GetKind());
  const auto print = [&]<typename T>(const T* held) {
    if (held != nullptr) *out << ' ' << *held;
  };
  print(value.GetIf<bool>());
  print(value.GetIf<std::int16_t>());
  print(value.GetIf<std::int32_t>());
  print(value.GetIf<float>());
  print(value.GetIf<double>());
  print(value.GetIf<std::string>());
}

inline void PrintTo(ErrorNumber number, std::ostream* out) {
  *out << "error " << static_cast<std::int32_t>(number);
}

using Outcome = std::variant<Variant, ErrorNumber>;

template <typename Action>
Outcome OutcomeOf(Action action) {
  try {
    return Variant(action());
  } catch (const Error& error) {
    return error.Number();
  }
}

}  // namespace pagivo
