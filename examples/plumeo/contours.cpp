#include "contours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

namespace plumeo {
namespace {

// A lattice edge: the node it starts from (padded numbering) and whether it runs up.
using Edge = std::pair<std::size_t, bool>;

// The field with a ring of nodes below every level around it. The ring lies on the field's own
// border, so that areas reaching the border are closed along it.
class PaddedField {
 public:
  explicit PaddedField(const Field& field) : field_(field) {}

  std::size_t Columns() const { return field_.columns + 2; }
  std::size_t Rows() const { return field_.rows + 2; }

  double Value(std::size_t column, std::size_t row) const {
    const bool ring = column == 0 || row == 0 || column > field_.columns || row > field_.rows;
    return ring ? -std::numeric_limits<double>::max() : field_.At(column - 1, row - 1);
  }

  Point Position(std::size_t column, std::size_t row) const {
    const auto inside = [](std::size_t index, std::size_t count) {
      return static_cast<double>(std::clamp<std::size_t>(index, 1, count) - 1);
    };
    return {field_.origin.x + inside(column, field_.columns) * field_.spacing,
            field_.origin.y + inside(row, field_.rows) * field_.spacing};
  }

  // Where the field crosses the level on an edge.
  Point Crossing(const Edge& edge, double level) const {
    const std::size_t column = edge.first % Columns();
    const std::size_t row = edge.first / Columns();
    const std::size_t toColumn = column + (edge.second ? 0 : 1);
    const std::size_t toRow = row + (edge.second ? 1 : 0);
    const double from = Value(column, row);
    const double to = Value(toColumn, toRow);
    const double share = (level - from) / (to - from);
    const Point a = Position(column, row);
    const Point b = Position(toColumn, toRow);
    return {a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)};
  }

 private:
  const Field& field_;
};

// Steps from crossed edge to crossed edge, the higher side on the left.
using Steps = std::map<Edge, Edge>;

void AddCell(const PaddedField& field, std::size_t column, std::size_t row, double level,
             Steps& steps) {
  // Corners and edges counter-clockwise from the lower left.
  const std::array<double, 4> corners = {field.Value(column, row), field.Value(column + 1, row),
                                         field.Value(column + 1, row + 1),
                                         field.Value(column, row + 1)};
  const std::size_t node = row * field.Columns() + column;
  const std::array<Edge, 4> edges = {Edge{node, false}, Edge{node + 1, true},
                                     Edge{node + field.Columns(), false}, Edge{node, true}};
  const auto above = [&](std::size_t corner) { return corners[corner % 4] >= level; };
  // Counter-clockwise around the cell, the line comes in where an edge goes from above to below and
  // leaves where one comes back; in a saddle the middle decides which two belong together.
  const bool saddle = above(0) == above(2) && above(1) == above(3) && above(0) != above(1);
  double middle = 0;
  for (const double corner : corners) middle += corner / 4;
  const bool joined = saddle && middle >= level;
  for (std::size_t i = 0; i < 4; ++i) {
    if (above(i) || !above(i + 1)) continue;  // the line leaves the cell through edge i
    std::size_t entry = i;
    if (joined) {
      entry = (i + 3) % 4;
    } else {
      do entry = (entry + 1) % 4;
      while (!(above(entry) && !above(entry + 1)));
    }
    steps[edges[entry]] = edges[i];
  }
}

Steps StepsOf(const PaddedField& field, double level) {
  Steps steps;
  for (std::size_t row = 0; row + 1 < field.Rows(); ++row) {
    for (std::size_t column = 0; column + 1 < field.Columns(); ++column) {
      AddCell(field, column, row, level, steps);
    }
  }
  return steps;
}

double SignedArea(const std::vector<Point>& points) {
  double twice = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point& a = points[i];
    const Point& b = points[(i + 1) % points.size()];
    twice += a.x * b.y - b.x * a.y;
  }
  return twice / 2;
}

ContourLoop TakeLoop(const PaddedField& field, double level, Steps& steps) {
  ContourLoop loop;
  for (auto step = steps.begin(); step != steps.end();) {
    loop.points.push_back(field.Crossing(step->first, level));
    const Edge next = step->second;
    steps.erase(step);
    step = steps.find(next);
  }
  return loop;
}

}  // namespace

std::vector<ContourLoop> TraceContours(const Field& field, const std::vector<double>& levels) {
  const PaddedField padded(field);
  std::vector<ContourLoop> loops;
  for (std::size_t level = 0; level < levels.size(); ++level) {
    Steps steps = StepsOf(padded, levels[level]);
    while (!steps.empty()) {
      ContourLoop loop = TakeLoop(padded, levels[level], steps);
      const double area = SignedArea(loop.points);
      loop.level = level;
      loop.encloses = area > 0;
      loop.area = std::abs(area);
      loops.push_back(std::move(loop));
    }
  }
  std::stable_sort(loops.begin(), loops.end(),
                   [](const ContourLoop& a, const ContourLoop& b) { return a.area > b.area; });
  return loops;
}

}  // namespace plumeo
