// NativeEngine's pen, brush, figures and pictures.
#include "engine/native/document/arcs.h"
#include "engine/native/document/point_list.h"
#include "engine/native/native_engine.h"
#include "engine/native/settings/checked_values.h"
#include "pagivo/error.h"
#include "values/conversions.h"

namespace pagivo::native {
namespace {

float Coordinate(std::string_view operation, const Variant& value) {
  return static_cast<float>(CheckedCoordinate(operation, value));
}

// A single point is a line from there to there.
std::vector<Point> CheckedPoints(std::string_view property,
                                 std::optional<std::vector<Point>> points) {
  if (!points) ThrowInvalidPropertyValue(property);
  if (points->size() == 1) points->push_back(points->front());
  return std::move(*points);
}

}  // namespace

void NativeEngine::PutPenStyle(std::int32_t style) {
  pen_.style = CheckedChoice("PenStyle", style, PenStyle::InsideSolid);
  recorder_->SetPen(pen_);
}

void NativeEngine::PutPenWidth(const Variant& width) {
  pen_.width = static_cast<float>(CheckedLength("PenWidth", width));
  recorder_->SetPen(pen_);
}

void NativeEngine::PutPenColor(std::int32_t color) {
  pen_.color = CheckedColor("PenColor", color);
  penColor_ = color;
  recorder_->SetPen(pen_);
}

void NativeEngine::PutBrushColor(std::int32_t color) {
  brush_.color = CheckedColor("BrushColor", color);
  recorder_->SetBrush(brush_);
}

void NativeEngine::PutBrushStyle(std::int32_t style) {
  brush_.style = CheckedChoice("BrushStyle", style, BrushStyle::DiagonalCross);
  recorder_->SetBrush(brush_);
}

void NativeEngine::DrawLine(const Variant& x1, const Variant& y1, const Variant& x2,
                            const Variant& y2) {
  const Point from{Coordinate("DrawLine", x1), Coordinate("DrawLine", y1)};
  const Point to{Coordinate("DrawLine", x2), Coordinate("DrawLine", y2)};
  RequireDrawing();
  recorder_->DrawLine(from, to);
}

void NativeEngine::DrawRectangle(const Variant& x1, const Variant& y1, const Variant& x2,
                                 const Variant& y2) {
  const Rectangle rectangle{Coordinate("DrawRectangle", x1), Coordinate("DrawRectangle", y1),
                            Coordinate("DrawRectangle", x2), Coordinate("DrawRectangle", y2)};
  RequireDrawing();
  recorder_->DrawRectangle(rectangle);
}

void NativeEngine::DrawCircle(const Variant& x, const Variant& y, const Variant& radius,
                              const Variant& start, const Variant& end) {
  const Point center{Coordinate("DrawCircle", x), Coordinate("DrawCircle", y)};
  const auto length = static_cast<float>(CheckedLength("DrawCircle", radius));
  if (start.IsMissing() && end.IsMissing()) {
    RequireDrawing();
    recorder_->DrawCircle(center, length);
    return;
  }
  const ArcAngles angles{CheckedCoordinate("DrawCircle", start),
                         CheckedCoordinate("DrawCircle", end)};
  RequireDrawing();
  DrawArc(center, length, angles);
}

// Players know neither empty arcs nor full turns: those are radius lines alone, and a full circle
// with its radius lines.
void NativeEngine::DrawArc(Point center, float radius, const ArcAngles& angles) {
  const Turn turn = angles.GetTurn();
  if (turn == Turn::Part) {
    recorder_->DrawArc({.center = center,
                        .radius = radius,
                        .start = static_cast<float>(angles.NormalStart()),
                        .end = static_cast<float>(angles.NormalEnd()),
                        .radiusLineAtStart = angles.RadiusLineAtStart(),
                        .radiusLineAtEnd = angles.RadiusLineAtEnd()});
    return;
  }
  if (turn == Turn::Full) recorder_->DrawCircle(center, radius);
  if (angles.RadiusLineAtStart() || angles.RadiusLineAtEnd()) {
    recorder_->DrawLine(center, PointOnCircle(center, radius, angles.NormalStart()));
  }
}

void NativeEngine::PutPolyline(const std::string& points) {
  RecordPolyline(CheckedPoints("Polyline", ParsePointList(points)));
}

void NativeEngine::PutPolygon(const std::string& points) {
  RecordPolygon(CheckedPoints("Polygon", ParsePointList(points)));
}

void NativeEngine::DrawPolyline(std::span<const float> numbers) {
  RecordPolyline(CheckedPoints("Polyline", PointsOf(numbers)));
}

void NativeEngine::DrawPolygon(std::span<const float> numbers) {
  RecordPolygon(CheckedPoints("Polygon", PointsOf(numbers)));
}

void NativeEngine::RecordPolyline(std::span<const Point> points) {
  RequireDrawing();
  if (!points.empty()) recorder_->DrawPolyline(points);
}

void NativeEngine::RecordPolygon(std::span<const Point> points) {
  RequireDrawing();
  if (!points.empty()) recorder_->DrawPolygon(points);
}

void NativeEngine::PutX1(const Variant& x) {
  target_.x1 = Coordinate("X1", x);
}
void NativeEngine::PutY1(const Variant& y) {
  target_.y1 = Coordinate("Y1", y);
}
void NativeEngine::PutX2(double x) {
  target_.x2 = static_cast<float>(CheckedCoordinate("X2", x));
}
void NativeEngine::PutY2(double y) {
  target_.y2 = static_cast<float>(CheckedCoordinate("Y2", y));
}

void NativeEngine::PutPicture(const ObjectRef& picture) {
  const auto image = std::dynamic_pointer_cast<const PictureImage>(picture);
  if (!image) throw Error(ErrorNumber::InvalidPicture, "Het object is geen afbeelding");
  RequireDrawing();
  if (!image->IsEmpty()) recorder_->DrawPicture(target_, image);
}

}  // namespace pagivo::native
