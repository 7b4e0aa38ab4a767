#include "report_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "contours.h"
#include "dutch_numbers.h"
#include "report_style.h"

namespace plumeo {
namespace {

constexpr Style kMapLabel{.size = 8};
constexpr std::int16_t kOutlineWidth = 10;

std::size_t NodesAlong(double length, double spacing) {
  return static_cast<std::size_t>(std::lround(length / spacing)) + 1;
}

Field Sample(const MapWindow& window, double spacing,
             const std::function<double(Point)>& function) {
  Field field{.origin = window.lowest, .spacing = spacing};
  field.columns = NodesAlong(window.highest.x - window.lowest.x, spacing);
  field.rows = NodesAlong(window.highest.y - window.lowest.y, spacing);
  field.rows =
      static_cast<std::size_t>(std::floor((window.highest.y - window.lowest.y) / spacing + 1e-9)) +
      1;
  field.values.reserve(field.columns * field.rows);
  for (std::size_t row = 0; row < field.rows; ++row) {
    for (std::size_t column = 0; column < field.columns; ++column) {
      field.values.push_back(function({window.lowest.x + spacing * static_cast<double>(column),
                                       window.lowest.y + spacing * static_cast<double>(row)}));
    }
  }
  return field;
}

// Of the area from level `index` upwards; the highest level always has the darkest colour.
std::int32_t ColourOf(std::size_t index, std::size_t count) {
  return kScaleColours[kScaleColours.size() - count + index];
}

std::string Metres(double value) {
  return Fixed(value, 0);
}

}  // namespace

std::vector<double> RoundLevels(double highest) {
  constexpr std::size_t count = kScaleColours.size();
  constexpr std::array<double, 3> kDigits = {5, 2, 1};
  std::vector<double> levels;
  if (!(highest > 0)) return levels;
  for (int exponent = static_cast<int>(std::floor(std::log10(highest))); levels.size() < count;
       --exponent) {
    for (const double digit : kDigits) {
      const double level = digit * std::pow(10, exponent);
      if (level < highest && levels.size() < count) levels.push_back(level);
    }
  }
  std::reverse(levels.begin(), levels.end());
  return levels;
}

std::vector<double> EvenLevels(double highest) {
  if (!(highest > 0)) return {};
  constexpr std::array<double, 6> kSteps = {1, 1.5, 2, 2.5, 5, 10};
  const double rough = highest / static_cast<double>(kScaleColours.size() + 1);
  const double power = std::pow(10, std::floor(std::log10(rough)));
  const double digits = *std::find_if(kSteps.begin(), kSteps.end() - 1,
                                      [&](double candidate) { return candidate * power >= rough; });
  std::vector<double> levels;
  for (double level = digits * power; level < highest; level += digits * power) {
    levels.push_back(level);
  }
  return levels;
}

ConcentrationMap::ConcentrationMap(Sheet& sheet, Point topLeft, double width,
                                   const MapWindow& window)
    : sheet_(sheet),
      topLeft_(topLeft),
      window_(window),
      scale_(width / (window.highest.x - window.lowest.x)) {}

Point ConcentrationMap::Position(Point place) const {
  return {topLeft_.x + (place.x - window_.lowest.x) * scale_,
          topLeft_.y + (window_.highest.y - place.y) * scale_};
}

void ConcentrationMap::DrawAreas(const std::function<double(Point)>& field,
                                 const std::vector<double>& levels, double spacing) {
  for (const ContourLoop& loop : TraceContours(Sample(window_, spacing, field), levels)) {
    std::vector<Point> outline;
    for (const Point& point : loop.points) outline.push_back(Position(point));
    if (loop.encloses) {
      sheet_.FillPolygon(outline, ColourOf(loop.level, levels.size()));
    } else {
      sheet_.FillPolygon(outline,
                         loop.level == 0 ? kWhite : ColourOf(loop.level - 1, levels.size()));
    }
    sheet_.Polygon(outline, {.colour = kWhite, .width = kOutlineWidth});
  }
}

void ConcentrationMap::DrawRings(const std::vector<double>& radii) {
  for (const double radius : radii) {
    sheet_.Circle(Position({0, 0}), radius * scale_,
                  {.colour = kInk, .width = 6, .style = PenStyle::Dash});
    const Point at = Position({-0.5 * radius, -std::sqrt(0.75) * radius});
    const std::string label = Metres(radius) + "\u00a0m";
    const double half = sheet_.Width(label, kMapLabel) / 2 + 0.6;
    sheet_.FillBox({at.x - half, at.y - 1.8}, {at.x + half, at.y + 1.8}, kWhite);
    sheet_.TextCentred(label, at.x, at.y + 1.0, kMapLabel);
  }
}

void ConcentrationMap::DrawStack() {
  const Point at = Position({0, 0});
  sheet_.FillCircle(at, 1.5, kWhite);
  sheet_.FillCircle(at, 1.1, kInk);
}

void ConcentrationMap::DrawPlace(Point place, const std::string& label) {
  const Point at = Position(place);
  const double labelWidth = sheet_.Width(label, kMapLabel);
  const bool fits = at.x + 3 + labelWidth < Position(window_.highest).x;
  const double left = fits ? at.x + 1.9 : at.x - 1.9 - labelWidth;
  sheet_.FillBox({left - 0.5, at.y - 1.9}, {left + labelWidth + 0.5, at.y + 1.7}, kWhite);
  sheet_.Text(label, left, at.y + 1.0, kMapLabel);
  const double half = 1.1;
  sheet_.FillPolygon({{at.x, at.y - 1.5}, {at.x + 1.4, at.y + half}, {at.x - 1.4, at.y + half}},
                     kAlarm);
}

void ConcentrationMap::DrawNorthArrow() {
  const Point corner = Position(window_.highest);
  const double x = corner.x - 7;
  const double y = corner.y + 5;
  sheet_.FillBox({x - 3.5, y - 2.5}, {x + 3.5, y + 13}, kWhite);
  sheet_.FillPolygon({{x, y - 1}, {x + 2, y + 7}, {x, y + 5.4}}, kInk);
  sheet_.Polygon({{x, y - 1}, {x, y + 5.4}, {x - 2, y + 7}}, {.colour = kInk, .width = 6});
  sheet_.TextCentred("N", x, y + 11.4, kSmallBold);
}

void ConcentrationMap::DrawFrame(const std::vector<double>& xTicks,
                                 const std::vector<double>& yTicks) {
  const Point lowest = Position(window_.lowest);
  const Point highest = Position(window_.highest);
  sheet_.Box({lowest.x, highest.y}, {highest.x, lowest.y}, kAxisPen);
  for (const double tick : xTicks) {
    const double x = Position({tick, 0}).x;
    sheet_.Line({x, lowest.y}, {x, lowest.y + 1.4}, kAxisPen);
    sheet_.TextCentred(Metres(tick), x, lowest.y + 4.8, kMapLabel);
  }
  for (const double tick : yTicks) {
    const double y = Position({0, tick}).y;
    sheet_.Line({lowest.x - 1.4, y}, {lowest.x, y}, kAxisPen);
    sheet_.TextRight(Metres(tick), lowest.x - 2.2, y + 1.0, kMapLabel);
  }
}

void DrawColourScale(Sheet& sheet, Point topLeft, const std::vector<double>& levels,
                     const std::string& unit) {
  constexpr double kBox = 15;
  constexpr double kDepth = 4;
  double x = topLeft.x;
  sheet.Box({x, topLeft.y}, {x + kBox, topLeft.y + kDepth}, kThinRule);
  for (std::size_t i = 0; i < levels.size(); ++i) {
    x += kBox;
    sheet.FillBox({x, topLeft.y}, {x + kBox, topLeft.y + kDepth}, ColourOf(i, levels.size()));
    sheet.TextCentred(Shortest(levels[i]), x, topLeft.y + kDepth + 3.8, kMapLabel);
  }
  sheet.Text(unit, x + kBox + 2, topLeft.y + 3.1, kMapLabel);
}

}  // namespace plumeo
