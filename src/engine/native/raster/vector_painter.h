// Lines and figures on a canvas.
#pragma once

#include <span>

#include "engine/native/document/document.h"
#include "engine/native/raster/canvas.h"
#include "engine/native/raster/stroker.h"

namespace pagivo::native {

class VectorPainter {
 public:
  VectorPainter(Canvas& canvas, const PageScale& scale, const PageGeometry& page)
      : canvas_(canvas), scale_(scale), page_(page) {}

  void SetPen(const Pen& pen) { pen_ = pen; }
  void SetBrush(const Brush& brush) { brush_ = brush; }

  void DrawLine(Point from, Point to);
  void DrawRectangle(const Rectangle& rectangle);
  void DrawCircle(Point center, float radius);
  void DrawArc(const Arc& arc);
  void DrawPolyline(std::span<const Point> points);
  void DrawPolygon(std::span<const Point> points);

 private:
  double StrokePixels(const Pen& pen) const;
  bool IsThin(const Pen& pen) const;

  PixelPoint At(Point point) const { return {scale_.Pixels(point.x), scale_.Pixels(point.y)}; }
  Outline OutlineOf(std::span<const Point> points, bool closed) const;
  Outline OutlineOf(const Arc& arc) const;
  Outline CircleAround(Point center, float radius) const;

  void Fill(const Outline& outline);
  void Hatch(const Outline& outline);
  void Stroke(const Outline& outline, const Pen& pen, bool alignedToPixels = false);
  // `start`: how far along its line the outline begins, pixels.
  void StrokePart(const Outline& outline, const Pen& pen, bool alignedToPixels, double start);
  void StrokeBroken(const Outline& outline, const Pen& pen, bool alignedToPixels, double start);
  void StrokeAligned(const PixelRectangle& middle, const Pen& pen);
  Rectangle ReachInPixels(const Pen& pen) const;
  Rectangle WithinClip(const PixelRectangle& bounds) const;
  Rectangle Twips(const PixelRectangle& pixels) const;

  Canvas& canvas_;
  const PageScale& scale_;
  const PageGeometry& page_;
  Pen pen_;
  Brush brush_;
};

}  // namespace pagivo::native
