// Lines and figures on a canvas.
#pragma once

#include <span>

#include "engine/native/document/display_list.h"
#include "engine/native/raster/canvas.h"
#include "engine/native/raster/page_scale.h"
#include "engine/native/raster/stroker.h"

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

  PixelPoint At(Point point) const { return {scale_.PixelAt(point.x), scale_.PixelAt(point.y)}; }
  Outline OutlineOf(std::span<const Point> points, bool closed) const;
  Outline OutlineOf(const Arc& arc) const;
  Outline CircleAround(Point center, float radius) const;

  void Fill(const Outline& outline);
  void Hatch(const Outline& outline);
  void Stroke(const Outline& outline, bool alignedToPixels = false);
  void StrokeBroken(const Outline& outline, bool alignedToPixels);
  void StrokeAligned(const PixelRectangle& middle);
  Rectangle WithinClip(const PixelRectangle& bounds) const;
  Rectangle Twips(const PixelRectangle& pixels) const;

  Canvas& canvas_;
  const PageScale& scale_;
  Pen pen_;
  Brush brush_;
};

}  // namespace pagivo::native
