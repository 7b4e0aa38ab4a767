#include "engine/native/raster/vector_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "engine/native/document/arcs.h"
#include "engine/native/document/line_cutting.h"
#include "engine/native/document/pens_and_brushes.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

// Pixels. A hairline would fade away on a screen if it were drawn as thin as it is on paper.
constexpr double kThinnestStroke = 1;

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

PixelRectangle BoundsOf(const Outline& outline) {
  const PixelPoint& first = outline.points.front();
  PixelRectangle bounds{first.x, first.y, first.x, first.y};
  for (const PixelPoint& point : outline.points) {
    bounds = {std::min(bounds.left, point.x), std::min(bounds.top, point.y),
              std::max(bounds.right, point.x), std::max(bounds.bottom, point.y)};
  }
  return bounds;
}

Rectangle RectangleOf(const PixelRectangle& edges) {
  return {static_cast<float>(edges.left), static_cast<float>(edges.top),
          static_cast<float>(edges.right), static_cast<float>(edges.bottom)};
}

void SetPath(cairo_t* cairo, const Outline& outline) {
  const auto countable = [](double pixels) {
    return std::clamp(pixels, -kFarthestPixel, kFarthestPixel);
  };
  cairo_new_path(cairo);
  for (const PixelPoint& point : outline.points) {
    cairo_line_to(cairo, countable(point.x), countable(point.y));
  }
  if (outline.closed) cairo_close_path(cairo);
}

// Shapes are filled one at a time, so they can share the storage. One for which memory did not
// suffice may have left a part of itself.
AreaFiller& EmptyFiller() {
  auto& filler = ProcessWide<AreaFiller>();
  filler.Clear();
  return filler;
}

}  // namespace

double VectorPainter::StrokePixels(const Pen& pen) const {
  return std::max(scale_.PixelAt(StrokeWidth(pen)), kThinnestStroke);
}

bool VectorPainter::IsThin(const Pen& pen) const {
  return StrokePixels(pen) < kThinPixels;
}

void VectorPainter::DrawLine(Point from, Point to) {
  if (!AreFinite(from.x, from.y, to.x, to.y)) return;
  Outline line = OutlineOf(std::array{from, to}, false);
  const bool aligned = IsThin(pen_) && (from.x == to.x || from.y == to.y);
  const double width = StrokePixels(pen_);
  for (PixelPoint& end : line.points) {
    if (aligned && from.x == to.x) end.x = AlignedMiddle(end.x, width);
    if (aligned && from.y == to.y) end.y = AlignedMiddle(end.y, width);
  }
  Stroke(line, pen_, aligned);
}

void VectorPainter::DrawRectangle(const Rectangle& rectangle) {
  const auto& [x1, y1, x2, y2] = rectangle;
  if (!AreFinite(x1, y1, x2, y2)) return;
  const Pen pen = PenOfRectangle(rectangle, pen_);
  const Rectangle middle = StrokedRectangle(rectangle, pen);
  const auto [left, top] = At({middle.x1, middle.y1});
  const auto [right, bottom] = At({middle.x2, middle.y2});
  Fill(RectangleOutline({left, top, right, bottom}));
  if (!IsThin(pen)) return Stroke(RectangleOutline({left, top, right, bottom}), pen);
  const auto aligned = [width = StrokePixels(pen)](double edge) {
    return AlignedMiddle(edge, width);
  };
  Stroke(RectangleOutline({aligned(left), aligned(top), aligned(right), aligned(bottom)}), pen,
         true);
}

void VectorPainter::DrawCircle(Point center, float radius) {
  if (!AreFinite(center.x, center.y, radius)) return;
  const Pen pen = PenOfCircle(std::abs(radius), pen_);
  const Outline outline = CircleAround(center, StrokedRadius(std::abs(radius), pen));
  Fill(outline);
  Stroke(outline, pen);
}

Outline VectorPainter::CircleAround(Point center, float radius) const {
  Outline outline;
  outline.closed = true;
  AddArc(outline.points, At(center), scale_.Pixels(radius), 0, kFullTurn, kChordTolerance);
  return outline;
}

void VectorPainter::DrawArc(const Arc& arc) {
  if (!AreFinite(arc.center.x, arc.center.y, arc.radius, arc.start, arc.end)) return;
  const float radius = std::max(arc.radius, 0.0F);
  const Pen pen = PenOfSector(radius, pen_);
  Arc middle = arc;
  middle.radius = StrokedRadius(radius, pen);
  if (brush_.style != BrushStyle::Transparent) Fill(OutlineOf(SectorOf(middle)));
  Stroke(OutlineOf(middle), pen);
}

Outline VectorPainter::OutlineOf(const Arc& arc) const {
  Outline outline;
  outline.closed = arc.radiusLineAtStart && arc.radiusLineAtEnd;
  if (arc.radiusLineAtStart) outline.points.push_back(At(arc.center));
  AddArc(outline.points, At(arc.center), scale_.Pixels(arc.radius), arc.start, TurnOf(arc),
         kChordTolerance);
  if (arc.radiusLineAtEnd && !outline.closed) outline.points.push_back(At(arc.center));
  return outline;
}

void VectorPainter::DrawPolyline(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinitePoints(points)) return;
  Stroke(OutlineOf(points, false), pen_);
}

void VectorPainter::DrawPolygon(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinitePoints(points)) return;
  const Outline outline = OutlineOf(points, true);
  Fill(outline);
  Stroke(outline, pen_);
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
  const Rectangle visible = WithinClip(BoundsOf(outline));
  if (visible.x1 >= visible.x2 || visible.y1 >= visible.y2) return;
  cairo_t* cairo = canvas_.Vectors();
  cairo_save(cairo);
  SetPath(cairo, outline);
  cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_clip(cairo);
  for (const HatchLine& line : HatchLines(brush_.style, visible)) {
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
  const double scale = scale_.PixelsPerTwip();
  return RectangleOf(
      {pixels.left / scale, pixels.top / scale, pixels.right / scale, pixels.bottom / scale});
}

Rectangle VectorPainter::ReachInPixels(const Pen& pen) const {
  const auto [left, top, right, bottom] = ReachOf(page_, pen);
  return RectangleOf(
      {scale_.Pixels(left), scale_.Pixels(top), scale_.Pixels(right), scale_.Pixels(bottom)});
}

void VectorPainter::Stroke(const Outline& outline, const Pen& pen, bool alignedToPixels) {
  if (!DrawsLines(pen)) return;
  const PixelRectangle bounds = BoundsOf(outline);
  if (alignedToPixels && !IsBroken(pen)) return StrokeAligned(bounds, pen);
  const Rectangle reach = ReachInPixels(pen);
  if (Contains(reach, RectangleOf(bounds))) return StrokePart(outline, pen, alignedToPixels, 0);
  std::vector<PixelPoint> line = outline.points;
  if (outline.closed) line.push_back(line.front());
  for (LinePart& part : PartsWithin(reach, line)) {
    StrokePart({std::move(part.points), false}, pen, alignedToPixels, part.start);
  }
}

void VectorPainter::StrokePart(const Outline& outline, const Pen& pen, bool alignedToPixels,
                               double start) {
  if (IsBroken(pen)) return StrokeBroken(outline, pen, alignedToPixels, start);
  AreaFiller& filler = EmptyFiller();
  AddStroke(filler, outline, StrokePixels(pen));
  filler.Fill(canvas_, FillRule::NonZero, Ink(pen.color));
}

// A thin line along the pixels, or the four of a rectangle. Rounding ends and corners of a pixel or
// two would only blur them.
void VectorPainter::StrokeAligned(const PixelRectangle& middle, const Pen& pen) {
  const double half = StrokePixels(pen) / 2;
  const PixelRectangle outer{middle.left - half, middle.top - half, middle.right + half,
                             middle.bottom + half};
  const PixelRectangle inner{middle.left + half, middle.top + half, middle.right - half,
                             middle.bottom - half};
  const Ink ink(pen.color);
  if (inner.left >= inner.right || inner.top >= inner.bottom) {
    return canvas_.FillRectangle(outer, ink);
  }
  canvas_.FillRectangle({outer.left, outer.top, outer.right, inner.top}, ink);
  canvas_.FillRectangle({outer.left, inner.bottom, outer.right, outer.bottom}, ink);
  canvas_.FillRectangle({outer.left, inner.top, inner.left, inner.bottom}, ink);
  canvas_.FillRectangle({inner.right, inner.top, outer.right, inner.bottom}, ink);
}

void VectorPainter::StrokeBroken(const Outline& outline, const Pen& pen, bool alignedToPixels,
                                 double start) {
  constexpr std::size_t kLongestPattern = 8;
  std::array<double, kLongestPattern> dashes{};
  const std::span<const float> multiples = DashMultiples(pen.style);
  const double width = scale_.PixelAt(StrokeWidth(pen));
  std::transform(multiples.begin(), multiples.end(), dashes.begin(),
                 [width](float multiple) { return multiple * width; });
  const double phase = scale_.Pixels(DashPhase(pen, start / scale_.PixelsPerTwip()));
  cairo_t* cairo = canvas_.Vectors();
  SetPath(cairo, outline);
  SetColor(cairo, pen.color);
  cairo_set_line_width(cairo, StrokePixels(pen));
  cairo_set_dash(cairo, dashes.data(), static_cast<int>(multiples.size()), phase);
  cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cairo, alignedToPixels ? CAIRO_LINE_JOIN_MITER : CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(cairo);
}

}  // namespace pagivo::native
