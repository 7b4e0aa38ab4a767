// Chapter: how high the plume comes.
#include <algorithm>

#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_chart.h"
#include "report_table.h"

namespace plumeo {
namespace {

void DrawRiseTable(Report& report) {
  report.flow.TableCaption("Pluimstijging en effectieve hoogte per stabiliteitsklasse");
  Table table{.columns = {{"Klasse", "", 20, Align::Left},
                          {"*u* bij de mond", "m/s", 28},
                          {"Volle stijging bij *x*", "m", 38},
                          {"Stijging Δ*h*", "m", 32},
                          {"Hoogte *H*", "m", 36}}};
  const Site& site = report.project.site;
  const bool travels = site.riseFormula == RiseFormula::Briggs;
  const double distance = DistanceToFinalRise(BuoyancyFlux(site.stack, site.airTemperature));
  for (const ClassResult& result : report.results.classes) {
    const bool tabulated = travels && result.stability < Stability::E;
    table.rows.push_back({LetterOf(result.stability), Fixed(result.air.windSpeed, 2),
                          tabulated ? Fixed(distance, 0) : "–", Fixed(result.rise, 1),
                          Fixed(result.plume.effectiveHeight, 1)});
  }
  DrawTable(report.flow, table);
}

double AxisHeight(const Report& report, const ClassResult& result, double distance) {
  const Site& site = report.project.site;
  return HeightAfterDownwash(site.stack, result.air.windSpeed) +
         RiseAt(site.riseFormula, site.stack, result.air, distance);
}

void DrawRiseChart(Report& report) {
  Flow& flow = report.flow;
  constexpr double kHeight = 92;
  constexpr double kFarthestShown = 1000;
  flow.Need(kHeight + 26);
  double highest = 0;
  for (const ClassResult& result : report.results.classes) {
    highest = std::max(highest, AxisHeight(report, result, kFarthestShown));
  }
  const Point corner{kTextLeft + 12, flow.Top() + 7};
  Axis x = LinearAxis(kFarthestShown * 0.98, "afstand *x* (m)");
  Chart chart(flow.Paper(), corner, {kTextRight, corner.y + kHeight}, x,
              LinearAxis(highest, "hoogte van de as van de pluim (m)"));
  chart.DrawAxes();
  std::vector<LegendEntry> legend;
  for (const ClassResult& result : report.results.classes) {
    const Pen pen{.colour = kClassColours[IndexOf(result.stability)], .width = 26};
    std::vector<Point> line;
    for (double distance = 0; distance <= kFarthestShown; distance += 5) {
      line.push_back({distance, AxisHeight(report, result, distance)});
    }
    chart.DrawSeries(line, pen);
    legend.push_back({std::string("klasse ") + LetterOf(result.stability), pen});
  }
  chart.DrawLegend(legend, Chart::Corner::LowerRight);
  flow.MoveTo(corner.y + kHeight + 17);
  flow.FigureCaption(
      "Baan van de pluim: hoogte van de as boven maaiveld als functie van de "
      "afstand tot de schoorsteen");
}

}  // namespace

void ComposePlumeRise(Report& report) {
  Flow& flow = report.flow;
  flow.Chapter("Pluimstijging");
  flow.Paragraph(
      "Hoe harder het waait, hoe eerder de pluim wordt omgebogen en hoe lager zij "
      "blijft. In de stabiele klassen E en F begrenst de gelaagdheid van de lucht de "
      "stijging. De tabel geeft de volle stijging per klasse, " +
      flow.NextFigure() + " de weg daarheen.");
  DrawRiseTable(report);
  DrawRiseChart(report);
}

}  // namespace plumeo
