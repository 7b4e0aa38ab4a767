// Lines, boxes, circles, polylines and pictures.
#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "api/engine_access.h"
#include "pagivo/pg_print.h"
#include "pagivo/picture.h"
#include "system/regional_settings.h"
#include "values/number_text.h"

namespace pagivo {

namespace {

constexpr std::int32_t kMostPoints = std::numeric_limits<std::int16_t>::max();

// A condition given as an argument; Null counts as false.
bool IsTrue(const Variant& condition) {
  return TrueOnError([&] { return !condition.IsNull() && ToBoolean(condition); });
}

void SetUpPen(const Variant& style, const Variant& width, const Variant& color) {
  IgnoringErrors([&] { Engine().PutPenStyle(ToLong(style)); });
  IgnoringErrors([&] { Engine().PutPenWidth(width); });
  IgnoringErrors([&] { Engine().PutPenColor(ToLong(color)); });
}

void CopyPenColorToBrush() {
  IgnoringErrors([] { Engine().PutBrushColor(Engine().GetPenColor()); });
}

void SetUpFill(const Variant& fillStyle) {
  CopyPenColorToBrush();
  if (TrueOnError([&] { return ToBoolean(fillStyle); })) {
    // Without effect on the page, but engines see it.
    if (TrueOnError([&] { return ToDouble(fillStyle) > 0; })) CopyPenColorToBrush();
    IgnoringErrors([&] { Engine().PutBrushStyle(ToLong(fillStyle)); });
  } else {
    IgnoringErrors([] { Engine().PutBrushStyle(BrushStyle::Solid); });
  }
}

void SetUpBrush(const Variant& filled, const Variant& fillStyle) {
  if (IsTrue(filled)) {
    SetUpFill(fillStyle);
  } else {
    IgnoringErrors([] { Engine().PutBrushColor(Color::White); });
    IgnoringErrors([] { Engine().PutBrushStyle(BrushStyle::Transparent); });
  }
}

// A coordinate of a point list: the Single nearest to the product. What is no number has no text.
float PointNumber(float scale, float value) {
  const float single = ToSingle(double{scale} * double{value});
  if (std::isnan(single)) ThrowTypeMismatch();
  return single;
}

// Points 1..n, as many as an Integer counts, x and y in turn. A point without a y or with a number
// that is none is left out.
std::vector<float> PointNumbers(const Array<float>& x, const Array<float>& y) {
  const std::int32_t last = std::min(x.UpperBound(), kMostPoints);
  std::vector<float> numbers;
  for (std::int32_t i = 1; i <= last; ++i) {
    IgnoringErrors([&] {
      const float horizontal = PointNumber(State().ScaleX, x(i));
      numbers.insert(numbers.end(), {horizontal, PointNumber(State().ScaleY, y(i))});
    });
  }
  return numbers;
}

// Each number followed by a blank.
std::string PointList(std::span<const float> numbers) {
  std::string points;
  for (const float number : numbers) {
    points += FormatGeneral(number, CurrentRegionalSettings().decimalSeparator);
    points += ' ';
  }
  return points;
}

// Engines are given a text; one that takes what would be read in it is spared the reading.
void DrawPoints(std::vector<float> numbers, bool closed) {
  PrintEngine& engine = Engine();
  if (auto* lists = dynamic_cast<PointLists*>(&engine)) {
    std::ranges::transform(numbers, numbers.begin(), RoundToText);
    return closed ? lists->DrawPolygon(numbers) : lists->DrawPolyline(numbers);
  }
  const std::string points = PointList(numbers);
  return closed ? engine.PutPolygon(points) : engine.PutPolyline(points);
}

double ScaledDouble(float scale, double value) {
  return ToDouble(Multiply(static_cast<double>(scale), value));
}

void PutRectangle(const double& x1, const double& y1, const double& x2, const double& y2) {
  IgnoringErrors([&] { Engine().PutX1(ScaledDouble(State().ScaleX, x1)); });
  IgnoringErrors([&] { Engine().PutY1(ScaledDouble(State().ScaleY, y1)); });
  IgnoringErrors([&] { Engine().PutX2(ScaledDouble(State().ScaleX, x2)); });
  IgnoringErrors([&] { Engine().PutY2(ScaledDouble(State().ScaleY, y2)); });
}

// The picture object that an argument refers to.
ObjectRef ToPicture(const Variant& value) {
  ObjectRef object = ToObject(value);
  if (dynamic_cast<const Picture*>(object.get()) == nullptr) ThrowTypeMismatch();
  return object;
}

}  // namespace

void PgPrint::VsPPLine(const Variant& varX1, const Variant& varY1, const Variant& varX2,
                       const Variant& varY2, const Variant& varBox, const Variant& varFilled,
                       const Variant& varColor, const Variant& varFillStyle,
                       const Variant& varDrawStyle, const Variant& varDrawWidth) {
  SetUpPen(varDrawStyle, varDrawWidth, varColor);
  if (IsTrue(varBox)) {
    SetUpBrush(varFilled, varFillStyle);
    IgnoringErrors([&] {
      Engine().DrawRectangle(ScaledX(varX1), ScaledY(varY1), ScaledX(varX2), ScaledY(varY2));
    });
  } else {
    IgnoringErrors(
        [&] { Engine().DrawLine(ScaledX(varX1), ScaledY(varY1), ScaledX(varX2), ScaledY(varY2)); });
  }
}

void PgPrint::VsPPLine(const Variant& varX1, const Variant& varY1, const Variant& varX2,
                       const Variant& varY2, const LineOptions& options) {
  VsPPLine(varX1, varY1, varX2, varY2, options.box, options.filled, options.color,
           options.fillStyle, options.drawStyle, options.drawWidth);
}

void PgPrint::VsPPCircle(const Variant& varX1, const Variant& varY1, const Variant& varRadius,
                         const Variant& varStart, const Variant& varEnd, const Variant& varFilled,
                         const Variant& varColor, const Variant& varFillStyle,
                         const Variant& varDrawStyle, const Variant& varDrawWidth) {
  SetUpPen(varDrawStyle, varDrawWidth, varColor);
  SetUpBrush(varFilled, varFillStyle);
  const bool isArc = !varStart.IsMissing() && !varEnd.IsMissing();
  IgnoringErrors([&] {
    Engine().DrawCircle(ScaledX(varX1), ScaledY(varY1), ScaledX(varRadius),
                        isArc ? varStart : Missing, isArc ? varEnd : Missing);
  });
}

void PgPrint::VsPPCircle(const Variant& varX1, const Variant& varY1, const Variant& varRadius,
                         const CircleOptions& options) {
  VsPPCircle(varX1, varY1, varRadius, options.start, options.end, options.filled, options.color,
             options.fillStyle, options.drawStyle, options.drawWidth);
}

void PgPrint::VsPPDrawPolyline(const Array<float>& varX, const Array<float>& varY,
                               const Variant& varClosed, const Variant& varFilled,
                               const Variant& varColor, const Variant& varFillStyle,
                               const Variant& varDrawStyle, const Variant& varDrawWidth) {
  SetUpPen(varDrawStyle, varDrawWidth, varColor);
  SetUpBrush(varFilled, varFillStyle);
  std::vector<float> numbers = PointNumbers(varX, varY);
  const bool closed = IsTrue(varClosed);
  IgnoringErrors([&] { DrawPoints(std::move(numbers), closed); });
}

void PgPrint::VsPPDrawPolyline(const Array<float>& varX, const Array<float>& varY,
                               const PolylineOptions& options) {
  VsPPDrawPolyline(varX, varY, options.closed, options.filled, options.color, options.fillStyle,
                   options.drawStyle, options.drawWidth);
}

void PgPrint::VsPPPicture(const TextArgument& sPicturePath, const double& dX1, const double& dY1,
                          const double& dX2, const double& dY2) {
  PutRectangle(dX1, dY1, dX2, dY2);
  IgnoringErrors([&] {
    const ObjectRef picture = CurrentPlatform().loadPicture(sPicturePath);
    Engine().PutPicture(picture);
  });
}

void PgPrint::VsPPRealPicture(const Variant& vPicture, const double& dX1, const double& dY1,
                              const double& dX2, const double& dY2) {
  PutRectangle(dX1, dY1, dX2, dY2);
  IgnoringErrors([&] { Engine().PutPicture(ToPicture(vPicture)); });
}

}  // namespace pagivo
