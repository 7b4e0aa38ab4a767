#include "system/windows/wide_text.h"

#include <algorithm>

#include "system/utf8.h"

namespace pagivo {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyondAscii = 0x80;
constexpr char32_t kFirstOfPairs = 0x10000;  // the code points that take two units
constexpr char32_t kHighSurrogate = 0xD800;
constexpr char32_t kLowSurrogate = 0xDC00;
constexpr char32_t kSurrogateBits = 0x3FF;

bool IsSurrogate(char32_t unit, char32_t kind) {
  return (unit & ~kSurrogateBits) == kind;
}

char32_t JoinPair(char32_t high, char32_t low) {
  return kFirstOfPairs + ((high & kSurrogateBits) << 10 | (low & kSurrogateBits));
}

// How many characters a text begins with that are the same in both forms. Most texts are nothing
// else.
template <typename Character>
std::size_t PlainLength(std::basic_string_view<Character> text) {
  const auto beyond = std::ranges::find_if(text, [](Character unit) {
    return static_cast<std::make_unsigned_t<Character>>(unit) >= kFirstBeyondAscii;
  });
  return static_cast<std::size_t>(beyond - text.begin());
}

}  // namespace

void AppendWide(std::wstring& text, char32_t codePoint) {
  if (codePoint < kFirstOfPairs) {
    text += static_cast<wchar_t>(codePoint);
    return;
  }
  const char32_t bits = codePoint - kFirstOfPairs;
  text += static_cast<wchar_t>(kHighSurrogate | bits >> 10);
  text += static_cast<wchar_t>(kLowSurrogate | (bits & kSurrogateBits));
}

std::wstring ToWide(std::string_view text) {
  std::size_t i = PlainLength(text);
  std::wstring wide(text.begin(), text.begin() + i);
  while (i < text.size()) {
    const DecodedCodePoint decoded = DecodeUtf8(text, i);
    AppendWide(wide, decoded.codePoint);
    i += decoded.length;
  }
  return wide;
}

std::string FromWide(std::wstring_view text) {
  std::size_t i = PlainLength(text);
  std::string narrow(text.begin(), text.begin() + i);
  for (; i < text.size(); ++i) {
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
