// Text with symbols, subscripts and superscripts in it.
//
// Markup: *C* is a symbol (italic, with serifs), _{max} a subscript, ^{3} a superscript, #text# is
// bold; a backslash takes the next character as it is. An index and an exponent that follow each
// other stand above each other.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report_sheet.h"

namespace plumeo {

enum class Shift { None, Subscript, Superscript };

struct Run {
  std::string text;
  bool symbol = false;
  bool bold = false;
  Shift shift = Shift::None;

  bool LooksLike(const Run& other) const {
    return symbol == other.symbol && bold == other.bold && shift == other.shift;
  }
};

using RichText = std::vector<Run>;

RichText ParseMarkup(std::string_view markup);

// A text that came from outside as markup that shows exactly it.
std::string Escaped(std::string_view text);

// A line of rich text in a style, measured and ready to be drawn.
class RichLine {
 public:
  RichLine(Sheet& sheet, const RichText& text, const Style& style);
  RichLine(Sheet& sheet, std::string_view markup, const Style& style)
      : RichLine(sheet, ParseMarkup(markup), style) {}

  double Width() const { return width_; }
  void Draw(Sheet& sheet, double x, double baseline) const;

 private:
  struct PlacedRun {
    std::string text;
    Style style;
    double right;  // of the line's start
    double down;   // of the line's baseline
  };
  std::vector<PlacedRun> runs_;
  double width_ = 0;
};

// Broken at blanks so that each line is at most `width` wide, a longer word apart.
std::vector<RichText> BreakLines(Sheet& sheet, const RichText& text, const Style& style,
                                 double width);

}  // namespace plumeo
