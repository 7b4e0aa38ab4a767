// A host's session with every output, as short as it can be.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "pagivo/array.h"
#include "pagivo/pg_print.h"
#include "pagivo/variant.h"

namespace pagivo::testing {

struct SessionOutcome {
  bool isPdfWritten = false;
  bool isPngWritten = false;
  // Calls that ended in an Error, and those that ended in anything else.
  int errors = 0;
  int foreignExceptions = 0;
};

// Composes two pages with text, figures, a picture, a watermark and page numbers, shows the
// preview, and writes `folder`/sessie.pdf and sessie.png. Goes on whatever fails. The host itself
// takes all the memory that it needs when the session is made.
class ShortSession {
 public:
  explicit ShortSession(const std::string& folder);

  SessionOutcome Run();

  std::string PdfPath() const { return pdf_; }
  std::string PngPath() const { return png_; }

 private:
  template <typename Call>
  bool Try(Call call);
  void Compose();
  void ComposePage();
  void NumberPages();

  std::string pdf_;
  std::string png_;
  std::string picture_;
  std::string text_ = "Een tekst met blanco's achteraan, en kerning: AVATAR   ";
  std::string rightText_ = "   rechts uitgelijnd, voorin blanco";
  std::string mixedText_ = "\u05E9\u05DC\u05D5\u05DD \u03B1\u03B2\u03B3";
  std::string chapter_ = "Een hoofdstuk met een lange naam";
  std::string title_ = "Een titel die niet in een korte tekst past";
  std::string number_ = "Het nummer van de bladzijde";
  Variant fontName_ = "Times New Roman";
  std::array<Variant, 3> byName_{"Langs een naam aangeroepen, als door een script", 1440.0, 5000.0};
  Array<float> x_ = Array<float>::FromValues({0, 1000, 2000, 3000}, 0);
  Array<float> y_ = Array<float>::FromValues({0, 7000, 8000, 7500}, 0);
  std::optional<PgPrint> print_;
  SessionOutcome outcome_;
};

}  // namespace pagivo::testing
