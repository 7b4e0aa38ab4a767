// The operators of one page's content, in the unit and with the axes of the page: hundredths of a
// unit, y up from the lower left corner.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/native/document/display_list.h"
#include "engine/native/document/geometry.h"
#include "engine/native/pdf/number_format.h"

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

// Styles are written only where they change. The bytes are kept from page to page as storage.
class ContentStream {
 public:
  // Empties the stream and forgets the styles.
  void Begin();
  std::string_view Bytes() const noexcept { return bytes_; }

  void SetFillColor(Color color);
  Color FillColor() const noexcept { return state_.fill; }
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

  // For operators that are written elsewhere.
  std::string& Raw() noexcept { return bytes_; }
  void AppendPoint(PdfPoint point);

 private:
  struct State {
    Color fill = 0;
    StrokeStyle stroke;
  };

  void AppendColor(Color color, std::string_view grayOperator, std::string_view rgbOperator);
  void AppendDash(const StrokeStyle& style);
  void PaintWith(std::string_view nonZero, std::string_view evenOdd, FillRule rule);

  std::string bytes_;
  State state_;
  State saved_;
};

}  // namespace pagivo::native
