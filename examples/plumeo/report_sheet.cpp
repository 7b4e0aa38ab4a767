#include "report_sheet.h"

#include <cmath>
#include <numbers>
#include <string_view>

namespace plumeo {
namespace {

constexpr int kSectorOutline = 6;

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

struct Coordinates {
  std::vector<float> x;
  std::vector<float> y;
};

Coordinates CoordinatesOf(const std::vector<Point>& points) {
  Coordinates coordinates;
  for (const Point& point : points) {
    coordinates.x.push_back(static_cast<float>(point.x));
    coordinates.y.push_back(static_cast<float>(point.y));
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
  return print_.VsPPTextWidthS(text).ToDouble();
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
  print_.VsPPLine(from.x, from.y, to.x, to.y,
                  {.color = pen.colour, .drawStyle = pen.style, .drawWidth = pen.width});
}

void Sheet::Box(Point from, Point to, const Pen& pen) {
  print_.VsPPLine(
      from.x, from.y, to.x, to.y,
      {.box = true, .color = pen.colour, .drawStyle = pen.style, .drawWidth = pen.width});
}

void Sheet::FillBox(Point from, Point to, std::int32_t colour) {
  print_.VsPPLine(from.x, from.y, to.x, to.y,
                  {.box = true, .filled = true, .color = colour, .drawStyle = PenStyle::Invisible});
}

void Sheet::Polyline(const std::vector<Point>& points, const Pen& pen) {
  const Coordinates at = CoordinatesOf(points);
  print_.VsPPDrawPolyline(at.x, at.y,
                          {.color = pen.colour, .drawStyle = pen.style, .drawWidth = pen.width});
}

void Sheet::FillPolygon(const std::vector<Point>& points, std::int32_t colour) {
  const Coordinates at = CoordinatesOf(points);
  print_.VsPPDrawPolyline(
      at.x, at.y,
      {.closed = true, .filled = true, .color = colour, .drawStyle = PenStyle::Invisible});
}

void Sheet::Polygon(const std::vector<Point>& points, const Pen& pen) {
  const Coordinates at = CoordinatesOf(points);
  print_.VsPPDrawPolyline(
      at.x, at.y,
      {.closed = true, .color = pen.colour, .drawStyle = pen.style, .drawWidth = pen.width});
}

void Sheet::Circle(Point centre, double radius, const Pen& pen) {
  print_.VsPPCircle(centre.x, centre.y, radius,
                    {.color = pen.colour, .drawStyle = pen.style, .drawWidth = pen.width});
}

void Sheet::FillCircle(Point centre, double radius, std::int32_t colour) {
  print_.VsPPCircle(centre.x, centre.y, radius,
                    {.filled = true, .color = colour, .drawStyle = PenStyle::Invisible});
}

void Sheet::Sector(Point centre, double radius, double from, double to, std::int32_t colour,
                   std::int32_t brush) {
  print_.VsPPCircle(centre.x, centre.y, radius,
                    {.start = -Turned(from),
                     .end = -Turned(to),
                     .filled = true,
                     .color = colour,
                     .fillStyle = brush,
                     .drawWidth = kSectorOutline});
}

void Sheet::Picture(const std::string& path, Point from, Point to) {
  print_.VsPPPicture(path, from.x, from.y, to.x, to.y);
}

}  // namespace plumeo
