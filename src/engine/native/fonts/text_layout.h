// A text with line breaks and tabs as pieces that can be drawn.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pagivo::native {

// Tabs go to the next multiple of this many twips from the text's start: half an inch.
inline constexpr double kTabDistance = 720;

// What is drawn in one go: no control characters in it.
struct TextPiece {
  std::string text;
  std::size_t line = 0;  // from 0
  double x = 0;          // of its left end from the text's start, twips
};

// Every line has at least one piece, perhaps an empty one; the last piece of a line ends it.
struct TextLayout {
  std::vector<TextPiece> pieces;
  std::size_t LineCount() const noexcept { return pieces.back().line + 1; }
};

// True for a text of one line without any control character, which needs no layout: it is a single
// piece as it stands. So are nearly all texts.
bool IsPlainLine(std::string_view text) noexcept;

// One more than the text's line breaks.
std::size_t CountLines(std::string_view text) noexcept;

// CR, LF and CR LF break lines, tabs skip, other control characters (U+0000 to U+001F, U+007F to
// U+009F) vanish. `measure` answers a piece's width in twips; it is asked only about pieces that a
// tab follows.
TextLayout LayOutText(std::string_view text,
                      const std::function<double(std::string_view)>& measure);

}  // namespace pagivo::native
