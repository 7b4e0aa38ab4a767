// Charts with axes: lines over a grid.
#pragma once

#include <string>
#include <vector>

#include "report_sheet.h"

namespace plumeo {

struct Axis {
  double from = 0;
  double to = 1;
  bool logarithmic = false;
  std::vector<double> ticks = {};  // with a grid line and a number
  std::vector<double> minorTicks = {};
  int decimals = 0;
  std::string title = {};  // markup
};

// From 0 to at least `highest` (to 1 when that is below 1e-6), ticks at 1, 2 or 5 times a power of
// ten.
Axis LinearAxis(double highest, std::string title);
// Between two values with ticks at 1, 2 and 5 times each power of ten.
Axis LogarithmicAxis(double from, double to, std::string title);

struct LegendEntry {
  std::string markup;
  Pen pen;
};

class Chart {
 public:
  // The plotting area; numbers and titles stand outside it, about 12 mm left and below and 6 above.
  Chart(Sheet& sheet, Point topLeft, Point bottomRight, Axis x, Axis y);

  void DrawAxes();
  // Cut off at the plotting area's edges, both ways.
  void DrawSeries(const std::vector<Point>& values, const Pen& pen);
  void DrawMarker(Point value, std::int32_t colour);
  enum class Corner { UpperRight, LowerRight };
  // On a white ground.
  void DrawLegend(const std::vector<LegendEntry>& entries, Corner corner = Corner::UpperRight);

  Point Position(Point value) const;

 private:
  void DrawTicks();
  bool Holds(Point value) const;

  Sheet& sheet_;
  Point topLeft_;
  Point bottomRight_;
  Axis x_;
  Axis y_;
};

}  // namespace plumeo
