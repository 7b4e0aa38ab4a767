#include "report_sheet.h"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>

#include "pagivo/array.h"
#include "pagivo/variant.h"

namespace plumeo {
namespace {

constexpr std::int32_t kInvisiblePen = 5;

// From the line's top to the baseline, in ems, as these three faces give it.
double AscentOf(const Style& style) {
  const std::string_view font = style.font;
  if (font == kSerif) return 0.891;
  if (font == kFixedWidth) return 0.833;
  return 0.905;
}

double TopOf(double baseline, const Style& style) {
  return baseline - AscentOf(style) * style.size * kMillimetresPerPoint;
}

std::int32_t CodeOf(PenStyle style) {
  return static_cast<std::int32_t>(style);
}

struct Coordinates {
  pagivo::Array<float> x;
  pagivo::Array<float> y;
};

Coordinates CoordinatesOf(const std::vector<Point>& points) {
  const auto count = static_cast<std::int32_t>(points.size());
  Coordinates coordinates{pagivo::Array<float>(1, count), pagivo::Array<float>(1, count)};
  for (std::int32_t i = 1; i <= count; ++i) {
    const Point& point = points[static_cast<std::size_t>(i - 1)];
    coordinates.x(i) = static_cast<float>(point.x);
    coordinates.y(i) = static_cast<float>(point.y);
  }
  return coordinates;
}

// The same direction as an angle above 0, so that its sign is free to ask for a line to the centre.
double Turned(double angle) {
  constexpr double kTurn = 2 * std::numbers::pi;
  const double within = std::fmod(std::fmod(angle, kTurn) + kTurn, kTurn);
  return within > 0 ? within : kTurn;
}

}  // namespace

void Sheet::Use(const Style& style) {
  print_.VsPPSetFont(style.font, style.size, style.bold, false, style.italic);
}

double Sheet::Width(const std::string& text, const Style& style) {
  Use(style);
  const pagivo::Variant width = print_.VsPPTextWidthS(text);
  const double* millimetres = width.GetIf<double>();
  return millimetres ? *millimetres : 0;
}

void Sheet::Text(const std::string& text, double x, double baseline, const Style& style) {
  Use(style);
  print_.VsPPZetKleur(style.colour);
  print_.VsPPPrint(text, x, TopOf(baseline, style));
}

void Sheet::TextRight(const std::string& text, double right, double baseline, const Style& style) {
  Use(style);
  print_.VsPPZetKleur(style.colour);
  print_.VsPPPrintR(text, right, TopOf(baseline, style));
}

void Sheet::TextCentred(const std::string& text, double middle, double baseline,
                        const Style& style) {
  Text(text, middle - Width(text, style) / 2, baseline, style);
}

void Sheet::Line(Point from, Point to, const Pen& pen) {
  print_.VsPPLine(from.x, from.y, to.x, to.y, false, false, pen.colour, std::int32_t{0},
                  CodeOf(pen.style), pen.width);
}

void Sheet::Box(Point from, Point to, const Pen& pen) {
  print_.VsPPLine(from.x, from.y, to.x, to.y, true, false, pen.colour, std::int32_t{0},
                  CodeOf(pen.style), pen.width);
}

void Sheet::FillBox(Point from, Point to, std::int32_t colour) {
  print_.VsPPLine(from.x, from.y, to.x, to.y, true, true, colour, std::int32_t{0}, kInvisiblePen);
}

void Sheet::Polyline(const std::vector<Point>& points, const Pen& pen) {
  const Coordinates at = CoordinatesOf(points);
  print_.VsPPDrawPolyline(at.x, at.y, false, false, pen.colour, std::int32_t{0}, CodeOf(pen.style),
                          pen.width);
}

void Sheet::FillPolygon(const std::vector<Point>& points, std::int32_t colour) {
  const Coordinates at = CoordinatesOf(points);
  print_.VsPPDrawPolyline(at.x, at.y, true, true, colour, std::int32_t{0}, kInvisiblePen);
}

void Sheet::Polygon(const std::vector<Point>& points, const Pen& pen) {
  const Coordinates at = CoordinatesOf(points);
  print_.VsPPDrawPolyline(at.x, at.y, true, false, pen.colour, std::int32_t{0}, CodeOf(pen.style),
                          pen.width);
}

void Sheet::Circle(Point centre, double radius, const Pen& pen) {
  print_.VsPPCircle(centre.x, centre.y, radius, pagivo::Missing, pagivo::Missing, false, pen.colour,
                    std::int32_t{0}, CodeOf(pen.style), pen.width);
}

void Sheet::FillCircle(Point centre, double radius, std::int32_t colour) {
  print_.VsPPCircle(centre.x, centre.y, radius, pagivo::Missing, pagivo::Missing, true, colour,
                    std::int32_t{0}, kInvisiblePen);
}

void Sheet::Sector(Point centre, double radius, double from, double to, std::int32_t colour,
                   Hatch hatch) {
  print_.VsPPCircle(centre.x, centre.y, radius, -Turned(from), -Turned(to), true, colour,
                    static_cast<std::int32_t>(hatch), std::int32_t{0}, std::int16_t{6});
}

void Sheet::Picture(const std::string& path, Point from, Point to) {
  print_.VsPPPicture(path, from.x, from.y, to.x, to.y);
}

}  // namespace plumeo
