// Characters of names and notations: blanks around them, letters in any case, the bytes of UTF-8.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

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

// Whether the byte goes on with a character instead of beginning one.
constexpr bool ContinuesUtf8(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

struct DecodedCodePoint {
  char32_t codePoint = 0;
  std::size_t length = 0;  // bytes, at least 1
};

// The code point at `position`, which must lie inside `text`. A byte that does not begin a
// well-formed sequence (overlong forms and surrogates are not) counts as U+FFFD by itself.
DecodedCodePoint DecodeUtf8(std::string_view text, std::size_t position);

}  // namespace pagivo
