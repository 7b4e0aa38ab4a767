// Chapter: what was calculated with.
#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_table.h"

namespace plumeo {
namespace {

constexpr double kZeroCelsius = 273.15;

void ComposeSource(Report& report) {
  const Stack& stack = report.project.site.stack;
  const double air = report.project.site.airTemperature;
  Flow& flow = report.flow;
  flow.Section("Bron");
  flow.Paragraph(
      "De bron is een enkele schoorsteen met een constante emissie. De gegevens in "
      "deze tabel gelden bij vollast; de berekening gaat ervan uit dat de installatie "
      "het hele jaar op vollast werkt, wat een bovengrens van de bijdrage geeft.");
  flow.TableCaption("Gegevens van de bron");
  DrawTable(flow,
            {.columns = {{"Grootheid", "", 74, Align::Left},
                         {"Symbool", "", 24, Align::Left},
                         {"Waarde", "", 28, Align::Right},
                         {"Eenheid", "", 28, Align::Left}},
             .rows = {{"Emissie", "*Q*", Fixed(stack.emission, 2), "g/s"},
                      {"Hoogte van de mond boven maaiveld", "*h*", Fixed(stack.height, 1), "m"},
                      {"Inwendige diameter van de mond", "*d*", Fixed(stack.diameter, 2), "m"},
                      {"Uittreesnelheid", "*v*_{s}", Fixed(stack.exitVelocity, 1), "m/s"},
                      {"Temperatuur van het rookgas", "*T*_{s}",
                       Fixed(stack.gasTemperature - kZeroCelsius, 0), "°C"},
                      {"Opwaartse stuwkracht (buoyancy flux)", "*F*",
                       Fixed(BuoyancyFlux(stack, air), 1), "m^{4}/s^{3}"},
                      {"Impuls (momentum flux)", "*F*_{m}", Fixed(MomentumFlux(stack, air), 1),
                       "m^{4}/s^{2}"}}});
}

const char* WeatherOf(Stability stability) {
  switch (stability) {
    case Stability::A:
      return "zeer onstabiel: felle zon, weinig wind";
    case Stability::B:
      return "onstabiel: matige zon, weinig wind";
    case Stability::C:
      return "licht onstabiel: lichte zon of meer wind";
    case Stability::D:
      return "neutraal: bewolkt of veel wind";
    case Stability::E:
      return "licht stabiel: nacht, deels bewolkt";
    case Stability::F:
      return "stabiel: heldere nacht, weinig wind";
  }
  return "";
}

void ComposeWeather(Report& report) {
  const Project& project = report.project;
  Flow& flow = report.flow;
  flow.Section("Omgeving en weer");
  flow.Paragraph("De omgeving is gerekend als " + NameOf(project.site.terrain) +
                 ". De luchttemperatuur is " +
                 WithUnit(Fixed(project.site.airTemperature - kZeroCelsius, 0), "°C") +
                 ", de luchtdruk " + WithUnit(Fixed(project.site.airPressure, 0), "hPa") +
                 ". De achtergrondconcentratie zonder de bron bedraagt " +
                 WithUnit(Fixed(project.background, 1), kMicrogramUnit) +
                 " als jaargemiddelde. Voor elke stabiliteitsklasse staat één windsnelheid model, "
                 "die op " +
                 WithUnit("10", "m") +
                 " hoogte is opgegeven en met het windprofiel "
                 "van paragraaf 3.3 naar de mond van de schoorsteen is omgerekend.");
  flow.TableCaption("Stabiliteitsklassen en windsnelheden");
  Table table{.columns = {{"Klasse", "", 18, Align::Left},
                          {"Kenmerk", "", 66, Align::Left},
                          {"*u*_{10}", "m/s", 20},
                          {"*p*", "–", 16},
                          {"*u* bij de mond", "m/s", 34}}};
  for (const Stability stability : kStabilities) {
    table.rows.push_back({LetterOf(stability), WeatherOf(stability),
                          Fixed(project.site.windSpeed[IndexOf(stability)], 1),
                          Fixed(WindProfileExponent(project.site.terrain, stability), 2),
                          Fixed(report.results.Of(stability).air.windSpeed, 2)});
  }
  DrawTable(flow, table);
}

void ComposeReceptors(Report& report) {
  Flow& flow = report.flow;
  Table table{.columns = {{"Toetspunt", "", 62, Align::Left},
                          {"Oost", "m", 22},
                          {"Noord", "m", 22},
                          {"Afstand", "m", 22},
                          {"Richting", "graden", 26}}};
  for (const ReceptorResult& result : report.results.receptors) {
    table.rows.push_back({Escaped(result.receptor.name), Fixed(result.receptor.east, 0),
                          Fixed(result.receptor.north, 0), Fixed(result.distance, 0),
                          Fixed(result.bearing, 0)});
  }
  flow.Need(HeightOf(table) + kHeadingAndCaption);
  flow.Section("Toetspunten");
  flow.TableCaption("Ligging van de toetspunten ten opzichte van de schoorsteen");
  DrawTable(flow, table);
}

}  // namespace

void ComposeAssumptions(Report& report) {
  report.flow.Chapter("Uitgangspunten");
  ComposeSource(report);
  ComposeWeather(report);
  ComposeReceptors(report);
}

}  // namespace plumeo
