#include "engine/native/fonts/text_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pagivo::native {
namespace {

// The bytes that a control character can begin with.
constexpr std::array<bool, 256> kControlBytes = [] {
  std::array<bool, 256> bytes{};
  std::fill_n(bytes.begin(), 0x20, true);
  bytes[0x7F] = true;
  bytes[0xC2] = true;
  return bytes;
}();

bool MayBeginControl(char c) noexcept {
  return kControlBytes[static_cast<unsigned char>(c)];
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
  if (std::ranges::none_of(text, MayBeginControl)) return true;
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
