// Turns a page's record into a content stream.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/document/document.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/pdf/content_stream.h"
#include "engine/native/pdf/font_embedder.h"
#include "engine/native/pdf/image_embedder.h"
#include "engine/native/pdf/text_writer.h"

namespace pagivo::native {

// The coordinates of a PDF page. They count upwards from the lower left corner in units of 1/72
// inch, of which readers take at most 14,400 a side; on larger pages the unit is larger.
class PdfGeometry {
 public:
  explicit PdfGeometry(const PageGeometry& page);

  // Points in one unit of this page, at least 1.
  int UserUnit() const noexcept { return userUnit_; }
  PdfPoint Size() const noexcept { return size_; }
  // In twips, and within the limits of a page whatever the record says.
  const PageGeometry& Paper() const noexcept { return paper_; }

  // From twips. Positions far beyond the paper are moved to the largest distance that every reader
  // can count.
  Hundredths Length(double twips) const;
  PdfPoint At(double x, double y) const;
  PdfPoint At(Point point) const { return At(point.x, point.y); }

  // The same unrounded, in units.
  double XInUnits(double x) const { return x * unitsPerTwip_; }
  double YInUnits(double y) const { return (paper_.height - y) * unitsPerTwip_; }
  double InUnits(double twips) const { return twips * unitsPerTwip_; }

 private:
  PageGeometry paper_;
  int userUnit_;
  double unitsPerTwip_;
  PdfPoint size_;
};

// It leaves out what has a coordinate that is no number.
class PagePlayer final : public Player {
 public:
  PagePlayer(FontEmbedder& fonts, ImageEmbedder& images) : images_(images), text_(stream_, fonts) {}

  // The content of one page. It stays until the next call.
  std::string_view Play(const Document& document, std::int32_t page, const PdfGeometry& geometry);

  void SetFont(const FontDescription& font) override;
  void SetTextColor(Color color) override { textColor_ = color; }
  void SetPen(const Pen& pen) override { pen_ = pen; }
  void SetBrush(const Brush& brush) override { brush_ = brush; }
  void DrawText(Point position, std::string_view text) override;
  void DrawLine(Point from, Point to) override;
  void DrawRectangle(const Rectangle& rectangle) override;
  void DrawCircle(Point center, float radius) override;
  void DrawArc(const Arc& arc) override;
  void DrawPolyline(std::span<const Point> points) override;
  void DrawPolygon(std::span<const Point> points) override;
  void DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) override;

 private:
  // How a closed path is drawn.
  struct Figure {
    Pen pen;
    Rectangle bounds;
    FillRule rule;
  };

  double DrawLine(std::string_view text, const TextPlacement& placement);
  void Underline(double from, double to, double baseline);
  // `dashPhase` is where in the pattern of dashes lines begin, twips.
  void UsePen(const Pen& pen, double dashPhase = 0);
  bool IsWithinReach(const Rectangle& bounds, const Pen& pen) const;
  void StrokeParts(const std::vector<ExactPoint>& line, const Pen& pen);
  void AddArc(const Arc& arc, double sweep);
  void AddPoints(std::span<const Point> points);
  void Hatch(const Rectangle& bounds);
  template <typename AddPath>
  void FillFigure(const Figure& figure, AddPath addPath);
  template <typename AddPath, typename Outline>
  void DrawFigure(const Figure& figure, AddPath addPath, Outline outline);

  ImageEmbedder& images_;
  ContentStream stream_;
  TextWriter text_;
  const PdfGeometry* geometry_ = nullptr;  // of the page that is being played

  FontDescription fontDescription_;
  std::shared_ptr<Font> font_;
  double em_ = 0;      // of the font, in twips; 0 where nothing can be drawn
  double ascent_ = 0;  // likewise
  Color textColor_ = 0;
  Pen pen_;
  Brush brush_;
  ShapedLine line_;
};

}  // namespace pagivo::native
