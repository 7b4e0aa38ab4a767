// The report as it grows from top to bottom: pages with their running heads, numbered headings,
// paragraphs, formulas and captions.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pagivo/pg_print.h"
#include "report_rich_text.h"
#include "report_sheet.h"

namespace plumeo {

// A heading and the page on which it stands.
struct Heading {
  std::string number;
  std::string title;
  int page = 0;
  bool isChapter = false;
};

// A piece of a displayed formula: a line of rich text, a fraction, a delimiter as tall as one, or
// the exponent of what such delimiters hold.
struct FormulaPiece {
  enum class Kind { Inline, Fraction, Tall, Power };
  Kind kind = Kind::Inline;
  std::string markup;       // of a fraction, its numerator
  std::string denominator;  // of a fraction
};

FormulaPiece Inline(std::string markup);
FormulaPiece Fraction(std::string numerator, std::string denominator);
FormulaPiece Tall(std::string delimiter);
FormulaPiece Power(std::string exponent);

// Begins the document's pages. Every page is ended by what follows it: the next one, or End.
class Flow {
 public:
  // `print` must outlive the flow and have an open document without content. `runningTitle` heads
  // every page but the first.
  Flow(pagivo::PgPrint& print, std::string runningTitle);

  Sheet& Paper() { return sheet_; }
  // The text's edges on this page, and how far down it has come.
  double Right() const;
  double Bottom() const;
  double Top() const { return y_; }
  void MoveTo(double y) { y_ = y; }
  void Space(double height) { y_ += height; }

  // Ends this page and begins the next.
  void NewPage(std::int16_t orientation = Orientation::Portrait);
  // A new page unless `height` still fits on this one.
  void Need(double height);
  // Ends the last page; nothing may follow.
  void End();

  // Both are listed in the preview's contents as well as in Headings. A chapter opens a page.
  void Chapter(const std::string& title, std::int16_t orientation = Orientation::Portrait);
  void Section(const std::string& title);
  void Paragraph(std::string_view markup);
  void Bullet(std::string_view markup);
  // Centred on one axis, numbered by chapter at the right.
  void Formula(const std::vector<FormulaPiece>& pieces);
  // "Tabel 2.1" and "Figuur 2.1" with a text.
  void TableCaption(std::string_view markup);
  void FigureCaption(std::string_view markup);
  // The numbers that the next ones will get.
  std::string NextTable() const { return Numbered("tabel", tables_ + 1); }
  std::string NextFigure() const { return Numbered("figuur", figures_ + 1); }

  const std::vector<Heading>& Headings() const { return headings_; }
  int Page() const { return static_cast<int>(orientations_.size()); }
  // Of every page begun, the first one first.
  const std::vector<std::int16_t>& Orientations() const { return orientations_; }

 private:
  void DrawRunningHead();
  void AddHeading(const std::string& number, const std::string& title, bool isChapter);
  void Lines(std::string_view markup, double left);
  void Caption(const std::string& label, std::string_view markup);
  std::string Numbered(const char* word, int number) const;
  double DrawPiece(const FormulaPiece& piece, double x, double baseline);

  pagivo::PgPrint& print_;
  Sheet sheet_;
  std::string runningTitle_;
  std::string chapterTitle_;
  std::vector<Heading> headings_;
  std::vector<std::int16_t> orientations_;
  double y_ = kTextTop;
  int chapter_ = 0;
  int section_ = 0;
  int formulas_ = 0;
  int tables_ = 0;
  int figures_ = 0;
};

}  // namespace plumeo
