#include "report_figures.h"

#include "dutch_numbers.h"
#include "report_chapters.h"

namespace plumeo {

std::array<KeyFigure, 3> KeyFigures(const Project& project, const Results& results) {
  const ClassResult& worst = results.Worst();
  const YearlyPeak& peak = results.yearlyPeak;
  const double total = peak.concentration * kMicrogramsPerGram + project.background;
  return {{{"Hoogste uurgemiddelde", Micrograms(worst.maximum.concentration), kMicrogramUnit,
            std::string("klasse ") + LetterOf(worst.stability) + ", op " +
                WithUnit(Fixed(worst.maximum.distance, 0), "m") + " van de schoorsteen"},
           {"Hoogste jaargemiddelde, bron", Micrograms(peak.concentration), kMicrogramUnit,
            "op " + WithUnit(Fixed(peak.distance, 0), "m") + " in de richting " +
                CompassName(peak.bearing)},
           {"Idem, met achtergrond", Significant(total, 3), kMicrogramUnit,
            WithUnit(Percent(total / project.yearlyLimit, 0), "%") + " van de toetswaarde van " +
                WithUnit(Significant(project.yearlyLimit, 2), kMicrogramUnit)}}};
}

std::string Judgement(const Project& project, const Results& results) {
  std::string exceeded;
  for (const ReceptorResult& result : results.receptors) {
    if (!IsWithinLimits(project, result)) {
      exceeded += (exceeded.empty() ? "" : ", ") + result.receptor.name;
    }
  }
  if (exceeded.empty()) return "Op alle toetspunten wordt aan beide toetswaarden voldaan.";
  return "Een toetswaarde wordt overschreden op: " + exceeded + ".";
}

}  // namespace plumeo
