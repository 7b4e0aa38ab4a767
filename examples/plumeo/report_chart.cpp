#include "report_chart.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "dutch_numbers.h"
#include "report_rich_text.h"

namespace plumeo {
namespace {

// Numbers with more decimals than this needs would not fit beside the axis.
constexpr double kSmallestTop = 1e-6;
constexpr Style kTickStyle{.size = 8};
constexpr Pen kGridPen{.colour = Rgb(226, 230, 234), .width = 6};

// Where a value lies between the axis' ends, 0 to 1.
double ShareOf(const Axis& axis, double value) {
  if (!axis.logarithmic) return (value - axis.from) / (axis.to - axis.from);
  return std::log(value / axis.from) / std::log(axis.to / axis.from);
}

bool Within(const Axis& axis, double value) {
  return value >= axis.from && value <= axis.to;
}

}  // namespace

Axis LinearAxis(double highest, std::string title) {
  if (highest < kSmallestTop) highest = 1;
  const double power = std::pow(10, std::floor(std::log10(highest)));
  double step = power;
  if (highest / power < 5) step = power / 2;
  if (highest / power < 2) step = power / 5;
  Axis axis{.to = std::ceil(highest / step * 1.02) * step, .title = std::move(title)};
  const auto count = std::lround(axis.to / step);
  for (long i = 0; i <= count; ++i) axis.ticks.push_back(static_cast<double>(i) * step);
  axis.decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step * 1.0001))));
  return axis;
}

Axis LogarithmicAxis(double from, double to, std::string title) {
  Axis axis{.from = from, .to = to, .logarithmic = true, .title = std::move(title)};
  const int first = static_cast<int>(std::floor(std::log10(from)));
  const int last = static_cast<int>(std::ceil(std::log10(to)));
  for (int exponent = first; exponent <= last; ++exponent) {
    for (int digit = 1; digit <= 9; ++digit) {
      const double tick = digit * std::pow(10, exponent);
      if (!Within(axis, tick)) continue;
      (digit == 1 || digit == 2 || digit == 5 ? axis.ticks : axis.minorTicks).push_back(tick);
    }
  }
  return axis;
}

Chart::Chart(Sheet& sheet, Point topLeft, Point bottomRight, Axis x, Axis y)
    : sheet_(sheet),
      topLeft_(topLeft),
      bottomRight_(bottomRight),
      x_(std::move(x)),
      y_(std::move(y)) {}

Point Chart::Position(Point value) const {
  return {topLeft_.x + ShareOf(x_, value.x) * (bottomRight_.x - topLeft_.x),
          bottomRight_.y - ShareOf(y_, value.y) * (bottomRight_.y - topLeft_.y)};
}

bool Chart::Holds(Point value) const {
  return Within(x_, value.x) && Within(y_, value.y);
}

void Chart::DrawTicks() {
  for (const double tick : x_.ticks) {
    const double x = Position({tick, y_.from}).x;
    sheet_.Line({x, topLeft_.y}, {x, bottomRight_.y}, kGridPen);
    sheet_.Line({x, bottomRight_.y}, {x, bottomRight_.y + 1.4}, kAxisPen);
    sheet_.TextCentred(Fixed(tick, x_.decimals), x, bottomRight_.y + 4.8, kTickStyle);
  }
  for (const double tick : x_.minorTicks) {
    const double x = Position({tick, y_.from}).x;
    sheet_.Line({x, bottomRight_.y}, {x, bottomRight_.y + 0.8}, kAxisPen);
  }
  for (const double tick : y_.ticks) {
    const double y = Position({x_.from, tick}).y;
    sheet_.Line({topLeft_.x, y}, {bottomRight_.x, y}, kGridPen);
    sheet_.Line({topLeft_.x - 1.4, y}, {topLeft_.x, y}, kAxisPen);
    sheet_.TextRight(Fixed(tick, y_.decimals), topLeft_.x - 2.2, y + 1.0, kTickStyle);
  }
}

void Chart::DrawAxes() {
  DrawTicks();
  sheet_.Line({topLeft_.x, topLeft_.y}, {topLeft_.x, bottomRight_.y}, kAxisPen);
  sheet_.Line({topLeft_.x, bottomRight_.y}, {bottomRight_.x, bottomRight_.y}, kAxisPen);
  const RichLine xTitle(sheet_, x_.title, kSmall);
  xTitle.Draw(sheet_, bottomRight_.x - xTitle.Width(), bottomRight_.y + 9.4);
  RichLine(sheet_, y_.title, kSmall).Draw(sheet_, kTextLeft, topLeft_.y - 3.2);
}

void Chart::DrawSeries(const std::vector<Point>& values, const Pen& pen) {
  std::vector<Point> piece;
  const auto flush = [&] {
    if (piece.size() > 1) sheet_.Polyline(piece, pen);
    piece.clear();
  };
  for (const Point& value : values) {
    if (Holds(value)) {
      piece.push_back(Position(value));
    } else {
      flush();
    }
  }
  flush();
}

void Chart::DrawMarker(Point value, std::int32_t colour) {
  if (!Holds(value)) return;
  sheet_.FillCircle(Position(value), 1.15, kWhite);
  sheet_.FillCircle(Position(value), 0.8, colour);
}

void Chart::DrawLegend(const std::vector<LegendEntry>& entries, Corner place) {
  constexpr double kLeading = 4.6;
  constexpr double kSample = 9;
  std::vector<RichLine> lines;
  double width = 0;
  for (const LegendEntry& entry : entries) {
    lines.emplace_back(sheet_, entry.markup, kSmall);
    width = std::max(width, lines.back().Width());
  }
  const double height = kLeading * static_cast<double>(entries.size()) + 2;
  const double top = place == Corner::UpperRight ? topLeft_.y + 1.5 : bottomRight_.y - 1.5 - height;
  const Point corner{bottomRight_.x - width - kSample - 8, top};
  sheet_.FillBox(corner, {bottomRight_.x - 1.5, top + height}, kWhite);
  sheet_.Box(corner, {bottomRight_.x - 1.5, top + height}, kThinRule);
  double baseline = corner.y + 4.2;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    sheet_.Line({corner.x + 2, baseline - 1.1}, {corner.x + 2 + kSample, baseline - 1.1},
                entries[i].pen);
    lines[i].Draw(sheet_, corner.x + kSample + 4.5, baseline);
    baseline += kLeading;
  }
}

}  // namespace plumeo
