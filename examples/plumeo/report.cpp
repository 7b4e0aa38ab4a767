#include "report.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_flow.h"

namespace plumeo {
namespace {

constexpr int kContentsPage = 2;

void DrawContents(Flow& flow) {
  Sheet& sheet = flow.Paper();
  constexpr double kPageColumn = 9;
  double y = kTextTop + 18;
  for (const Heading& heading : flow.Headings()) {
    if (heading.isChapter) y += 2.2;
    const Style style = heading.isChapter ? kBodyBold : kBody;
    const double left = heading.isChapter ? kHang : kTextLeft;
    const double titleLeft = heading.isChapter ? kTextLeft : kTextLeft + 10;
    sheet.Text(heading.number, left, y, style);
    sheet.Text(heading.title, titleLeft, y, style);
    const double leaderFrom = titleLeft + sheet.Width(heading.title, style) + 2;
    sheet.Line({leaderFrom, y}, {kTextRight - kPageColumn, y},
               {.colour = kRuleColour, .width = 6, .style = PenStyle::Dot});
    sheet.TextRight(std::to_string(heading.page), kTextRight, y, style);
    y += heading.isChapter ? 5.6 : 5.0;
  }
}

void DrawFoot(Flow& flow, const Project& project, std::size_t page) {
  const bool landscape = flow.Orientations()[page - 1] == Orientation::Landscape;
  const double right = (landscape ? kPortraitHeight : kPortraitWidth) - kRightMargin;
  const double baseline = (landscape ? kPortraitWidth : kPortraitHeight) - 12;
  Sheet& sheet = flow.Paper();
  sheet.Line({kHang, baseline - 4.5}, {right, baseline - 4.5}, kThinRule);
  const ProjectTexts& texts = project.texts;
  sheet.Text(texts.number + "  ·  " + texts.version + "  ·  " + texts.date, kHang, baseline,
             kRunningStyle);
  const std::size_t count = flow.Orientations().size();
  sheet.TextRight("Blad " + std::to_string(page) + " van " + std::to_string(count), right, baseline,
                  kRunningStyle);
}

// What can be drawn only when the last page is known.
void DrawOverlays(pagivo::PgPrint& print, Flow& flow, const Project& project) {
  const int pages = print.VsPPGetPageCount() - 1;
  for (int page = 1; page <= pages; ++page) {
    print.VsPPStartOverlay(page);
    if (page == kContentsPage) DrawContents(flow);
    DrawFoot(flow, project, static_cast<std::size_t>(page));
    print.VsPPEndOverlay();
  }
}

}  // namespace

std::string WithUnit(const std::string& number, const std::string& unit) {
  return number + "\u00a0" + unit;
}

std::string Micrograms(double gramsPerCubicMetre) {
  return Significant(gramsPerCubicMetre * kMicrogramsPerGram, 3);
}

std::string NameOf(Terrain terrain) {
  return terrain == Terrain::Urban ? "stedelijk gebied" : "open terrein";
}

std::string CompassName(double bearing) {
  constexpr std::array<const char*, 16> kNames = {
      "noord",    "noordnoordoost", "noordoost", "oostnoordoost", "oost",     "oostzuidoost",
      "zuidoost", "zuidzuidoost",   "zuid",      "zuidzuidwest",  "zuidwest", "westzuidwest",
      "west",     "westnoordwest",  "noordwest", "noordnoordwest"};
  const auto index = static_cast<std::size_t>(std::lround(bearing / 22.5)) % kNames.size();
  return kNames[index];
}

void ComposeReport(pagivo::PgPrint& print, const Project& project, const Results& results,
                   const ReportOptions& options) {
  print.VsPPInit();
  print.VsPPStart(options.hostForm);
  print.VsPPSetScaleMode(pagivo::ScaleMode::Millimetres);
  print.VsPPSetPaperSize(pagivo::PaperSize::A4);
  print.VsPPSetOrientation(Orientation::Portrait);
  print.VsPPWatermerkInit(options.watermark);
  Flow flow(print, project.texts.name);
  Report report{flow, project, results};
  ComposeTitlePage(report, options.pictureFolder);
  ComposeContentsHeading(report);
  ComposeSummary(report);
  ComposeAssumptions(report);
  ComposeModel(report);
  ComposePlumeRise(report);
  ComposeHourlyMeans(report);
  ComposeWindClimate(report);
  ComposeYearlyMeans(report);
  ComposeAssessment(report);
  ComposeReferences(report);
  ComposeInputListing(report);
  flow.End();
  print.VsPPFinish(project.texts.name + " – verspreidingsberekening");
  DrawOverlays(print, flow, project);
}

}  // namespace plumeo
