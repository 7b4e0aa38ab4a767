#include "results.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace plumeo {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

ClassResult ClassResultOf(const Site& site, Stability stability) {
  ClassResult result;
  result.stability = stability;
  result.air = AirOf(site, stability);
  result.plume = PlumeOf(site, stability);
  result.rise = FinalRise(site.riseFormula, site.stack, result.air);
  result.maximum = FindGroundMaximum(result.plume);
  return result;
}

double BearingOf(double east, double north) {
  const double degrees = std::atan2(east, north) / kDegree;
  return degrees < 0 ? degrees + 360 : degrees;
}

ReceptorResult ReceptorResultOf(const Site& site, const YearlyField& year,
                                const Receptor& receptor) {
  const double distance = std::hypot(receptor.east, receptor.north);
  return {.receptor = receptor,
          .distance = distance,
          .bearing = BearingOf(receptor.east, receptor.north),
          .yearlyMean = year.At(receptor.east, receptor.north),
          .worstHour = WorstHourAt(site, distance)};
}

// Between the middles of two sectors the mean runs linearly, so the peak lies on a middle.
YearlyPeak FindYearlyPeak(const YearlyField& year) {
  YearlyPeak peak;
  for (std::size_t sector = 0; sector < kSectorCount; ++sector) {
    const double bearing = 360.0 * static_cast<double>(sector) / kSectorCount;
    for (double distance = 50; distance <= 20'000; distance *= 1.01) {
      const double mean =
          year.At(distance * std::sin(bearing * kDegree), distance * std::cos(bearing * kDegree));
      if (mean > peak.concentration) peak = {distance, bearing, mean};
    }
  }
  return peak;
}

}  // namespace

const ClassResult& Results::Worst() const {
  return *std::max_element(classes.begin(), classes.end(),
                           [](const ClassResult& a, const ClassResult& b) {
                             return a.maximum.concentration < b.maximum.concentration;
                           });
}

Results Calculate(const Project& project) {
  Results results;
  for (const Stability stability : kStabilities) {
    results.classes[IndexOf(stability)] = ClassResultOf(project.site, stability);
  }
  const YearlyField year(project.site);
  results.yearlyPeak = FindYearlyPeak(year);
  for (const Receptor& receptor : project.receptors) {
    results.receptors.push_back(ReceptorResultOf(project.site, year, receptor));
  }
  return results;
}

double YearWithBackground(const Project& project, const ReceptorResult& result) {
  return result.yearlyMean * kMicrogramsPerGram + project.background;
}

double HourWithBackground(const Project& project, const ReceptorResult& result) {
  return result.worstHour.concentration * kMicrogramsPerGram + project.background;
}

bool IsWithinLimits(const Project& project, const ReceptorResult& result) {
  return YearWithBackground(project, result) <= project.yearlyLimit &&
         HourWithBackground(project, result) <= project.hourlyLimit;
}

}  // namespace plumeo
