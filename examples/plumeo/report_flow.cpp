#include "report_flow.h"

#include <algorithm>
#include <utility>

namespace plumeo {
namespace {

constexpr double kHeadBaseline = 17;
constexpr double kHeadRule = 19.5;
constexpr double kHangingIndent = 4.5;
constexpr double kFormulaIndent = 8;
// How far a fraction reaches above and below the formula's baseline, with air.
constexpr double kTallAscent = 6.2;
constexpr double kTallDescent = 5.2;
constexpr double kPowerRise = 2.6;
constexpr double kMathAxis = 1.35;  // the fraction's bar above the baseline

}  // namespace

FormulaPiece Inline(std::string markup) {
  return {FormulaPiece::Kind::Inline, std::move(markup), {}};
}

FormulaPiece Fraction(std::string numerator, std::string denominator) {
  return {FormulaPiece::Kind::Fraction, std::move(numerator), std::move(denominator)};
}

FormulaPiece Tall(std::string delimiter) {
  return {FormulaPiece::Kind::Tall, std::move(delimiter), {}};
}

FormulaPiece Power(std::string exponent) {
  return {FormulaPiece::Kind::Power, "^{" + std::move(exponent) + "}", {}};
}

Flow::Flow(pagivo::PgPrint& print, std::string runningTitle)
    : print_(print), sheet_(print), runningTitle_(std::move(runningTitle)) {
  orientations_.push_back(Orientation::Portrait);
}

double Flow::Right() const {
  const bool landscape = orientations_.back() == Orientation::Landscape;
  return (landscape ? kPortraitHeight : kPortraitWidth) - kRightMargin;
}

double Flow::Bottom() const {
  const bool landscape = orientations_.back() == Orientation::Landscape;
  return (landscape ? kPortraitWidth : kPortraitHeight) - kFooterGap;
}

void Flow::NewPage(std::int16_t orientation) {
  // Before the page begins: a watermark is drawn with its beginning, and a page that carries
  // something keeps its orientation.
  print_.VsPPSetOrientation(orientation);
  print_.VsPPNewPage();
  orientations_.push_back(orientation);
  DrawRunningHead();
  y_ = kTextTop;
}

void Flow::Need(double height) {
  if (y_ + height > Bottom()) NewPage(orientations_.back());
}

void Flow::End() {
  print_.VsPPNewPage();
}

void Flow::DrawRunningHead() {
  sheet_.Text(runningTitle_, kHang, kHeadBaseline, kRunningStyle);
  sheet_.TextRight(chapterTitle_, Right(), kHeadBaseline, kRunningStyle);
  sheet_.Line({kHang, kHeadRule}, {Right(), kHeadRule}, kThinRule);
}

void Flow::AddHeading(const std::string& number, const std::string& title, bool isChapter) {
  headings_.push_back({number, title, Page(), isChapter});
  print_.VsPPZetInhoud((isChapter ? "" : "    ") + number + "  " + title);
}

void Flow::Chapter(const std::string& title, std::int16_t orientation) {
  ++chapter_;
  section_ = formulas_ = tables_ = figures_ = 0;
  chapterTitle_ = title;
  NewPage(orientation);
  AddHeading(std::to_string(chapter_), title, true);
  const double baseline = y_ + 3;
  sheet_.Text(std::to_string(chapter_), kHang, baseline, kChapterStyle);
  sheet_.Text(title, kTextLeft, baseline, kChapterStyle);
  y_ = baseline + 11;
}

void Flow::Section(const std::string& title) {
  ++section_;
  Need(24);
  const std::string number = std::to_string(chapter_) + "." + std::to_string(section_);
  const double baseline = y_ + 3.5;
  AddHeading(number, title, false);
  sheet_.Text(number, kHang, baseline, kSectionStyle);
  sheet_.Text(title, kTextLeft, baseline, kSectionStyle);
  y_ = baseline + 6.8;
}

void Flow::Lines(std::string_view markup, double left) {
  const auto lines = BreakLines(sheet_, ParseMarkup(markup), kBody, Right() - left);
  for (const RichText& line : lines) {
    Need(kBodyLeading);
    RichLine(sheet_, line, kBody).Draw(sheet_, left, y_);
    y_ += kBodyLeading;
  }
}

void Flow::Paragraph(std::string_view markup) {
  Lines(markup, kTextLeft);
  y_ += 2.4;
}

void Flow::Bullet(std::string_view markup) {
  Need(kBodyLeading);
  sheet_.FillCircle({kTextLeft + 1.2, y_ - 1.2}, 0.55, kAccent);
  Lines(markup, kTextLeft + kHangingIndent);
  y_ += 0.9;
}

double Flow::DrawPiece(const FormulaPiece& piece, double x, double baseline) {
  if (piece.kind == FormulaPiece::Kind::Inline || piece.kind == FormulaPiece::Kind::Power) {
    const RichLine line(sheet_, piece.markup, kFormulaStyle);
    const double rise = piece.kind == FormulaPiece::Kind::Power ? kPowerRise : 0;
    line.Draw(sheet_, x, baseline - rise);
    return x + line.Width();
  }
  if (piece.kind == FormulaPiece::Kind::Tall) {
    Style tall = kFormulaStyle;
    tall.size = 21;
    sheet_.Text(piece.markup, x, baseline + 1.0, tall);
    return x + sheet_.Width(piece.markup, tall);
  }
  const RichLine numerator(sheet_, piece.markup, kFormulaStyle);
  const RichLine denominator(sheet_, piece.denominator, kFormulaStyle);
  const double width = std::max(numerator.Width(), denominator.Width()) + 1.6;
  const double bar = baseline - kMathAxis;
  numerator.Draw(sheet_, x + (width - numerator.Width()) / 2, bar - 1.7);
  sheet_.Line({x + 0.3, bar}, {x + width - 0.3, bar}, {.colour = kInk, .width = 9});
  denominator.Draw(sheet_, x + (width - denominator.Width()) / 2, bar + 4.2);
  return x + width;
}

void Flow::Formula(const std::vector<FormulaPiece>& pieces) {
  const bool tall = std::any_of(pieces.begin(), pieces.end(), [](const FormulaPiece& piece) {
    return piece.kind != FormulaPiece::Kind::Inline;
  });
  const double ascent = tall ? kTallAscent : 2.4;
  const double descent = tall ? kTallDescent : 1.8;
  Need(ascent + descent);
  const double baseline = y_ - 2.6 + ascent;
  double x = kTextLeft + kFormulaIndent;
  for (const FormulaPiece& piece : pieces) x = DrawPiece(piece, x, baseline) + 0.4;
  ++formulas_;
  const std::string number = "(" + std::to_string(chapter_) + "." + std::to_string(formulas_) + ")";
  sheet_.TextRight(number, Right(), baseline, kBody);
  y_ = baseline + descent + 4.6;
}

std::string Flow::Numbered(const char* word, int number) const {
  return std::string(word) + "\u00a0" + std::to_string(chapter_) + "." + std::to_string(number);
}

void Flow::Caption(const std::string& label, std::string_view markup) {
  const std::string text = "#" + label + "#\u2002" + std::string(markup);
  for (const RichText& line : BreakLines(sheet_, ParseMarkup(text), kSmall, Right() - kTextLeft)) {
    RichLine(sheet_, line, kSmall).Draw(sheet_, kTextLeft, y_);
    y_ += 4.2;
  }
}

void Flow::TableCaption(std::string_view markup) {
  ++tables_;
  Caption("T" + Numbered("abel", tables_), markup);
  y_ -= 1.6;
}

void Flow::FigureCaption(std::string_view markup) {
  ++figures_;
  Caption("F" + Numbered("iguur", figures_), markup);
  y_ += 4.5;
}

}  // namespace plumeo
