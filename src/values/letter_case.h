// Comparing names whose letters may be in any case.
#pragma once

#include <algorithm>
#include <string_view>

namespace pagivo {

// The Latin letters A to Z only: names of members and words of the notation have no others.
constexpr char ToLowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool EqualInAnyCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return ToLowerCase(a) == ToLowerCase(b); });
}

}  // namespace pagivo
