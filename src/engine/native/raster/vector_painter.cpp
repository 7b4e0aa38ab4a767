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
void AddRectangle(cairo_t* cairo, const PixelRectangle& rectangle) {
  cairo_new_path(cairo);
  cairo_rectangle(cairo, rectangle.left, rectangle.bottom, rectangle.right - rectangle.left,
                  rectangle.top - rectangle.bottom);
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
  double x1 = scale_.PixelAt(from.x);
  double y1 = scale_.PixelAt(from.y);
  double x2 = scale_.PixelAt(to.x);
  double y2 = scale_.PixelAt(to.y);
  const bool aligned = IsThin() && (from.x == to.x || from.y == to.y);
  if (aligned && from.x == to.x) x1 = x2 = Aligned(x1);
  if (aligned && from.y == to.y) y1 = y2 = Aligned(y1);
  cairo_t* cairo = canvas_.Vectors();
  cairo_new_path(cairo);
  cairo_move_to(cairo, x1, y1);
  cairo_line_to(cairo, x2, y2);
  Stroke(aligned);
}

void VectorPainter::DrawRectangle(const Rectangle& rectangle) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  AddRectangle(canvas_.Vectors(), scale_.Pixels(rectangle));
  Fill();
  PixelRectangle edges = scale_.Pixels(StrokedRectangle(rectangle, pen_));
  if (IsThin()) {
    edges = {Aligned(edges.left), Aligned(edges.top), Aligned(edges.right), Aligned(edges.bottom)};
  }
  AddRectangle(canvas_.Vectors(), edges);
  Stroke(IsThin());
}

void VectorPainter::DrawCircle(Point center, float radius) {
  if (!AreFinite(center.x, center.y, radius)) return;
  AddCircle(center, std::abs(radius));
  Fill();
  AddCircle(center, StrokedRadius(std::abs(radius), pen_));
  Stroke(false);
}

// Angles grow upwards on the page, downwards in cairo.
void VectorPainter::AddCircle(Point center, float radius) {
  cairo_t* cairo = canvas_.Vectors();
  cairo_new_path(cairo);
  cairo_arc_negative(cairo, scale_.PixelAt(center.x), scale_.PixelAt(center.y),
                     scale_.PixelAt(radius), 0, -kFullTurn);
  cairo_close_path(cairo);
}

void VectorPainter::DrawArc(const Arc& arc) {
  if (!AreFinite(arc.center.x, arc.center.y, arc.radius, arc.start, arc.end)) return;
  if (arc.radiusLineAtStart && arc.radiusLineAtEnd) {
    AddArc(arc);
    Fill();
  }
  AddArc(arc);
  Stroke(false);
}

void VectorPainter::AddArc(const Arc& arc) {
  cairo_t* cairo = canvas_.Vectors();
  const double x = scale_.PixelAt(arc.center.x);
  const double y = scale_.PixelAt(arc.center.y);
  const double end = arc.end > arc.start ? arc.end : arc.end + kFullTurn;
  cairo_new_path(cairo);
  if (arc.radiusLineAtStart) cairo_move_to(cairo, x, y);
  cairo_arc_negative(cairo, x, y, scale_.PixelAt(arc.radius), -double{arc.start}, -end);
  if (arc.radiusLineAtEnd) cairo_line_to(cairo, x, y);
  if (arc.radiusLineAtStart && arc.radiusLineAtEnd) cairo_close_path(cairo);
}

void VectorPainter::DrawPolyline(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinitePoints(points)) return;
  AddPoints(points);
  Stroke(false);
}

void VectorPainter::DrawPolygon(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinitePoints(points)) return;
  AddPoints(points);
  cairo_close_path(canvas_.Vectors());
  Fill();
  AddPoints(points);
  cairo_close_path(canvas_.Vectors());
  Stroke(false);
}

void VectorPainter::AddPoints(std::span<const Point> points) {
  cairo_t* cairo = canvas_.Vectors();
  cairo_new_path(cairo);
  for (const Point& point : points) {
    cairo_line_to(cairo, scale_.PixelAt(point.x), scale_.PixelAt(point.y));
  }
}

void VectorPainter::Fill() {
  if (brush_.style == BrushStyle::Transparent) return;
  cairo_t* cairo = canvas_.Vectors();
  SetColor(cairo, brush_.color);
  cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_EVEN_ODD);
  if (IsHatched(brush_.style)) {
    Hatch();
  } else {
    cairo_fill(cairo);
  }
}

void VectorPainter::Hatch() {
  cairo_t* cairo = canvas_.Vectors();
  const Rectangle bounds = PathBoundsWithinClip();
  cairo_save(cairo);
  cairo_clip(cairo);
  for (const HatchLine& line : HatchLines(brush_.style, bounds)) {
    cairo_move_to(cairo, scale_.PixelAt(line.from.x), scale_.PixelAt(line.from.y));
    cairo_line_to(cairo, scale_.PixelAt(line.to.x), scale_.PixelAt(line.to.y));
  }
  const double exact = scale_.PixelAt(kHatchWidth);
  const double widest = kWidestHatchShare * scale_.PixelAt(kHatchDistance);
  cairo_set_line_width(cairo, std::max(exact, std::min(kThinnestStroke, widest)));
  cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
  cairo_set_dash(cairo, nullptr, 0, 0);
  cairo_stroke(cairo);
  cairo_restore(cairo);
}

// Twips, with room for the lines' ends around what is seen.
Rectangle VectorPainter::PathBoundsWithinClip() const {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  cairo_path_extents(canvas_.Vectors(), &left, &top, &right, &bottom);
  const PixelBox& clip = canvas_.Clip();
  const double room = scale_.Pixels(double{kHatchDistance});
  const auto twips = [this](double pixels) {
    return static_cast<float>(pixels / scale_.PixelsPerTwip());
  };
  return {twips(std::max(left, clip.left - room)), twips(std::max(top, clip.top - room)),
          twips(std::min(right, clip.right + room)), twips(std::min(bottom, clip.bottom + room))};
}

void VectorPainter::Stroke(bool alignedToPixels) {
  if (!DrawsLines(pen_)) return;
  cairo_t* cairo = canvas_.Vectors();
  SetColor(cairo, pen_.color);
  cairo_set_line_width(cairo, StrokePixels());
  SetDashes();
  // Rounding ends and corners of a pixel or two would only blur them.
  const cairo_line_cap_t end = alignedToPixels ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_ROUND;
  cairo_set_line_cap(cairo, HasRoundEnds(pen_) ? end : CAIRO_LINE_CAP_BUTT);
  cairo_set_line_join(cairo, alignedToPixels ? CAIRO_LINE_JOIN_MITER : CAIRO_LINE_JOIN_ROUND);
  cairo_stroke(cairo);
}

void VectorPainter::SetDashes() {
  constexpr std::size_t kMostDashes = 8;
  std::array<double, kMostDashes> dashes{};
  const std::span<const float> multiples = DashMultiples(pen_.style);
  const double width = scale_.PixelAt(StrokeWidth(pen_));
  std::transform(multiples.begin(), multiples.end(), dashes.begin(),
                 [width](float multiple) { return multiple * width; });
  cairo_set_dash(canvas_.Vectors(), dashes.data(), static_cast<int>(multiples.size()), 0);
}

}  // namespace pagivo::native
