#include "engine/native/fonts/text_layout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace pagivo::native {
namespace {

using EightBytes = std::uint64_t;

constexpr EightBytes Repeated(std::uint8_t byte) {
  return byte * EightBytes{0x0101010101010101};
}

// Whether all bytes are characters of ASCII and none is a control character.
constexpr bool ArePrintableAscii(EightBytes bytes) {
  return (((bytes + Repeated(1)) | bytes | (bytes - Repeated(' '))) & Repeated(0x80)) == 0;
}

// Whether one of the bytes is less than `limit`, which is 0x80 at most.
constexpr bool HasLess(EightBytes bytes, std::uint8_t limit) {
  return ((bytes - Repeated(limit)) & ~bytes & Repeated(0x80)) != 0;
}

constexpr bool Has(EightBytes bytes, std::uint8_t byte) {
  return HasLess(bytes ^ Repeated(byte), 1);
}

// Whether one of the bytes is one that a control character can begin with. Most are soon told.
bool MayHoldControl(EightBytes bytes) noexcept {
  if (ArePrintableAscii(bytes)) return false;
  return HasLess(bytes, 0x20) || Has(bytes, 0x7F) || Has(bytes, 0xC2);
}

template <typename Word>
EightBytes WordAt(const char* place) noexcept {
  Word word;
  std::memcpy(&word, place, sizeof word);
  return word;
}

// All bytes of a text that has fewer than eight, some of them twice or beside blanks.
EightBytes FewBytes(std::string_view text) noexcept {
  constexpr std::size_t kHalf = sizeof(std::uint32_t);
  if (text.size() >= kHalf) {
    return WordAt<std::uint32_t>(text.data()) << 32 |
           WordAt<std::uint32_t>(text.data() + text.size() - kHalf);
  }
  EightBytes bytes = Repeated(' ');
  for (const char c : text) bytes = bytes << 8 | static_cast<unsigned char>(c);
  return bytes;
}

// The same of a text. Its end is looked at together with the bytes before it.
bool MayHoldControl(std::string_view text) noexcept {
  if (text.size() < sizeof(EightBytes)) return MayHoldControl(FewBytes(text));
  const std::size_t last = text.size() - sizeof(EightBytes);
  for (std::size_t i = 0; i < last; i += sizeof(EightBytes)) {
    if (MayHoldControl(WordAt<EightBytes>(text.data() + i))) return true;
  }
  return MayHoldControl(WordAt<EightBytes>(text.data() + last));
}

// How many bytes at the start of `text` are one control character; 0 when it starts with another.
std::size_t ControlLength(std::string_view text) noexcept {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x20 || first == 0x7F) return 1;
  // U+0080 to U+009F.
  const bool isControl = first == 0xC2 && text.size() > 1 &&
                         static_cast<unsigned char>(text[1]) >= 0x80 &&
                         static_cast<unsigned char>(text[1]) < 0xA0;
  return isControl ? 2 : 0;
}

double NextTab(double x) {
  return (std::floor(x / kTabDistance) + 1) * kTabDistance;
}

}  // namespace

bool IsPlainLine(std::string_view text) noexcept {
  // Nearly all texts end here.
  if (!MayHoldControl(text)) return true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (ControlLength(text.substr(i)) > 0) return false;
  }
  return true;
}

std::size_t CountLines(std::string_view text) noexcept {
  std::size_t lines = 1;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isSecondHalf = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
    if ((text[i] == '\r' || text[i] == '\n') && !isSecondHalf) ++lines;
  }
  return lines;
}

TextLayout LayOutText(std::string_view text,
                      const std::function<double(std::string_view)>& measure) {
  TextLayout layout;
  layout.pieces.emplace_back();
  while (!text.empty()) {
    TextPiece& piece = layout.pieces.back();
    const std::size_t control = ControlLength(text);
    if (control == 0) {
      piece.text += text[0];
      text.remove_prefix(1);
      continue;
    }
    if (text[0] == '\t') {
      layout.pieces.push_back(
          {.text = {}, .line = piece.line, .x = NextTab(piece.x + measure(piece.text))});
    } else if (text[0] == '\r' || text[0] == '\n') {
      layout.pieces.push_back({.text = {}, .line = piece.line + 1});
    }
    text.remove_prefix(text.starts_with("\r\n") ? 2 : control);
  }
  return layout;
}

}  // namespace pagivo::native
