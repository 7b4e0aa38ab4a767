// Maps of concentrations around the stack, as filled areas with a colour scale.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report_sheet.h"

namespace plumeo {

// A rectangle on the ground, metres from the stack, drawn to one scale both ways.
struct MapWindow {
  Point lowest;   // the lower left corner on paper
  Point highest;  // the upper right one
};

// A map whose upper left corner lies at `topLeft` on paper.
class ConcentrationMap {
 public:
  // `field` gives the concentration at a place on the ground, in any unit; `width` is on paper.
  ConcentrationMap(Sheet& sheet, Point topLeft, double width, MapWindow window,
                   const std::function<double(Point)>& field);

  void DrawAreas();
  // White on the dark areas, grey on the pale: the distances around the stack.
  void DrawRings(const std::vector<double>& radii);
  void DrawStack();
  void DrawPlace(Point place, const std::string& label);
  void DrawNorthArrow();
  void DrawFrame(const std::vector<double>& xTicks, const std::vector<double>& yTicks);
  // The colours and the levels at which they change, at `topLeft`, with the unit behind them.
  void DrawScale(Point topLeft, const std::string& unit);

  double Height() const { return (window_.highest.y - window_.lowest.y) * scale_; }
  Point Position(Point place) const;

 private:
  Sheet& sheet_;
  Point topLeft_;
  MapWindow window_;
  double scale_;  // mm on paper per m
  Field field_;
  std::vector<double> levels_;
};

// At most `count` levels below `highest`, rising, each 1, 2 or 5 times a power of ten.
std::vector<double> RoundLevels(double highest, std::size_t count);

}  // namespace plumeo
