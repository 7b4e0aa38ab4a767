#include "engine/native/pdf/text_string.h"

#include <algorithm>

#include "values/utf8.h"

namespace pagivo::native {
namespace {

bool IsPrintableAscii(char character) {
  return character >= ' ' && character <= '~';
}

void AppendUtf16Unit(std::string& out, char32_t unit) {
  AppendHexByte(out, static_cast<unsigned>(unit >> 8));
  AppendHexByte(out, static_cast<unsigned>(unit & 0xFF));
}

}  // namespace

std::u32string DecodeText(std::string_view text) {
  std::u32string codePoints;
  for (std::size_t i = 0; i < text.size();) {
    const DecodedCodePoint decoded = DecodeUtf8(text, i);
    codePoints.push_back(decoded.codePoint);
    i += decoded.length;
  }
  return codePoints;
}

void AppendHexByte(std::string& out, unsigned value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out.push_back(kDigits[value >> 4 & 0xF]);
  out.push_back(kDigits[value & 0xF]);
}

void AppendUtf16Hex(std::string& out, std::u32string_view text) {
  for (const char32_t codePoint : text) {
    if (codePoint < 0x10000) {
      AppendUtf16Unit(out, codePoint);
    } else {
      AppendUtf16Unit(out, 0xD800 + ((codePoint - 0x10000) >> 10));
      AppendUtf16Unit(out, 0xDC00 + ((codePoint - 0x10000) & 0x3FF));
    }
  }
}

void AppendTextString(std::string& out, std::string_view text) {
  if (!std::ranges::all_of(text, IsPrintableAscii)) {
    out += "<FEFF";
    AppendUtf16Hex(out, DecodeText(text));
    out.push_back('>');
    return;
  }
  out.push_back('(');
  for (const char character : text) {
    if (character == '(' || character == ')' || character == '\\') out.push_back('\\');
    out.push_back(character);
  }
  out.push_back(')');
}

void AppendName(std::string& out, std::string_view text) {
  constexpr std::string_view kDelimiters = "()<>[]{}/%#";
  out.push_back('/');
  for (const char character : text) {
    if (IsPrintableAscii(character) && character != ' ' &&
        kDelimiters.find(character) == std::string_view::npos) {
      out.push_back(character);
    } else if (character != '\0') {
      out.push_back('#');
      AppendHexByte(out, static_cast<unsigned char>(character));
    }
  }
}

}  // namespace pagivo::native
