#include "system/windows/wide_text.h"

#include "system/utf8.h"

namespace pagivo {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstOfPairs = 0x10000;  // the code points that take two units
constexpr char32_t kHighSurrogate = 0xD800;
constexpr char32_t kLowSurrogate = 0xDC00;
constexpr char32_t kSurrogateBits = 0x3FF;

bool IsSurrogate(char32_t unit, char32_t kind) {
  return (unit & ~kSurrogateBits) == kind;
}

void AppendWide(std::wstring& text, char32_t codePoint) {
  if (codePoint < kFirstOfPairs) {
    text += static_cast<wchar_t>(codePoint);
    return;
  }
  const char32_t bits = codePoint - kFirstOfPairs;
  text += static_cast<wchar_t>(kHighSurrogate | bits >> 10);
  text += static_cast<wchar_t>(kLowSurrogate | (bits & kSurrogateBits));
}

char32_t JoinPair(char32_t high, char32_t low) {
  return kFirstOfPairs + ((high & kSurrogateBits) << 10 | (low & kSurrogateBits));
}

}  // namespace

std::wstring ToWide(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const DecodedCodePoint decoded = DecodeUtf8(text, i);
    AppendWide(wide, decoded.codePoint);
    i += decoded.length;
  }
  return wide;
}

std::string FromWide(std::wstring_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t codePoint = text[i];
    const char32_t next = i + 1 < text.size() ? text[i + 1] : 0;
    if (IsSurrogate(codePoint, kHighSurrogate) && IsSurrogate(next, kLowSurrogate)) {
      codePoint = JoinPair(codePoint, next);
      ++i;
    } else if (IsSurrogate(codePoint, kHighSurrogate) || IsSurrogate(codePoint, kLowSurrogate)) {
      codePoint = kReplacement;
    }
    AppendUtf8(narrow, codePoint);
  }
  return narrow;
}

}  // namespace pagivo
