// Lines and figures on a canvas.
#pragma once

#include <span>

#include "engine/native/document/display_list.h"
#include "engine/native/raster/canvas.h"
#include "engine/native/raster/page_scale.h"

namespace pagivo::native {

class VectorPainter {
 public:
  VectorPainter(Canvas& canvas, const PageScale& scale) : canvas_(canvas), scale_(scale) {}

  void SetPen(const Pen& pen) { pen_ = pen; }
  void SetBrush(const Brush& brush) { brush_ = brush; }

  void DrawLine(Point from, Point to);
  void DrawRectangle(const Rectangle& rectangle);
  void DrawCircle(Point center, float radius);
  void DrawArc(const Arc& arc);
  void DrawPolyline(std::span<const Point> points);
  void DrawPolygon(std::span<const Point> points);

 private:
  double StrokePixels() const;
  bool IsThin() const;
  double Aligned(double middle) const { return AlignedMiddle(middle, StrokePixels()); }

  void AddPoints(std::span<const Point> points);
  void AddArc(const Arc& arc);
  void AddCircle(Point center, float radius);

  // Both draw the current path, even-odd.
  void Fill();
  void Stroke(bool alignedToPixels);
  void Hatch();
  Rectangle PathBoundsWithinClip() const;
  void SetDashes();

  Canvas& canvas_;
  const PageScale& scale_;
  Pen pen_;
  Brush brush_;
};

}  // namespace pagivo::native
