#include "engine/native/pdf/page_player.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <numbers>

#include "engine/native/document/arcs.h"
#include "engine/native/document/line_cutting.h"
#include "engine/native/document/pens_and_brushes.h"

namespace pagivo::native {
namespace {

// The side of a page in its own units that every reader takes.
constexpr double kMostUnits = 14400;

constexpr double kFarthest = 1e9;  // hundredths

// Twips: a point, and three times the largest paper that there is.
constexpr float kSmallestPage = 20;
constexpr float kLargestPage = 1e6;

// Larger sizes than any paper's help nobody, and readers' numbers end somewhere.
constexpr float kLargestFontSize = 100000;

// Twips between a circle and its chords: a fortieth of a point.
constexpr double kChordTolerance = 0.5;

// A quarter of a turn drawn as one curve leaves the circle by 0.03 % of the radius at most.
constexpr double kCurveSweep = std::numbers::pi / 2;

template <typename... Numbers>
bool AreFinite(Numbers... numbers) {
  return (std::isfinite(numbers) && ...);
}

float SaneSide(float length) {
  return std::isfinite(length) ? std::clamp(length, kSmallestPage, kLargestPage) : kSmallestPage;
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

ExactPoint Exact(Point point) {
  return {point.x, point.y};
}

std::vector<ExactPoint> OutlineOf(std::span<const Point> points) {
  std::vector<ExactPoint> outline;
  std::ranges::transform(points, std::back_inserter(outline), Exact);
  return outline;
}

std::vector<ExactPoint> ClosedOutlineOf(std::span<const Point> points) {
  std::vector<ExactPoint> outline = OutlineOf(points);
  outline.push_back(outline.front());
  return outline;
}

// In the order in which readers follow a rectangle.
std::array<Point, 4> CornersOf(const Rectangle& rectangle) {
  const auto& [left, top, right, bottom] = rectangle;
  return {{{left, bottom}, {right, bottom}, {right, top}, {left, top}}};
}

std::vector<ExactPoint> OutlineOf(const Arc& arc, double turn) {
  std::vector<ExactPoint> outline;
  if (arc.radiusLineAtStart) outline.push_back(Exact(arc.center));
  AddArc(outline, Exact(arc.center), arc.radius, arc.start, turn, kChordTolerance);
  if (arc.radiusLineAtEnd) outline.push_back(Exact(arc.center));
  return outline;
}

}  // namespace

PdfGeometry::PdfGeometry(const PageGeometry& page)
    : paper_{SaneSide(page.width), SaneSide(page.height)} {
  const double points = std::max(paper_.width, paper_.height) / kTwipsPerPoint;
  userUnit_ = static_cast<int>(std::ceil(points / kMostUnits));
  unitsPerTwip_ = 1 / (kTwipsPerPoint * userUnit_);
  size_ = {Length(paper_.width), Length(paper_.height)};
}

Hundredths PdfGeometry::Length(double twips) const {
  return RoundAway(std::clamp(twips * unitsPerTwip_ * 100, -kFarthest, kFarthest));
}

PdfPoint PdfGeometry::At(double x, double y) const {
  return {Length(x), Length(paper_.height - y)};
}

std::string_view PagePlayer::Play(const Document& document, std::int32_t page,
                                  const PdfGeometry& geometry) {
  geometry_ = &geometry;
  stream_.Begin();
  document.Play(page, *this);
  return stream_.Finish();
}

void PagePlayer::SetFont(const FontDescription& font) {
  if (font_ != nullptr && font == fontDescription_) return;
  font_ = FontLibrary::Instance().Find(font.name, font.bold, font.italic).shared_from_this();
  fontDescription_ = font;
  const bool isSane = AreFinite(font.size) && font.size > 0;
  em_ = isSane ? std::min(font.size, kLargestFontSize) * kTwipsPerPoint : 0;
  ascent_ = font_->Metrics().ascent * em_;
}

void PagePlayer::DrawText(Point position, std::string_view text) {
  if (em_ == 0 || text.empty() || !AreFinite(position.x, position.y)) return;
  const TextPlacement placement{.x = geometry_->XInUnits(position.x),
                                .baseline = geometry_->YInUnits(position.y + ascent_),
                                .size = geometry_->InUnits(em_),
                                .color = textColor_};
  const double end = DrawLine(text, placement);
  if (fontDescription_.underline) Underline(placement.x, end, placement.baseline);
}

// Gives where the pen would end.
double PagePlayer::DrawLine(std::string_view text, const TextPlacement& placement) {
  if (const auto simple = font_->ShapeSimple(text)) return text_.Draw(*simple, placement);
  font_->Shape(text, line_);
  return text_.Draw(line_, text, placement);
}

void PagePlayer::Underline(double from, double to, double baseline) {
  const FontMetrics& metrics = font_->Metrics();
  const double em = geometry_->InUnits(em_);
  const double thickness = metrics.underlineThickness * em;
  const double bottom = baseline - metrics.underlinePosition * em - thickness / 2;
  stream_.SetFillColor(textColor_);
  stream_.AddRectangle({RoundAway(from * 100), RoundAway(bottom * 100)},
                       RoundAway((to - from) * 100), RoundAway(thickness * 100));
  stream_.Fill(FillRule::NonZero);
}

void PagePlayer::UsePen(const Pen& pen, double dashPhase) {
  StrokeStyle style;
  style.color = pen.color;
  style.width = geometry_->Length(StrokeWidth(pen));
  style.cap = IsBroken(pen) ? 0 : 1;
  style.join = 1;
  style.dash = pen.style;
  style.dashPhase = geometry_->Length(dashPhase);
  stream_.SetStroke(style);
}

bool PagePlayer::IsWithinReach(const Rectangle& bounds, const Pen& pen) const {
  return Contains(ReachOf(geometry_->Paper(), pen), bounds);
}

// Outlines what leaves the reach of the page.
void PagePlayer::StrokeParts(const std::vector<ExactPoint>& line, const Pen& pen) {
  if (!DrawsLines(pen)) return;
  for (const LinePart& part : PartsWithin(ReachOf(geometry_->Paper(), pen), line)) {
    UsePen(pen, DashPhase(pen, part.start));
    stream_.MoveTo(geometry_->At(part.points.front().x, part.points.front().y));
    for (const ExactPoint& point : std::span(part.points).subspan(1)) {
      stream_.LineTo(geometry_->At(point.x, point.y));
    }
    stream_.Stroke();
  }
}

void PagePlayer::DrawLine(Point from, Point to) {
  DrawPolyline(std::array{from, to});
}

void PagePlayer::DrawPolyline(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinite(points) || !DrawsLines(pen_)) return;
  if (!IsWithinReach(BoundsOf(points), pen_)) return StrokeParts(OutlineOf(points), pen_);
  UsePen(pen_);
  AddPoints(points);
  stream_.Stroke();
}

void PagePlayer::AddPoints(std::span<const Point> points) {
  stream_.MoveTo(geometry_->At(points.front()));
  for (const Point& point : points.subspan(1)) stream_.LineTo(geometry_->At(point));
}

void PagePlayer::DrawPolygon(std::span<const Point> points) {
  if (points.size() < 2 || !AreFinite(points)) return;
  const auto addPath = [&] {
    AddPoints(points);
    stream_.ClosePath();
  };
  const auto outline = [&] { return ClosedOutlineOf(points); };
  DrawFigure({pen_, BoundsOf(points), FillRule::EvenOdd}, addPath, outline);
}

void PagePlayer::DrawRectangle(const Rectangle& rectangle) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  const Pen pen = PenOfRectangle(rectangle, pen_);
  const Rectangle middle = StrokedRectangle(rectangle, pen);
  const auto addPath = [&] {
    const PdfPoint upperLeft = geometry_->At(middle.x1, middle.y1);
    const PdfPoint lowerRight = geometry_->At(middle.x2, middle.y2);
    stream_.AddRectangle({upperLeft.x, lowerRight.y}, lowerRight.x - upperLeft.x,
                         upperLeft.y - lowerRight.y);
  };
  const auto outline = [&] { return ClosedOutlineOf(CornersOf(middle)); };
  DrawFigure({pen, middle, FillRule::NonZero}, addPath, outline);
}

void PagePlayer::DrawCircle(Point center, float radius) {
  if (!AreFinite(center.x, center.y, radius)) return;
  const Pen pen = PenOfCircle(std::abs(radius), pen_);
  const Arc circle{.center = center, .radius = StrokedRadius(std::abs(radius), pen)};
  const auto addPath = [&] {
    AddArc(circle, kFullTurn);
    stream_.ClosePath();
  };
  const auto outline = [&] { return OutlineOf(circle, kFullTurn); };
  DrawFigure({pen, BoundsOf(center, circle.radius), FillRule::NonZero}, addPath, outline);
}

void PagePlayer::DrawArc(const Arc& arc) {
  if (!AreFinite(arc.center.x, arc.center.y, arc.radius, arc.start, arc.end)) return;
  const float radius = std::max(arc.radius, 0.0F);
  const Pen pen = PenOfSector(radius, pen_);
  Arc middle = arc;
  middle.radius = StrokedRadius(radius, pen);
  const Figure sector{pen, BoundsOf(arc.center, radius), FillRule::NonZero};
  const auto addSector = [&] {
    AddArc(SectorOf(middle), TurnOf(arc));
    stream_.ClosePath();
  };
  const auto outline = [&] { return OutlineOf(middle, TurnOf(arc)); };
  if (arc.radiusLineAtStart && arc.radiusLineAtEnd) {
    return DrawFigure(sector, addSector, outline);
  }
  FillFigure(sector, addSector);
  if (!DrawsLines(pen)) return;
  if (!IsWithinReach(sector.bounds, pen)) return StrokeParts(outline(), pen);
  UsePen(pen);
  AddArc(middle, TurnOf(arc));
  if (arc.radiusLineAtEnd) stream_.LineTo(geometry_->At(arc.center));
  stream_.Stroke();
}

// From the arc's start, or from the centre when a radius line leads there.
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
    stream_.MoveTo(geometry_->At(arc.center));
    stream_.LineTo(at(arc.start, 0));
  } else {
    stream_.MoveTo(at(arc.start, 0));
  }
  for (int i = 0; i < curves; ++i) {
    const double from = arc.start + i * step;
    stream_.CurveTo(at(from, handle), at(from + step, -handle), at(from + step, 0));
  }
}

template <typename AddPath>
void PagePlayer::FillFigure(const Figure& figure, AddPath addPath) {
  if (IsHatched(brush_.style)) {
    stream_.SaveState();
    addPath();
    stream_.Clip(figure.rule);
    Hatch(figure.bounds);
    stream_.RestoreState();
  } else if (brush_.style == BrushStyle::Solid) {
    stream_.SetFillColor(brush_.color);
    addPath();
    stream_.Fill(figure.rule);
  }
}

// Fills and outlines a closed path at once where it can be. `outline` gives the path's points, its
// start at its end again.
template <typename AddPath, typename Outline>
void PagePlayer::DrawFigure(const Figure& figure, AddPath addPath, Outline outline) {
  const bool strokes = DrawsLines(figure.pen);
  const bool isWithinReach = IsWithinReach(figure.bounds, figure.pen);
  const bool atOnce = brush_.style == BrushStyle::Solid && strokes && isWithinReach;
  if (!atOnce) FillFigure(figure, addPath);
  if (!strokes) return;
  if (!isWithinReach) return StrokeParts(outline(), figure.pen);
  if (atOnce) stream_.SetFillColor(brush_.color);
  UsePen(figure.pen);
  addPath();
  if (atOnce) {
    stream_.FillAndStroke(figure.rule);
  } else {
    stream_.Stroke();
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
  // Exchanged edges give negative sizes, which mirror.
  stream_.DrawImage(images_.NameOf(*picture), {first.x, second.y}, second.x - first.x,
                    first.y - second.y);
}

}  // namespace pagivo::native
