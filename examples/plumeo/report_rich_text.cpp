#include "report_rich_text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace plumeo {
namespace {

constexpr double kShiftedSize = 0.70;
constexpr double kDropOfSubscript = 0.20;    // em
constexpr double kRiseOfSuperscript = 0.36;  // em
constexpr double kLeanOfSymbols = 0.09;      // em
// A face with serifs looks smaller than one without at the same size.
constexpr double kSymbolSize = 1.07;

class MarkupParser {
 public:
  RichText Parse(std::string_view markup) {
    for (std::size_t i = 0; i < markup.size(); ++i) {
      const char character = markup[i];
      const bool opens = i + 1 < markup.size() && markup[i + 1] == '{';
      if (character == '\\' && i + 1 < markup.size()) {
        current_.text += markup[++i];
      } else if (character == '*') {
        Change([](Run& run) { run.symbol = !run.symbol; });
      } else if (character == '#') {
        Change([](Run& run) { run.bold = !run.bold; });
      } else if ((character == '_' || character == '^') && opens) {
        const Shift shift = character == '_' ? Shift::Subscript : Shift::Superscript;
        Change([shift](Run& run) { run.shift = shift; });
        ++i;
      } else if (character == '}' && current_.shift != Shift::None) {
        Change([](Run& run) { run.shift = Shift::None; });
      } else {
        current_.text += character;
      }
    }
    Change([](Run&) {});
    return runs_;
  }

 private:
  template <typename Action>
  void Change(Action action) {
    if (!current_.text.empty()) runs_.push_back(current_);
    current_.text.clear();
    action(current_);
  }

  RichText runs_;
  Run current_;
};

Style StyleOf(const Run& run, const Style& base) {
  Style style = base;
  if (run.symbol) {
    if (std::string_view(base.font) != kSerif) style.size *= kSymbolSize;
    style.font = kSerif;
    style.italic = true;
  }
  if (run.bold) style.bold = true;
  if (run.shift != Shift::None) style.size *= kShiftedSize;
  return style;
}

double DownOf(const Run& run, const Style& base) {
  const double em = base.size * kMillimetresPerPoint;
  switch (run.shift) {
    case Shift::Subscript:
      return kDropOfSubscript * em;
    case Shift::Superscript:
      return -kRiseOfSuperscript * em;
    case Shift::None:
      break;
  }
  return 0;
}

void Append(RichText& line, const Run& run) {
  if (run.text.empty()) return;
  if (!line.empty() && line.back().LooksLike(run)) {
    line.back().text += run.text;
  } else {
    line.push_back(run);
  }
}

// The pieces between blanks, each of one or more runs.
std::vector<RichText> WordsOf(const RichText& text) {
  std::vector<RichText> words(1);
  for (const Run& run : text) {
    Run piece = run;
    piece.text.clear();
    for (const char character : run.text) {
      if (character != ' ') {
        piece.text += character;
        continue;
      }
      Append(words.back(), piece);
      piece.text.clear();
      words.emplace_back();
    }
    Append(words.back(), piece);
  }
  std::erase_if(words, [](const RichText& word) { return word.empty(); });
  return words;
}

// A blank before a word takes the look of plain text, unless it stands between bold words.
Run BlankBetween(const RichText& line, const RichText& word) {
  Run blank;
  blank.text = " ";
  blank.bold = line.back().bold && word.front().bold;
  return blank;
}

}  // namespace

RichText ParseMarkup(std::string_view markup) {
  return MarkupParser().Parse(markup);
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    if (std::string_view("\\*#_^{}").find(character) != std::string_view::npos) escaped += '\\';
    escaped += character;
  }
  return escaped;
}

RichLine::RichLine(Sheet& sheet, const RichText& text, const Style& style) {
  double start = 0;  // of the run before, for an exponent over an index
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Run& run = text[i];
    const bool stacked =
        i > 0 && run.shift == Shift::Superscript && text[i - 1].shift == Shift::Subscript;
    if (!stacked) start = width_;
    // A slanted letter leans over towards its exponent.
    const bool leansOver = i > 0 && run.shift == Shift::Superscript && text[i - 1].symbol;
    const double lean = leansOver ? kLeanOfSymbols * style.size * kMillimetresPerPoint : 0;
    const Style runStyle = StyleOf(run, style);
    runs_.push_back({run.text, runStyle, start + lean, DownOf(run, style)});
    width_ = std::max(width_, start + lean + sheet.Width(run.text, runStyle));
  }
}

void RichLine::Draw(Sheet& sheet, double x, double baseline) const {
  for (const PlacedRun& run : runs_) {
    sheet.Text(run.text, x + run.right, baseline + run.down, run.style);
  }
}

std::vector<RichText> BreakLines(Sheet& sheet, const RichText& text, const Style& style,
                                 double width) {
  std::vector<RichText> lines;
  for (const RichText& word : WordsOf(text)) {
    if (!lines.empty()) {
      RichText longer = lines.back();
      Append(longer, BlankBetween(longer, word));
      for (const Run& run : word) Append(longer, run);
      if (RichLine(sheet, longer, style).Width() <= width) {
        lines.back() = std::move(longer);
        continue;
      }
    }
    lines.push_back(word);
  }
  return lines;
}

}  // namespace plumeo
