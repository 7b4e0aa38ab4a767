// The operators of one page's content, in the unit and with the axes of the page: hundredths of a
// unit, y up from the lower left corner.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/native/document/display_list.h"
#include "engine/native/document/geometry.h"
#include "engine/native/pdf/content_bytes.h"
#include "engine/native/pdf/pdf_syntax.h"

namespace pagivo::native {

struct PdfPoint {
  Hundredths x = 0;
  Hundredths y = 0;
};

// How lines are drawn. Caps and joins are PDF's own numbers.
struct StrokeStyle {
  Color color = 0;
  Hundredths width = 100;
  int cap = 0;
  int join = 0;
  PenStyle dash = PenStyle::Solid;  // of which only the dash pattern counts
  Hundredths dashPhase = 0;         // where in the pattern lines begin
  friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

// The name of a font resource: F and its number.
std::string FontName(std::uint16_t number);

// Knows what is open: a string of glyphs within a text object, or a path. Whoever draws a figure or
// text says so and no more; what has to be ended or begun for it is written here, and styles are
// written only where they change. The bytes are kept from page to page as storage.
class ContentStream {
 public:
  // Empties the stream and forgets the styles.
  void Begin();

  // Ends what is open and gives all bytes, which stay until the next Begin.
  std::string_view Finish();

  // --- Figures: a path is begun with MoveTo or AddRectangle, after its styles have been set, and
  // ends when it is drawn or clips. The text object ends before.

  void SetFillColor(Color color);
  void SetStroke(const StrokeStyle& style);

  void MoveTo(PdfPoint point);
  void LineTo(PdfPoint point);
  void CurveTo(PdfPoint control1, PdfPoint control2, PdfPoint end);
  void AddRectangle(PdfPoint corner, Hundredths width, Hundredths height);
  void ClosePath();

  void Stroke();
  void Fill(FillRule rule);
  void FillAndStroke(FillRule rule);

  // Restricts what follows to the path, until RestoreState, which brings the styles back, too.
  void SaveState();
  void Clip(FillRule rule);
  void RestoreState();

  // Draws an image resource into the parallelogram that the unit square is mapped to.
  void DrawImage(std::string_view name, PdfPoint origin, Hundredths width, Hundredths height);

  // --- Text: glyphs go to the open string, which is begun where there is none and ends when a
  // style or a line does.

  void SetTextColor(Color color);
  // Thickens glyphs by outlining them with this stroke, until FillGlyphs.
  void OutlineGlyphs(const StrokeStyle& style);
  void FillGlyphs();
  // The size is in thousandths of a unit.
  void SelectFont(std::uint16_t number, std::int64_t size) {
    if (number != font_ || size != fontSize_) WriteFont(number, size);
  }

  // Whether the next glyph would stand on such a line.
  bool IsOnLine(Hundredths baseline, double slant) const noexcept {
    return mode_ >= Mode::Text && lineStart_.y == baseline && lineSlant_ == slant;
  }
  // Puts the pen at the start of a line. The slant is the tangent of its angle.
  void StartLine(PdfPoint start, double slant);
  // Moves the pen back within the line: thousandths of the em with that many decimals.
  void MovePenBack(std::int64_t distance, int decimals);

  bool IsInString() const noexcept { return mode_ == Mode::String; }
  void EndString();
  // A glyph's code, of one byte or two.
  void AddCode(std::uint16_t code, int bytes);
  // Memory for further codes of one byte each, at most so many and no more than the open string
  // takes until it has to end for its length. Those before `end` of EndCodesAt belong to it.
  std::span<char> RoomForCodes(std::size_t most);
  void EndCodesAt(const char* end) noexcept { bytes_.EndAt(end); }

  // The glyphs up to EndActualText stand for this text, UTF-8. There must be a line.
  void BeginActualText(std::string_view text);
  void EndActualText();

 private:
  // What is open. A string is within a text object.
  enum class Mode : std::uint8_t { Page, Path, Text, String };

  struct Styles {
    Color fill = 0;
    StrokeStyle stroke;
  };

  void EndText();
  void BeginPath();
  void PaintPath(std::string_view paintOperator);
  void WriteColor(Color color, std::string_view grayOperator, std::string_view rgbOperator);
  void WriteFillColor(Color color);
  void WriteStroke(const StrokeStyle& style);
  void WriteDash(const StrokeStyle& style);
  void WriteFont(std::uint16_t number, std::int64_t size);
  void OpenString();
  std::size_t RoomInString() const noexcept;

  ContentBytes bytes_;
  Mode mode_ = Mode::Page;
  Styles styles_;
  Styles savedStyles_;

  // How glyphs are drawn until told otherwise.
  std::int32_t font_ = -1;
  std::int64_t fontSize_ = 0;
  bool outlinesGlyphs_ = false;

  // Of the text object that is open.
  PdfPoint lineStart_;
  double lineSlant_ = 0;
  std::size_t stringBegin_ = 0;
  bool inActualText_ = false;
};

}  // namespace pagivo::native
