// A page as readable text, one line a drawing command with the styles it uses. Tests compare it.
#pragma once

#include <string>

#include "engine/native/document/document.h"

namespace pagivo::native {

// Numbers are the shortest that read back the same, colours RRGGBB. The lines:
//
//   text 1440 720 "Hallo" Arial 10 bold italic underline color 000000
//   line 0 0 100 100 pen solid 20 FF0000
//   rectangle 0 0 100 100 pen dash 0 000000 brush transparent FFFFFF
//   circle 50 50 25 pen ... brush ...
//   arc 50 50 25 from 0 radius-line to 1.5 radius-line pen ... brush ...
//   polyline 0 0 10 0 pen ...
//   polygon 0 0 10 0 10 10 pen ... brush ...
//   picture 0 0 100 100 of 288 x 396
//
// Quotes and backslashes inside a text have a backslash before them.
class TracePlayer final : public Player {
 public:
  const std::string& Text() const noexcept { return text_; }

  void SetFont(const FontDescription& font) override;
  void SetTextColor(Color color) override;
  void SetPen(const Pen& pen) override;
  void SetBrush(const Brush& brush) override;
  void DrawText(Point position, std::string_view text) override;
  void DrawLine(Point from, Point to) override;
  void DrawRectangle(const Rectangle& rectangle) override;
  void DrawCircle(Point center, float radius) override;
  void DrawArc(const Arc& arc) override;
  void DrawPolyline(std::span<const Point> points) override;
  void DrawPolygon(std::span<const Point> points) override;
  void DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) override;

 private:
  void Add(std::string_view word);
  void AddNumber(float number);
  void AddPoint(Point point);
  void AddRectangle(const Rectangle& rectangle);
  void AddPoints(std::span<const Point> points);
  void AddQuoted(std::string_view text);
  void EndLine();

  std::string text_;
  // The styles in force, as they end a line; empty until the page sets them.
  std::string font_;
  std::string textColor_;
  std::string pen_;
  std::string brush_;
};

// The whole page, a line break after every line.
std::string TracePage(const Document& document, std::int32_t page);

}  // namespace pagivo::native
