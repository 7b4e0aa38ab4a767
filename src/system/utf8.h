// The bytes of UTF-8, in which all our texts are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pagivo {

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

// Whether all of it is UTF-8.
bool IsUtf8(std::string_view text);

// Puts a Unicode scalar value behind a text.
void AppendUtf8(std::string& text, char32_t codePoint);

}  // namespace pagivo
