#include "system/utf8.h"

#include <algorithm>
#include <array>

namespace pagivo {
namespace {

struct LeadByte {
  std::size_t length;
  char32_t bits;
  char32_t smallest;  // code point that needs this length
};

LeadByte ReadLeadByte(unsigned char byte) {
  if (byte < 0x80) return {1, byte, 0};
  if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1Fu, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0Fu, 0x800};
  if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07u, 0x10000};
  return {0, 0, 0};
}

bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

bool IsScalarValue(char32_t codePoint) {
  return codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

}  // namespace

DecodedCodePoint DecodeUtf8(std::string_view text, std::size_t position) {
  constexpr DecodedCodePoint kOffendingByte{0xFFFD, 1};
  const LeadByte lead = ReadLeadByte(static_cast<unsigned char>(text[position]));
  if (lead.length == 0 || position + lead.length > text.size()) return kOffendingByte;
  char32_t codePoint = lead.bits;
  for (std::size_t i = 1; i < lead.length; ++i) {
    const char byte = text[position + i];
    if (!ContinuesUtf8(byte)) return kOffendingByte;
    codePoint = codePoint << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
  }
  if (codePoint < lead.smallest || !IsScalarValue(codePoint)) return kOffendingByte;
  return {codePoint, lead.length};
}

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const DecodedCodePoint decoded = DecodeUtf8(text, i);
    if (decoded.length == 1 && !IsAscii(text[i])) return false;
    i += decoded.length;
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t codePoint) {
  constexpr std::array<char32_t, 3> kFirstOfLonger{0x80, 0x800, 0x10000};
  constexpr std::array<char32_t, 4> kLeadBits{0, 0xC0, 0xE0, 0xF0};
  const auto* const longer = std::ranges::upper_bound(kFirstOfLonger, codePoint);
  const auto continuing = static_cast<std::size_t>(longer - kFirstOfLonger.begin());
  text += static_cast<char>(kLeadBits[continuing] | codePoint >> 6 * continuing);
  for (std::size_t i = continuing; i-- > 0;) {
    text += static_cast<char>(0x80 | (codePoint >> 6 * i & 0x3F));
  }
}

}  // namespace pagivo
