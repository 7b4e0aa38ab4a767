#include "engine/native/raster/vector_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "engine/native/document/hatch.h"
#include "engine/native/document/stroke_style.h"

namespace pagivo::native {
namespace {

// Pixels. A hairline would fade away on a screen if it were drawn as thin as it is on paper.
constexpr double kThinnestStroke = 1;
constexpr double kFullTurn = 2 * std::numbers::pi;

// Lines of a hatch must leave this part of the ground free where the page is shown small.
constexpr double kWidestHatchShare = 0.25;

void SetColor(cairo_t* cairo, Color color) {
  cairo_set_source_rgb(cairo, RedOf(color) / 255.0, GreenOf(color) / 255.0, BlueOf(color) / 255.0);
}

bool AreFinitePoints(std::span<const Point> points) {
  return std::all_of(points.begin(), points.end(),
                     [](const Point& point) { return AreFinite(point.x, point.y); });
}

// From the lower left corner counter-clockwise, as in PDF: dashes start there.
Outline RectangleOutline(const PixelRectangle& edges) {
  return {{{edges.left, edges.bottom},
           {edges.right, edges.bottom},
           {edges.right, edges.top},
           {edges.left, edges.top}},
          true};
}

// Angles grow upwards on the page, downwards in pixels. `turn` is counter-clockwise.
void AddArc(Outline& outline, PixelPoint center, double radius, double start, double turn) {
  const double steps = std::ceil(turn / ChordAngle(radius));
  for (double step = 0; step <= steps; ++step) {
    const double angle = start + turn * step / steps;
    outline.points.push_back(
        {center.x + radius * std::cos(angle), center.y - radius * std::sin(angle)});
  }
}

PixelRectangle BoundsOf(const Outline& outline) {
  const PixelPoint& first = outline.points.front();
  PixelRectangle bounds{first.x, first.y, first.x, first.y};
  for (const PixelPoint& point : outline.points) {
    bounds = {std::min(bounds.left, point.x), std::min(bounds.top, point.y),
              std::max(bounds.right, point.x), std::max(bounds.bottom, point.y)};
  }
  return bounds;
}

void SetPath(cairo_t* cairo, const Outline& outline) {
  cairo_new_path(cairo);
  for (const PixelPoint& point : outline.points) cairo_line_to(cairo, point.x, point.y);
  if (outline.closed) cairo_close_path(cairo);
}

// Shapes are filled one at a time, so they can share the storage. One for which memory did not
// suffice may have left a part of itself.
AreaFiller& EmptyFiller() {
  static AreaFiller filler;
  filler.Clear();
  return filler;
}

}  // namespace

double VectorPainter::StrokePixels() const {
  return std::max(scale_.PixelAt(StrokeWidth(pen_)), kThinnestStroke);
}

bool VectorPainter::IsThin() const {
  return StrokePixels() < kThinPixels;
}

void VectorPainter::DrawLine(Point from, Point to) {
  if (!AreFinite(from.x, from.y, to.x, to.y)) return;
  Outline line = OutlineOf(std::array{from, to}, false);
  const bool aligned = IsThin() && (from.x == to.x || from.y == to.y);
  for (PixelPoint& end : line.points) {
    if (aligned && from.x == to.x) end.x = Aligned(end.x);
    if (aligned && from.y == to.y) end.y = Aligned(end.y);
  }
  Stroke(line, aligned);
}

void VectorPainter::DrawRectangle(const Rectangle& rectangle) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  Fill(RectangleOutline(scale_.Pixels(rectangle)));
  PixelRectangle edges = scale_.Pixels(StrokedRectangle(rectangle, pen_));
  if (IsThin()) {
    edges = {Aligned(edges.left), Aligned(edges.top), Aligned(edges.right), Aligned(edges.bottom)};
  }
  Stroke(RectangleOutline(edges), IsThin());
}

void VectorPainter::DrawCircle(Point center, float radius) {
  if (!AreFinite(center.x, center.y, radius)) return;
  Fill(CircleAround(center, std::abs(radius)));
  Stroke(CircleAround(center, StrokedRadius(std::abs(radius), pen_)));
}

Outline VectorPainter::CircleAround(Point center, float radius) const {
  Outline outline;
  outline.closed = true;
  AddArc(outline, At(center), scale_.PixelAt(radius), 0, kFullTurn);
  return outline;
}

void VectorPainter::DrawArc(const Arc& arc) {
  if (!AreFinite(arc.center.x, arc.center.y, arc.radius, arc.start, arc.end)) return;
  const Outline outline = OutlineOf(arc);
  if (outline.closed) Fill(outline);
  Stroke(outline);
}

Outline VectorPainter::OutlineOf(const Arc& arc) const {
  const double turn = double{arc.end} - arc.start;
  Outline outline;
  outline.closed = arc.radiusLineAtStart && arc.radiusLineAtEnd;
  if (arc.radiusLineAtStart) outline.points.push_back(At(arc.center));
  AddArc(outline, At(arc.center), scale_.PixelAt(std::max(arc.radius, 0.0F)), arc.start,
         turn > 0 ? turn : turn + kFullTurn);
  if (arc.radiusLineAtEnd && !outline.closed) outline.points.push_back(At(arc.center));
  return outline;
}

void VectorPainter::DrawPolyline(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinitePoints(points)) return;
  Stroke(OutlineOf(points, false));
}

void VectorPainter::DrawPolygon(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinitePoints(points)) return;
  const Outline outline = OutlineOf(points, true);
  Fill(outline);
  Stroke(outline);
}

Outline VectorPainter::OutlineOf(std::span<const Point> points, bool closed) const {
  Outline outline{std::vector<PixelPoint>(points.size()), closed};
  std::transform(points.begin(), points.end(), outline.points.begin(),
                 [this](Point point) { return At(point); });
  return outline;
}

void VectorPainter::Fill(const Outline& outline) {
  if (brush_.style == BrushStyle::Transparent) return;
  if (IsHatched(brush_.style)) return Hatch(outline);
  AreaFiller& filler = EmptyFiller();
  filler.Add(outline.points);
  filler.Fill(canvas_, FillRule::EvenOdd, Ink(brush_.color));
}

void VectorPainter::Hatch(const Outline& outline) {
  cairo_t* cairo = canvas_.Vectors();
  cairo_save(cairo);
  SetPath(cairo, outline);
  cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_clip(cairo);
  for (const HatchLine& line : HatchLines(brush_.style, WithinClip(BoundsOf(outline)))) {
    cairo_move_to(cairo, scale_.PixelAt(line.from.x), scale_.PixelAt(line.from.y));
    cairo_line_to(cairo, scale_.PixelAt(line.to.x), scale_.PixelAt(line.to.y));
  }
  const double exact = scale_.PixelAt(kHatchWidth);
  const double widest = kWidestHatchShare * scale_.PixelAt(kHatchDistance);
  SetColor(cairo, brush_.color);
  cairo_set_line_width(cairo, std::max(exact, std::min(kThinnestStroke, widest)));
  cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_dash(cairo, nullptr, 0, 0);
  cairo_stroke(cairo);
  cairo_restore(cairo);
}

// With room for the lines' ends around what is seen.
Rectangle VectorPainter::WithinClip(const PixelRectangle& bounds) const {
  const PixelBox& clip = canvas_.Clip();
  const double room = scale_.Pixels(double{kHatchDistance});
  return Twips({std::max(bounds.left, clip.left - room), std::max(bounds.top, clip.top - room),
                std::min(bounds.right, clip.right + room),
                std::min(bounds.bottom, clip.bottom + room)});
}

Rectangle VectorPainter::Twips(const PixelRectangle& pixels) const {
  const auto twips = [this](double edge) {
    return static_cast<float>(edge / scale_.PixelsPerTwip());
  };
  return {twips(pixels.left), twips(pixels.top), twips(pixels.right), twips(pixels.bottom)};
}

void VectorPainter::Stroke(const Outline& outline, bool alignedToPixels) {
  if (!DrawsLines(pen_)) return;
  if (DrawsDashes(pen_, Twips(BoundsOf(outline)))) return StrokeBroken(outline, alignedToPixels);
  if (alignedToPixels) return StrokeAligned(BoundsOf(outline));
  AreaFiller& filler = EmptyFiller();
  AddStroke(filler, outline, StrokePixels(), HasRoundEnds(pen_));
  filler.Fill(canvas_, FillRule::NonZero, Ink(pen_.color));
}

// A thin line along the pixels, or the four of a rectangle. Rounding ends and corners of a pixel or
// two would only blur them.
void VectorPainter::StrokeAligned(const PixelRectangle& middle) {
  const double half = StrokePixels() / 2;
  const PixelRectangle outer{middle.left - half, middle.top - half, middle.right + half,
                             middle.bottom + half};
  const PixelRectangle inner{middle.left + half, middle.top + half, middle.right - half,
                             middle.bottom - half};
  const Ink ink(pen_.color);
  if (inner.left >= inner.right || inner.top >= inner.bottom) {
    return canvas_.FillRectangle(outer, ink);
  }
  canvas_.FillRectangle({outer.left, outer.top, outer.right, inner.top}, ink);
  canvas_.FillRectangle({outer.left, inner.bottom, outer.right, outer.bottom}, ink);
  canvas_.FillRectangle({outer.left, inner.top, inner.left, inner.bottom}, ink);
  canvas_.FillRectangle({inner.right, inner.top, outer.right, inner.bottom}, ink);
}

void VectorPainter::StrokeBroken(const Outline& outline, bool alignedToPixels) {
  constexpr std::size_t kLongestPattern = 8;
  std::array<double, kLongestPattern> dashes{};
  const std::span<const float> multiples = DashMultiples(pen_.style);
  const double width = scale_.PixelAt(StrokeWidth(pen_));
  std::transform(multiples.begin(), multiples.end(), dashes.begin(),
                 [width](float multiple) { return multiple * width; });
  cairo_t* cairo = canvas_.Vectors();
  SetPath(cairo, outline);
  SetColor(cairo, pen_.color);
  cairo_set_line_width(cairo, StrokePixels());
  cairo_set_dash(cairo, dashes.data(), static_cast<int>(multiples.size()), 0);
  cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cairo, alignedToPixels ? CAIRO_LINE_JOIN_MITER : CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(cairo);
}

}  // namespace pagivo::native
