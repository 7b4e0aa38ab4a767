// Chapter: the means over the year, on a map and in a wide table.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_map.h"
#include "report_table.h"

namespace plumeo {
namespace {

constexpr double kNodesToTheEdge = 90;

// About four rings or ticks between the stack and the map's edge.
double RoundStep(double halfWidth) {
  const double rough = halfWidth / 4;
  const double power = std::pow(10, std::floor(std::log10(rough)));
  return rough / power >= 5 ? 5 * power : rough / power >= 2 ? 2 * power : power;
}

std::vector<double> Steps(double from, double to, double step) {
  std::vector<double> values;
  for (double value = from; value <= to + step / 1000; value += step) values.push_back(value);
  return values;
}

void ComposeYearMap(Report& report) {
  Flow& flow = report.flow;
  const Project& project = report.project;
  const double half = project.mapHalfWidth;
  const YearlyPeak& peak = report.results.yearlyPeak;
  flow.Section("Kaart");
  flow.Paragraph("De bijdrage van de bron aan het jaargemiddelde is het hoogst op " +
                 WithUnit(Fixed(peak.distance, 0), "m") + " in de richting " +
                 CompassName(peak.bearing) + " (" + Fixed(peak.bearing, 0) +
                 "°): " + WithUnit(Micrograms(peak.concentration), kMicrogramUnit) +
                 ". De achtergrond is in de kaart niet meegeteld.");
  const YearlyField year(project.site);
  const std::vector<double> levels = EvenLevels(peak.concentration * kMicrogramsPerGram);
  ConcentrationMap map(flow.Paper(), {kTextLeft + 12, flow.Top() + 1}, kTextWidth - 12,
                       {{-half, -half}, {half, half}});
  const double step = RoundStep(half);
  const std::vector<double> ticks = Steps(-std::floor(half / step) * step, half, step);
  map.DrawAreas([&year](Point at) { return year.At(at.x, at.y) * kMicrogramsPerGram; }, levels,
                half / kNodesToTheEdge);
  map.DrawRings(Steps(step, half * 0.95, step));
  map.DrawFrame(ticks, ticks);
  map.DrawStack();
  for (const ReceptorResult& result : report.results.receptors) {
    const Receptor& place = result.receptor;
    if (std::abs(place.east) < half && std::abs(place.north) < half) {
      map.DrawPlace({place.east, place.north}, place.name);
    }
  }
  map.DrawNorthArrow();
  flow.Space(map.Height() + 12);
  DrawColourScale(flow.Paper(), {kTextLeft + 12, flow.Top()}, levels, kMicrogramUnit);
  flow.Space(14.5);
  flow.FigureCaption(
      "Bijdrage van de bron aan het jaargemiddelde op de grond; afstanden in m "
      "vanaf de schoorsteen");
}

void ComposePolarTable(Report& report) {
  Flow& flow = report.flow;
  constexpr double kDistances[] = {200,  300,  400,  500,  700,  1000,   1500,  2000,
                                   2500, 3000, 4000, 5000, 7000, 10'000, 15'000};
  const YearlyField year(report.project.site);
  const int decimals = DecimalsFor(report.results.yearlyPeak.concentration * kMicrogramsPerGram, 3);
  flow.NewPage(Orientation::Landscape);
  flow.Section("Poolrooster");
  flow.TableCaption(std::string("Bijdrage van de bron aan het jaargemiddelde op de grond, in ") +
                    kMicrogramUnit + ", per richting en afstand vanaf de schoorsteen");
  Table table{.columns = {{"Richting", "graden", 20}}, .rowHeight = 7.6};
  for (const double distance : kDistances) {
    table.columns.push_back({Fixed(distance, 0), "m", 13.6});
  }
  table.columns.push_back({"Hoogste", kMicrogramUnit, 17});
  for (std::size_t sector = 0; sector < kSectorCount; ++sector) {
    const double bearing = 360.0 * static_cast<double>(sector) / kSectorCount;
    const double radians = bearing * std::numbers::pi / 180;
    std::vector<std::string> row = {Fixed(bearing, 0)};
    double highest = 0;
    for (const double distance : kDistances) {
      const double mean =
          year.At(distance * std::sin(radians), distance * std::cos(radians)) * kMicrogramsPerGram;
      highest = std::max(highest, mean);
      row.push_back(Fixed(mean, decimals));
    }
    row.push_back("#" + Fixed(highest, decimals) + "#");
    table.rows.push_back(std::move(row));
  }
  DrawTable(flow, table);
  flow.Space(-2);
  flow.Paragraph(
      "De richting is die van de schoorsteen naar het punt, met de klok mee vanaf het "
      "noorden; de wind komt dan uit de tegenovergestelde richting.");
}

}  // namespace

void ComposeYearlyMeans(Report& report) {
  report.flow.Chapter("Jaargemiddelde concentraties");
  ComposeYearMap(report);
  ComposePolarTable(report);
}

}  // namespace plumeo
