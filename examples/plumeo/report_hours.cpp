// Chapter: the means over one hour in each stability class.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_chart.h"
#include "report_map.h"
#include "report_table.h"

namespace plumeo {
namespace {

constexpr double kNearest = 100;
constexpr double kFarthest = 20'000;
constexpr std::int32_t kClassDashes[] = {PenStyle::Solid, PenStyle::Dash,    PenStyle::Solid,
                                         PenStyle::Solid, PenStyle::DashDot, PenStyle::Dash};

Pen PenOf(Stability stability) {
  return {.colour = kClassColours[IndexOf(stability)],
          .width = 26,
          .style = kClassDashes[IndexOf(stability)]};
}

std::vector<LegendEntry> ClassLegend() {
  std::vector<LegendEntry> entries;
  for (const Stability stability : kStabilities) {
    entries.push_back({std::string("klasse ") + LetterOf(stability), PenOf(stability)});
  }
  return entries;
}

void DrawAxisChart(Report& report) {
  Flow& flow = report.flow;
  constexpr double kHeight = 86;
  const double highest = report.results.Worst().maximum.concentration * kMicrogramsPerGram;
  const Point corner{kTextLeft + 12, flow.Top() + 7};
  Chart chart(flow.Paper(), corner, {kTextRight, corner.y + kHeight},
              LogarithmicAxis(kNearest, kFarthest, "afstand *x* (m)"),
              LinearAxis(highest, std::string("concentratie *C* (") + kMicrogramUnit + ")"));
  chart.DrawAxes();
  for (const ClassResult& result : report.results.classes) {
    std::vector<Point> line;
    for (double distance = kNearest; distance <= kFarthest; distance *= 1.025) {
      line.push_back({distance, GroundConcentration(result.plume, distance) * kMicrogramsPerGram});
    }
    chart.DrawSeries(line, PenOf(result.stability));
  }
  for (const ClassResult& result : report.results.classes) {
    chart.DrawMarker({result.maximum.distance, result.maximum.concentration * kMicrogramsPerGram},
                     PenOf(result.stability).colour);
  }
  chart.DrawLegend(ClassLegend());
  flow.MoveTo(corner.y + kHeight + 17);
  flow.FigureCaption(
      "Uurgemiddelde concentratie op de grond onder de as van de pluim; de stippen "
      "geven de maxima aan");
}

void DrawMaximumTable(Report& report) {
  report.flow.TableCaption("Hoogste uurgemiddelde op de grond per stabiliteitsklasse");
  Table table{.columns = {{"Klasse", "", 20, Align::Left},
                          {"Hoogte *H*", "m", 26},
                          {"Afstand", "m", 26},
                          {"*σ*_{*y*}", "m", 24},
                          {"*σ*_{*z*}", "m", 24},
                          {"Maximum *C*", kMicrogramUnit, 34}}};
  const int decimals =
      DecimalsFor(report.results.Worst().maximum.concentration * kMicrogramsPerGram, 3);
  for (const ClassResult& result : report.results.classes) {
    const Spread spread = SpreadAt(result.plume.terrain, result.stability, result.maximum.distance);
    table.rows.push_back({LetterOf(result.stability), Fixed(result.plume.effectiveHeight, 1),
                          Fixed(result.maximum.distance, 0), Fixed(spread.lateral, 1),
                          Fixed(spread.vertical, 1),
                          Fixed(result.maximum.concentration * kMicrogramsPerGram, decimals)});
  }
  DrawTable(report.flow, table);
}

void ComposeAlongAxis(Report& report) {
  Flow& flow = report.flow;
  const ClassResult& worst = report.results.Worst();
  flow.Section("Verloop met de afstand");
  flow.Paragraph(
      "Dicht bij de schoorsteen gaat de pluim over de omgeving heen; verder weg "
      "verdunt zij. Daartussen ligt het maximum, bij onstabiel weer dichterbij dan bij "
      "stabiel weer. Het hoogste uurgemiddelde van alle klassen is " +
      WithUnit(Micrograms(worst.maximum.concentration), kMicrogramUnit) + " in klasse " +
      LetterOf(worst.stability) + ", op " + WithUnit(Fixed(worst.maximum.distance, 0), "m") +
      " afstand.");
  DrawAxisChart(report);
  DrawMaximumTable(report);
}

void ComposeDistanceTable(Report& report) {
  Flow& flow = report.flow;
  constexpr double kDistances[] = {100,  200,  300,  400,  500,  700,    1000,   1500,
                                   2000, 3000, 4000, 5000, 7000, 10'000, 15'000, 20'000};
  const int decimals =
      DecimalsFor(report.results.Worst().maximum.concentration * kMicrogramsPerGram, 4);
  const double unit = std::pow(10, -decimals);  // of the last decimal
  Table table{.columns = {{"Afstand", "m", 28}}};
  for (const Stability stability : kStabilities) {
    table.columns.push_back({std::string("klasse ") + LetterOf(stability), kMicrogramUnit, 21});
  }
  for (const double distance : kDistances) {
    std::vector<std::string> row = {Fixed(distance, 0)};
    for (const ClassResult& result : report.results.classes) {
      const double value = GroundConcentration(result.plume, distance) * kMicrogramsPerGram;
      row.push_back(value < unit / 2 ? "< " + Fixed(unit, decimals) : Fixed(value, decimals));
    }
    table.rows.push_back(std::move(row));
  }
  flow.Need(HeightOf(table) + kHeadingAndCaption);
  flow.Section("Concentraties op vaste afstanden");
  flow.TableCaption(std::string("Uurgemiddelde op de grond onder de as van de pluim, in ") +
                    kMicrogramUnit);
  DrawTable(flow, table);
}

void DrawCrosswindChart(Report& report) {
  Flow& flow = report.flow;
  const Plume& plume = report.results.Of(report.project.designClass).plume;
  constexpr double kDistances[] = {500, 1000, 2000, 4000};
  constexpr std::int32_t kColours[] = {Rgb(176, 52, 40), Rgb(221, 127, 43), Rgb(60, 141, 90),
                                       Rgb(14, 85, 120)};
  constexpr std::int32_t kDashes[] = {PenStyle::Solid, PenStyle::Dash, PenStyle::Solid,
                                      PenStyle::DashDot};
  constexpr double kHeight = 62;
  constexpr double kHalfWidth = 800;
  double highest = 0;
  for (const double distance : kDistances) {
    highest = std::max(highest, GroundConcentration(plume, distance) * kMicrogramsPerGram);
  }
  Axis across{.from = -kHalfWidth, .to = kHalfWidth, .title = "afstand tot de as *y* (m)"};
  for (double tick = -kHalfWidth; tick <= kHalfWidth; tick += 200) across.ticks.push_back(tick);
  const Point corner{kTextLeft + 12, flow.Top() + 7};
  Chart chart(flow.Paper(), corner, {kTextRight, corner.y + kHeight}, across,
              LinearAxis(highest, std::string("concentratie *C* (") + kMicrogramUnit + ")"));
  chart.DrawAxes();
  std::vector<LegendEntry> legend;
  for (std::size_t i = 0; i < std::size(kDistances); ++i) {
    const Pen pen{.colour = kColours[i], .width = 26, .style = kDashes[i]};
    std::vector<Point> line;
    for (double y = -kHalfWidth; y <= kHalfWidth; y += 8) {
      line.push_back({y, Concentration(plume, kDistances[i], y, 0) * kMicrogramsPerGram});
    }
    chart.DrawSeries(line, pen);
    legend.push_back({"*x* = " + WithUnit(Fixed(kDistances[i], 0), "m"), pen});
  }
  chart.DrawLegend(legend);
  flow.MoveTo(corner.y + kHeight + 17);
  flow.FigureCaption(std::string("Uurgemiddelde concentratie op de grond dwars op de pluim, "
                                 "klasse ") +
                     LetterOf(report.project.designClass));
}

void ComposeCrosswind(Report& report) {
  Flow& flow = report.flow;
  flow.Need(120);
  flow.Section("Dwars op de wind");
  flow.Paragraph(
      "Dwars op de wind neemt de concentratie volgens een klokkromme af. De breedte "
      "van de pluim groeit bijna evenredig met de afstand; tegelijk verdwijnt het "
      "verschil tussen de as en de flanken.");
  DrawCrosswindChart(report);
}

// The worst class, that of the design and the most stable one, each once.
std::vector<Stability> MappedClasses(const Report& report) {
  std::vector<Stability> classes = {report.results.Worst().stability};
  for (const Stability stability : {report.project.designClass, Stability::F}) {
    if (std::find(classes.begin(), classes.end(), stability) == classes.end()) {
      classes.push_back(stability);
    }
  }
  return classes;
}

void DrawHourMap(Report& report, Stability stability, const std::vector<double>& levels) {
  constexpr double kBehind = 200;
  constexpr double kAhead = 7800;
  constexpr double kHalfBreadth = 1000;
  constexpr double kSpacing = 25;
  Flow& flow = report.flow;
  const Plume& plume = report.results.Of(stability).plume;
  ConcentrationMap map(flow.Paper(), {kTextLeft + 12, flow.Top() + 3}, kTextWidth - 12,
                       {{-kBehind, -kHalfBreadth}, {kAhead, kHalfBreadth}});
  flow.Paper().Text(std::string("Klasse ") + LetterOf(stability) + ", wind " +
                        WithUnit(Fixed(plume.windSpeed, 1), "m/s") + ", effectieve hoogte " +
                        WithUnit(Fixed(plume.effectiveHeight, 0), "m"),
                    kTextLeft + 12, flow.Top() + 1, kSmallBold);
  map.DrawAreas(
      [&plume](Point at) { return Concentration(plume, at.x, at.y, 0) * kMicrogramsPerGram; },
      levels, kSpacing);
  map.DrawFrame({0, 1000, 2000, 3000, 4000, 5000, 6000, 7000}, {-1000, -500, 0, 500, 1000});
  map.DrawStack();
  flow.Space(map.Height() + 15);
}

void ComposeHourMaps(Report& report) {
  Flow& flow = report.flow;
  constexpr double kMapHeight = 51;
  const std::vector<Stability> classes = MappedClasses(report);
  const std::vector<double> levels =
      RoundLevels(report.results.Worst().maximum.concentration * kMicrogramsPerGram);
  flow.Need(50 + kMapHeight * static_cast<double>(classes.size()));
  flow.Section("Kaarten van een uur");
  flow.Paragraph(
      "De kaarten tonen de pluim tijdens één uur met een constante wind van links naar "
      "rechts: in de klasse met het hoogste uurgemiddelde, in die van het ontwerp en in "
      "de meest stabiele. De schaal is in beide richtingen gelijk.");
  for (const Stability stability : classes) DrawHourMap(report, stability, levels);
  DrawColourScale(flow.Paper(), {kTextLeft + 12, flow.Top()}, levels, kMicrogramUnit);
  flow.Space(15);
  flow.FigureCaption(
      "Uurgemiddelde concentratie op de grond; afstanden in m vanaf de "
      "schoorsteen");
}

}  // namespace

void ComposeHourlyMeans(Report& report) {
  report.flow.Chapter("Uurgemiddelde concentraties");
  ComposeAlongAxis(report);
  ComposeDistanceTable(report);
  ComposeCrosswind(report);
  ComposeHourMaps(report);
}

}  // namespace plumeo
