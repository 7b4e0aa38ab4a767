#include "engine/native/pdf/page_player.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "engine/native/document/hatch.h"
#include "engine/native/document/stroke_style.h"

namespace pagivo::native {
namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;

// Larger sizes than any paper's help nobody, and readers' numbers end somewhere.
constexpr float kLargestFontSize = 100000;

// A quarter of a turn drawn as one curve leaves the circle by 0.03 % of the radius at most.
constexpr double kCurveSweep = std::numbers::pi / 2;

template <typename... Numbers>
bool AreFinite(Numbers... numbers) {
  return (std::isfinite(numbers) && ...);
}

bool AreFinite(std::span<const Point> points) {
  return std::ranges::all_of(points, [](Point p) { return AreFinite(p.x, p.y); });
}

Rectangle BoundsOf(std::span<const Point> points) {
  const auto [left, right] = std::ranges::minmax(points, {}, &Point::x);
  const auto [top, bottom] = std::ranges::minmax(points, {}, &Point::y);
  return {left.x, top.y, right.x, bottom.y};
}

Rectangle BoundsOf(Point center, float radius) {
  return {center.x - radius, center.y - radius, center.x + radius, center.y + radius};
}

}  // namespace

std::string_view PagePlayer::Play(const Document& document, std::int32_t page,
                                  const PdfGeometry& geometry) {
  geometry_ = &geometry;
  stream_.Begin();
  text_.BeginPage();
  document.Play(page, *this);
  text_.End();
  return stream_.Bytes();
}

void PagePlayer::SetFont(const FontDescription& font) {
  if (font_ != nullptr && font == fontDescription_) return;
  font_ = FontLibrary::Instance().Find(font.name, font.bold, font.italic).shared_from_this();
  fontDescription_ = font;
}

void PagePlayer::DrawText(Point position, std::string_view text) {
  const float size = fontDescription_.size;
  if (font_ == nullptr || text.empty() || !AreFinite(position.x, position.y, size) || size <= 0) {
    return;
  }
  const double em = std::min(size, kLargestFontSize) * kTwipsPerPoint;
  TextPlacement placement;
  placement.x = geometry_->XInUnits(position.x);
  placement.baseline = geometry_->YInUnits(position.y + font_->Metrics().ascent * em);
  placement.size = geometry_->InUnits(em);
  placement.color = textColor_;

  font_->Shape(text, line_);
  const double end = text_.Draw(line_, text, placement);
  if (fontDescription_.underline) Underline(placement.x, end, placement.baseline);
}

void PagePlayer::Underline(double from, double to, double baseline) {
  text_.End();
  const FontMetrics& metrics = font_->Metrics();
  const double em = geometry_->InUnits(fontDescription_.size * kTwipsPerPoint);
  const double thickness = metrics.underlineThickness * em;
  const double bottom = baseline - metrics.underlinePosition * em - thickness / 2;
  stream_.SetFillColor(textColor_);
  stream_.AddRectangle({std::llround(from * 100), std::llround(bottom * 100)},
                       std::llround((to - from) * 100), std::llround(thickness * 100));
  stream_.Fill(FillRule::NonZero);
}

void PagePlayer::UsePen(const Rectangle& bounds) {
  StrokeStyle style;
  style.color = pen_.color;
  style.width = geometry_->Length(StrokeWidth(pen_));
  style.cap = HasRoundEnds(pen_) ? 1 : 0;
  style.join = 1;
  if (DrawsDashes(pen_, bounds)) style.dash = pen_.style;
  stream_.SetStroke(style);
}

void PagePlayer::DrawLine(Point from, Point to) {
  DrawPolyline(std::array{from, to});
}

void PagePlayer::DrawPolyline(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinite(points) || !DrawsLines(pen_)) return;
  text_.End();
  UsePen(BoundsOf(points));
  AddPoints(points);
  stream_.Stroke();
}

void PagePlayer::AddPoints(std::span<const Point> points) {
  stream_.MoveTo(geometry_->At(points.front()));
  for (const Point& point : points.subspan(1)) stream_.LineTo(geometry_->At(point));
}

void PagePlayer::DrawPolygon(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinite(points)) return;
  DrawFigure(BoundsOf(points), FillRule::EvenOdd, [&] {
    AddPoints(points);
    stream_.ClosePath();
  });
}

void PagePlayer::DrawRectangle(const Rectangle& rectangle) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  const Rectangle middle = StrokedRectangle(rectangle, pen_);
  DrawFigure(middle, FillRule::NonZero, [&] {
    const PdfPoint upperLeft = geometry_->At(middle.x1, middle.y1);
    const PdfPoint lowerRight = geometry_->At(middle.x2, middle.y2);
    stream_.AddRectangle({upperLeft.x, lowerRight.y}, lowerRight.x - upperLeft.x,
                         upperLeft.y - lowerRight.y);
  });
}

void PagePlayer::DrawCircle(Point center, float radius) {
  if (!AreFinite(center.x, center.y, radius)) return;
  const Arc circle{.center = center, .radius = StrokedRadius(std::abs(radius), pen_)};
  DrawFigure(BoundsOf(center, circle.radius), FillRule::NonZero, [&] {
    AddArc(circle, kFullTurn);
    stream_.ClosePath();
  });
}

void PagePlayer::DrawArc(const Arc& arc) {
  if (!AreFinite(arc.center.x, arc.center.y, arc.radius, arc.start, arc.end)) return;
  const double sweep = arc.end > arc.start ? arc.end - arc.start : arc.end - arc.start + kFullTurn;
  if (arc.radiusLineAtStart && arc.radiusLineAtEnd) {
    DrawFigure(BoundsOf(arc.center, arc.radius), FillRule::NonZero, [&] {
      stream_.MoveTo(geometry_->At(arc.center));
      AddArc(arc, sweep);
      stream_.ClosePath();
    });
    return;
  }
  if (!DrawsLines(pen_)) return;
  text_.End();
  UsePen(BoundsOf(arc.center, arc.radius));
  if (arc.radiusLineAtStart) stream_.MoveTo(geometry_->At(arc.center));
  AddArc(arc, sweep);
  if (arc.radiusLineAtEnd) stream_.LineTo(geometry_->At(arc.center));
  stream_.Stroke();
}

// From the arc's start, joined by a line to the centre when a radius line leads there.
void PagePlayer::AddArc(const Arc& arc, double sweep) {
  const int curves = std::max(1, static_cast<int>(std::ceil(sweep / kCurveSweep - 1e-6)));
  const double step = sweep / curves;
  const double handle = 4.0 / 3 * std::tan(step / 4);
  // The point at an angle, moved along the circle's tangent there by `along` radiuses.
  const auto at = [&](double angle, double along) {
    const double x = std::cos(angle) - along * std::sin(angle);
    const double y = std::sin(angle) + along * std::cos(angle);
    return geometry_->At(arc.center.x + arc.radius * x, arc.center.y - arc.radius * y);
  };
  if (arc.radiusLineAtStart) {
    stream_.LineTo(at(arc.start, 0));
  } else {
    stream_.MoveTo(at(arc.start, 0));
  }
  for (int i = 0; i < curves; ++i) {
    const double from = arc.start + i * step;
    stream_.CurveTo(at(from, handle), at(from + step, -handle), at(from + step, 0));
  }
}

// Fills and outlines a closed path, which is added anew for each of the two when the brush hatches.
template <typename AddPath>
void PagePlayer::DrawFigure(const Rectangle& bounds, FillRule rule, AddPath addPath) {
  text_.End();
  if (IsHatched(brush_.style)) {
    stream_.SaveState();
    addPath();
    stream_.Clip(rule);
    Hatch(bounds);
    stream_.RestoreState();
  }
  const bool fills = brush_.style == BrushStyle::Solid;
  const bool strokes = DrawsLines(pen_);
  if (!fills && !strokes) return;
  if (fills) stream_.SetFillColor(brush_.color);
  if (strokes) UsePen(bounds);
  addPath();
  if (!fills) {
    stream_.Stroke();
  } else if (strokes) {
    stream_.FillAndStroke(rule);
  } else {
    stream_.Fill(rule);
  }
}

void PagePlayer::Hatch(const Rectangle& bounds) {
  const PageGeometry& paper = geometry_->Paper();
  const Rectangle visible{std::max(bounds.x1, 0.0F), std::max(bounds.y1, 0.0F),
                          std::min(bounds.x2, paper.width), std::min(bounds.y2, paper.height)};
  if (visible.x1 >= visible.x2 || visible.y1 >= visible.y2) return;
  const std::vector<HatchLine> lines = HatchLines(brush_.style, visible);
  if (lines.empty()) return;
  stream_.SetStroke({.color = brush_.color, .width = geometry_->Length(kHatchWidth)});
  for (const HatchLine& line : lines) AddPoints(std::array{line.from, line.to});
  stream_.Stroke();
}

void PagePlayer::DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) {
  const auto& [x1, y1, x2, y2] = rectangle;
  if (!AreFinite(x1, y1, x2, y2) || picture == nullptr || picture->IsEmpty()) return;
  const PdfPoint first = geometry_->At(x1, y1);
  const PdfPoint second = geometry_->At(x2, y2);
  if (first.x == second.x || first.y == second.y) return;
  text_.End();
  // Exchanged edges give negative sizes, which mirror.
  stream_.DrawImage(images_.NameOf(*picture), {first.x, second.y}, second.x - first.x,
                    first.y - second.y);
}

}  // namespace pagivo::native
