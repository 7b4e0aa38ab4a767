// Characters of names and notations: blanks around them, letters in any case; those of UTF-8 come
// along.
#pragma once

#include <algorithm>
#include <string_view>

#include "system/utf8.h"

namespace pagivo {

// Leading, trailing, or both kinds of blanks (U+0020 only) removed.
inline std::string_view TrimLeft(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

inline std::string_view TrimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

inline std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

// The Latin letters A to Z only: names of members and words of the notation have no others.
constexpr char ToLowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool EqualInAnyCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return ToLowerCase(a) == ToLowerCase(b); });
}

}  // namespace pagivo
