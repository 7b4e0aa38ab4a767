// Areas of equal height in a field of numbers, as polygons that can be filled.
#pragma once

#include <cstddef>
#include <vector>

namespace plumeo {

struct Point {
  double x = 0;
  double y = 0;
};

// Values on a square lattice of columns x rows nodes (at least 2 x 2), row by row.
struct Field {
  std::size_t columns = 0;
  std::size_t rows = 0;
  Point origin;        // of node (0, 0)
  double spacing = 0;  // between neighbouring nodes, both ways
  std::vector<double> values = {};

  double At(std::size_t column, std::size_t row) const { return values[row * columns + column]; }
};

// A closed line along which the field crosses a level, or the field's edge where it lies above it.
struct ContourLoop {
  std::vector<Point> points;  // the last one joins the first
  std::size_t level = 0;      // index in the levels asked for
  bool encloses = true;       // true: above the level inside; false: a hole, below it inside
  double area = 0;            // enclosed, positive
};

// The loops of all levels, largest first. Painting them in this order, each in the colour of what
// it has inside, fills the map: loops of one field never cross, so each lies wholly in or out of
// the ones before it. Marching squares; saddles are cut by the mean of their four corners.
std::vector<ContourLoop> TraceContours(const Field& field, const std::vector<double>& levels);

}  // namespace plumeo
