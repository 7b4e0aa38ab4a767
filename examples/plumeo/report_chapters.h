// The parts of the report, in the order in which they are composed.
#pragma once

#include <string>

#include "input.h"
#include "report_flow.h"
#include "results.h"

namespace plumeo {

struct Report {
  Flow& flow;
  const Project& project;
  const Results& results;
};

// The first page; the flow stands on it.
void ComposeTitlePage(Report& report, const std::string& pictureFolder);
// The page's heading only: which chapter stands where is known at the end.
void ComposeContentsHeading(Report& report);
void ComposeSummary(Report& report);
void ComposeAssumptions(Report& report);
void ComposeModel(Report& report);
void ComposePlumeRise(Report& report);
void ComposeHourlyMeans(Report& report);
void ComposeWindClimate(Report& report);
void ComposeYearlyMeans(Report& report);
void ComposeAssessment(Report& report);
void ComposeReferences(Report& report);
void ComposeInputListing(Report& report);

// A number and its unit that stay together on a line.
std::string WithUnit(const std::string& number, const std::string& unit);
// g/m3 as a text in microgram per cubic metre, three significant digits.
std::string Micrograms(double gramsPerCubicMetre);
// "open terrein" or "stedelijk gebied".
std::string NameOf(Terrain terrain);
// "noordnoordoost" and so on, of the nearest of sixteen compass points.
std::string CompassName(double bearing);

inline constexpr const char* kMicrogramUnit = "µg/m³";

}  // namespace plumeo
