// Rows of a member table as readable text.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "values/late_binding.h"

namespace pagivo::testing {

inline std::string_view TextOf(ValueKind kind) {
  constexpr std::array<std::string_view, 12> kNames = {
      "",       "Boolean", "Integer", "Long",      "Single",   "Double",
      "String", "Variant", "Object",  "Integer()", "Single()", "String()"};
  return kNames.at(static_cast<std::size_t>(kind));
}

// `ref Variant = Missing`, `val String`, `ref Integer written`.
inline std::string TextOf(const Parameter& parameter) {
  constexpr std::array<std::string_view, 6> kDefaults = {
      "", " = Missing", " = Missing with next", " = False", " = Long 0", " = Integer 0"};
  std::string text = parameter.passing == Passing::ByValue ? "val " : "ref ";
  text += TextOf(parameter.kind);
  if (parameter.passing == Passing::WrittenBack) text += " written";
  return text.append(kDefaults.at(static_cast<std::size_t>(parameter.defaultValue)));
}

// The parameters separated by commas, equal ones in a row counted: `ref String, 2 ref Variant`.
inline std::string TextOfParameters(const MemberSignature& signature) {
  std::string text;
  const auto parameters = signature.Parameters();
  for (std::size_t first = 0; first < parameters.size();) {
    std::size_t last = first + 1;
    while (last < parameters.size() && parameters[last] == parameters[first]) ++last;
    if (!text.empty()) text += ", ";
    if (last - first > 1) text += std::to_string(last - first) + ' ';
    text += TextOf(parameters[first]);
    first = last;
  }
  return text;
}

}  // namespace pagivo::testing
