// Chapter: the outcomes on the receptors beside the limits.
#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_figures.h"
#include "report_table.h"

namespace plumeo {
namespace {

std::string Share(double value, double limit) {
  return WithUnit(Percent(value / limit, 0), "%");
}

void ComposeYearAssessment(Report& report) {
  Flow& flow = report.flow;
  const Project& project = report.project;
  flow.Section("Jaargemiddelde");
  flow.Paragraph("De toetswaarde voor het jaargemiddelde is " +
                 WithUnit(Significant(project.yearlyLimit, 2), kMicrogramUnit) +
                 ". De bijdrage van de bron en de achtergrond zijn opgeteld.");
  flow.TableCaption("Jaargemiddelde op de toetspunten");
  Table table{.columns = {{"Toetspunt", "", 58, Align::Left},
                          {"Bron", kMicrogramUnit, 22},
                          {"Achtergrond", kMicrogramUnit, 26},
                          {"Totaal", kMicrogramUnit, 22},
                          {"Toetswaarde", "deel ervan", 26}}};
  for (const ReceptorResult& result : report.results.receptors) {
    const double total = YearWithBackground(project, result);
    table.rows.push_back({Escaped(result.receptor.name), Micrograms(result.yearlyMean),
                          Fixed(project.background, 1), Fixed(total, 2),
                          Share(total, project.yearlyLimit)});
  }
  DrawTable(flow, table);
}

void ComposeHourAssessment(Report& report) {
  Flow& flow = report.flow;
  const Project& project = report.project;
  flow.Section("Uurgemiddelde");
  flow.Paragraph("De toetswaarde voor het uurgemiddelde is " +
                 WithUnit(Significant(project.hourlyLimit, 3), kMicrogramUnit) +
                 ". Voor elk toetspunt is de ongunstigste klasse genomen, met de wind recht van de "
                 "schoorsteen naar het punt.");
  flow.TableCaption("Hoogste uurgemiddelde op de toetspunten");
  Table table{.columns = {{"Toetspunt", "", 58, Align::Left},
                          {"Klasse", "", 20, Align::Centre},
                          {"Bron", kMicrogramUnit, 24},
                          {"Totaal", kMicrogramUnit, 26},
                          {"Toetswaarde", "deel ervan", 26}}};
  for (const ReceptorResult& result : report.results.receptors) {
    const double total = HourWithBackground(project, result);
    table.rows.push_back({Escaped(result.receptor.name), LetterOf(result.worstHour.stability),
                          Micrograms(result.worstHour.concentration), Fixed(total, 1),
                          Share(total, project.hourlyLimit)});
  }
  DrawTable(flow, table);
}

}  // namespace

void ComposeAssessment(Report& report) {
  Flow& flow = report.flow;
  flow.Chapter("Toetsing");
  ComposeYearAssessment(report);
  ComposeHourAssessment(report);
  flow.Section("Oordeel en betrouwbaarheid");
  flow.Paragraph("#" + Escaped(Judgement(report.project, report.results)) + "#");
  flow.Paragraph(
      "Het gaussische model beschrijft een gemiddelde pluim boven vlak terrein. De "
      "volgende beperkingen horen bij de uitkomsten:");
  flow.Bullet(
      "Uurgemiddelden zijn gemiddeld binnen een factor twee betrouwbaar, mits de "
      "weersgegevens kenmerkend zijn voor de plaats; jaargemiddelden zijn nauwkeuriger.");
  flow.Bullet("Voorbij " + WithUnit("10", "km") + " en binnen " + WithUnit("100", "m") +
              " liggen de spreidingsformules buiten hun meetgebied.");
  flow.Bullet("Invloed van gebouwen, reliëf, neerslag en chemische omzetting is niet berekend.");
  flow.Bullet("Windstilte en wind onder " + WithUnit("0,5", "m/s") + " vallen buiten het model.");
}

}  // namespace plumeo
