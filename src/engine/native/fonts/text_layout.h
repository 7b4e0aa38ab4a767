// Lays out a text with line breaks and tabs, as pieces that can be drawn.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "values/measures.h"

namespace pagivo::native {

// Tabs go to the next multiple of this many twips from the text's start.
inline constexpr double kTabDistance = kTwipsPerInch / 2;

// A piece is drawn in one go, for it has no control characters.
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

// Whether a text is one line without any control character. It then needs no layout, for it is a
// single piece as it stands. Nearly all texts are.
bool IsPlainLine(std::string_view text) noexcept;

// A text has one line more than it has line breaks.
std::size_t CountLines(std::string_view text) noexcept;

// CR, LF and CR LF break lines, tabs skip, other control characters (U+0000 to U+001F, U+007F to
// U+009F) vanish. `measure` answers a piece's width in twips; it is asked only about pieces that a
// tab follows.
TextLayout LayOutText(std::string_view text,
                      const std::function<double(std::string_view)>& measure);

}  // namespace pagivo::native
