// The weather of a year and what the plume does in it.
#pragma once

#include <array>
#include <cstddef>

#include "dispersion.h"
#include "plume_rise.h"

namespace plumeo {

// Twelve sectors of 30 degrees; sector 0 is centred on north, the next on 30 degrees, clockwise.
inline constexpr std::size_t kSectorCount = 12;

// How often the wind blows from a sector in a class, as fractions of the year.
struct WindRose {
  std::array<std::array<double, kStabilityCount>, kSectorCount> frequency{};

  double OfSector(std::size_t sector) const;
  double OfClass(Stability stability) const;
  double Total() const;
};

// Everything that the calculation needs to know about the place.
struct Site {
  Stack stack;
  Terrain terrain = Terrain::OpenCountry;
  RiseFormula riseFormula = RiseFormula::Briggs;
  double airTemperature = 0;  // K
  double airPressure = 0;     // hPa
  // The wind at 10 m that stands for each class, m/s.
  std::array<double, kStabilityCount> windSpeed{};
  WindRose windRose;
};

// The air at the stack's mouth, and the plume, when the weather is of that class.
Air AirOf(const Site& site, Stability stability);
Plume PlumeOf(const Site& site, Stability stability);

// The year's mean around the stack.
class YearlyField {
 public:
  explicit YearlyField(const Site& site);

  // On the ground in g/m3 at `east` and `north` metres from the stack. The sectors' means are
  // interpolated linearly between the sectors' middles.
  double At(double east, double north) const;

 private:
  double FromSector(std::size_t sector, double distance) const;

  WindRose windRose_;
  std::array<Plume, kStabilityCount> plumes_;
};

// The highest mean over one hour in any class with the wind straight from the stack to that
// point: the worst hour, in g/m3.
struct WorstHour {
  Stability stability = Stability::A;
  double concentration = 0;
};
WorstHour WorstHourAt(const Site& site, double distance);

}  // namespace plumeo
