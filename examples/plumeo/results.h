// The outcomes of the calculation that the report is about.
#pragma once

#include <array>
#include <vector>

#include "input.h"

namespace plumeo {

inline constexpr double kMicrogramsPerGram = 1e6;

struct ClassResult {
  Stability stability = Stability::A;
  Air air;
  Plume plume;
  double rise = 0;  // m, final
  GroundMaximum maximum;
};

struct ReceptorResult {
  Receptor receptor;
  double distance = 0;    // m
  double bearing = 0;     // degrees clockwise from north, as seen from the stack
  double yearlyMean = 0;  // g/m3, from the stack alone
  WorstHour worstHour;
};

// The highest mean of the year around the stack.
struct YearlyPeak {
  double distance = 0;       // m
  double bearing = 0;        // degrees clockwise from north
  double concentration = 0;  // g/m3
};

struct Results {
  std::array<ClassResult, kStabilityCount> classes;
  YearlyPeak yearlyPeak;
  std::vector<ReceptorResult> receptors;

  const ClassResult& Of(Stability stability) const { return classes[IndexOf(stability)]; }
  // The class with the highest concentration on the ground.
  const ClassResult& Worst() const;
};

Results Calculate(const Project& project);

// On a receptor with the background, ug/m3: the year's mean and the highest mean of an hour.
double YearWithBackground(const Project& project, const ReceptorResult& result);
double HourWithBackground(const Project& project, const ReceptorResult& result);
// Neither of the two exceeds its limit.
bool IsWithinLimits(const Project& project, const ReceptorResult& result);

}  // namespace plumeo
