// Writes pages into a document.
#pragma once

#include <cstdint>

#include "engine/native/document/document.h"

namespace pagivo::native {

// Records what it is told to draw onto the page begun last or the page being overlaid. Styles
// survive from page to page; they are recorded when a command first uses them on a page, so setting
// one that nothing uses costs nothing.
class Recorder final : public Player {
 public:
  explicit Recorder(Document& document);

  void BeginPage(const PageGeometry& geometry);
  // Changes the last page's paper; only while nothing is drawn on it.
  void SetGeometry(const PageGeometry& geometry);
  bool PageIsBlank() const noexcept;

  // Drawing goes onto `page` (from 1, existing) until EndOverlay.
  void BeginOverlay(std::int32_t page);
  void EndOverlay();

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
  Document& document_;
  // State is the implementer's.
};

}  // namespace pagivo::native
