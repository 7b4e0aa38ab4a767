#include "values/characters.h"

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

}  // namespace pagivo
