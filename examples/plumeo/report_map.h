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
  // `width` is on paper.
  ConcentrationMap(Sheet& sheet, Point topLeft, double width, const MapWindow& window);

  // What lies between the levels, from a field that gives the concentration at a place on the
  // ground and is taken every `spacing` metres; the window's sides are multiples of that. As many
  // levels as there are colours in the scale, or fewer, rising.
  void DrawAreas(const std::function<double(Point)>& field, const std::vector<double>& levels,
                 double spacing);
  // The distances around the stack.
  void DrawRings(const std::vector<double>& radii);
  void DrawStack();
  void DrawPlace(Point place, const std::string& label);
  void DrawNorthArrow();
  void DrawFrame(const std::vector<double>& xTicks, const std::vector<double>& yTicks);
  double Height() const { return (window_.highest.y - window_.lowest.y) * scale_; }
  Point Position(Point place) const;

 private:
  Sheet& sheet_;
  Point topLeft_;
  MapWindow window_;
  double scale_;  // mm on paper per m
};

// The colours and the levels at which they change, at `topLeft`, with the unit behind them.
void DrawColourScale(Sheet& sheet, Point topLeft, const std::vector<double>& levels,
                     const std::string& unit);

// Both give no levels when nothing is above 0.
//
// Rising levels below `highest`, as many as the scale has colours: each 1, 2 or 5 times a power of
// ten, over some two powers of ten.
std::vector<double> RoundLevels(double highest);
// Up to as many as the scale has colours, with a round step between them.
std::vector<double> EvenLevels(double highest);

}  // namespace plumeo
