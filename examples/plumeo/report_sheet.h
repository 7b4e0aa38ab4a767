// The page under the pen: text on baselines, lines and areas, in millimetres.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contours.h"
#include "pagivo/pg_print.h"
#include "report_style.h"

namespace plumeo {

inline constexpr double kMillimetresPerPoint = 25.4 / 72;

class Sheet {
 public:
  // `print` must outlive the sheet and measure in millimetres.
  explicit Sheet(pagivo::PgPrint& print) : print_(print) {}

  double Width(const std::string& text, const Style& style);
  // `baseline` is what the letters stand on; trailing blanks are not drawn.
  void Text(const std::string& text, double x, double baseline, const Style& style);
  void TextRight(const std::string& text, double right, double baseline, const Style& style);
  void TextCentred(const std::string& text, double middle, double baseline, const Style& style);

  void Line(Point from, Point to, const Pen& pen);
  void Box(Point from, Point to, const Pen& pen);
  void FillBox(Point from, Point to, std::int32_t colour);
  void Polyline(const std::vector<Point>& points, const Pen& pen);
  void FillPolygon(const std::vector<Point>& points, std::int32_t colour);
  void Polygon(const std::vector<Point>& points, const Pen& pen);
  void Circle(Point centre, double radius, const Pen& pen);
  void FillCircle(Point centre, double radius, std::int32_t colour);

  // A slice of the cake, counter-clockwise between two angles in radians from three o'clock.
  void Sector(Point centre, double radius, double from, double to, std::int32_t colour,
              std::int32_t brush);
  void Picture(const std::string& path, Point from, Point to);

 private:
  void Use(const Style& style);

  pagivo::PgPrint& print_;
};

}  // namespace plumeo
