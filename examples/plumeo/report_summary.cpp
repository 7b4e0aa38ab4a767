// Chapter: the outcome on one page.
#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_figures.h"

namespace plumeo {
namespace {

void DrawKeyFigure(Sheet& sheet, const KeyFigure& figure, double left, double top, double width) {
  constexpr double kHeight = 31;
  sheet.FillBox({left, top}, {left + width, top + kHeight}, kZebra);
  sheet.FillBox({left, top}, {left + 1.1, top + kHeight}, kAccent);
  const double x = left + 4.5;
  sheet.Text(figure.title, x, top + 6, kSmallMuted);
  const Style large{.size = 19, .bold = true, .colour = kAccent};
  sheet.Text(figure.value, x, top + 16, large);
  sheet.Text(figure.unit, x + sheet.Width(figure.value, large) + 1.6, top + 16, kSmall);
  double baseline = top + 22.2;
  for (const RichText& line :
       BreakLines(sheet, ParseMarkup(figure.remark), kSmallMuted, width - 6)) {
    RichLine(sheet, line, kSmallMuted).Draw(sheet, x, baseline);
    baseline += 3.8;
  }
}

void DrawKeyFigures(Report& report) {
  constexpr double kGap = 4;
  constexpr double kWidth = (kTextWidth - 2 * kGap) / 3;
  Flow& flow = report.flow;
  double left = kTextLeft;
  for (const KeyFigure& figure : KeyFigures(report.project, report.results)) {
    DrawKeyFigure(flow.Paper(), figure, left, flow.Top(), kWidth);
    left += kWidth + kGap;
  }
  flow.Space(31 + 9);
}

std::string Verdict(double value, double limit) {
  return value <= limit ? "wordt voldaan aan" : "wordt #niet# voldaan aan";
}

}  // namespace

void ComposeSummary(Report& report) {
  Flow& flow = report.flow;
  const Project& project = report.project;
  const Results& results = report.results;
  const ClassResult& worst = results.Worst();
  const double total = results.yearlyPeak.concentration * kMicrogramsPerGram + project.background;
  flow.Chapter("Samenvatting");
  flow.Paragraph("Voor " + Escaped(project.texts.client) + " is de verspreiding berekend van " +
                 Escaped(project.texts.substance) + " uit de schoorsteen van " +
                 Escaped(project.texts.name) + " te " + Escaped(project.texts.place) +
                 ". De berekening is uitgevoerd met het gaussische pluimmodel voor een continue "
                 "puntbron, voor alle zes stabiliteitsklassen van Pasquill en voor een volledig "
                 "jaar volgens de windroos van de locatie.");
  flow.Space(1);
  DrawKeyFigures(report);
  flow.Section("Conclusie");
  flow.Bullet("De schoorsteen is " + WithUnit(Fixed(project.site.stack.height, 0), "m") +
              " hoog. In klasse " + LetterOf(project.designClass) +
              ", de ontwerpklasse, stijgt de pluim daar door warmte en uittreesnelheid nog " +
              WithUnit(Fixed(results.Of(project.designClass).rise, 0), "m") + " bovenuit.");
  flow.Bullet("Het hoogste uurgemiddelde op leefniveau is " +
              WithUnit(Micrograms(worst.maximum.concentration), kMicrogramUnit) + ". Daarmee " +
              Verdict(worst.maximum.concentration * kMicrogramsPerGram + project.background,
                      project.hourlyLimit) +
              " de toetswaarde voor een uur van " +
              WithUnit(Significant(project.hourlyLimit, 3), kMicrogramUnit) +
              ", ook na optelling van de achtergrond.");
  flow.Bullet("Met de achtergrond van " + WithUnit(Fixed(project.background, 1), kMicrogramUnit) +
              " is het jaargemiddelde op de meest belaste plaats " +
              WithUnit(Significant(total, 3), kMicrogramUnit) + ". Daarmee " +
              Verdict(total, project.yearlyLimit) + " de toetswaarde voor een jaar van " +
              WithUnit(Significant(project.yearlyLimit, 2), kMicrogramUnit) + ".");
  flow.Bullet("De hoogste bijdragen liggen in de richting " +
              CompassName(results.yearlyPeak.bearing) +
              " van de schoorsteen, tegenover de overheersende windrichting.");
  flow.Space(5);
  flow.Section("Leeswijzer");
  flow.Paragraph(
      "Hoofdstuk 2 geeft de uitgangspunten: de bron, de omgeving en de toetspunten. "
      "Hoofdstuk 3 beschrijft het rekenmodel met zijn formules. De hoofdstukken 4 en 5 "
      "behandelen de pluimstijging en de uurgemiddelden, de hoofdstukken 6 en 7 het "
      "windklimaat en de jaargemiddelden. In hoofdstuk 8 worden de uitkomsten op de "
      "toetspunten vergeleken met de toetswaarden. Achterin staan de literatuur en het "
      "invoerbestand van deze berekening.");
}

}  // namespace plumeo
