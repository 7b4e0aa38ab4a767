#include "climate.h"

#include <cmath>
#include <numbers>

namespace plumeo {
namespace {

constexpr double kSectorAngle = 2 * std::numbers::pi / kSectorCount;

}  // namespace

double WindRose::OfSector(std::size_t sector) const {
  double sum = 0;
  for (const double value : frequency[sector]) sum += value;
  return sum;
}

double WindRose::OfClass(Stability stability) const {
  double sum = 0;
  for (const auto& sector : frequency) sum += sector[IndexOf(stability)];
  return sum;
}

double WindRose::Total() const {
  double sum = 0;
  for (std::size_t sector = 0; sector < kSectorCount; ++sector) sum += OfSector(sector);
  return sum;
}

Air AirOf(const Site& site, Stability stability) {
  return {.temperature = site.airTemperature,
          .pressure = site.airPressure,
          .windSpeed = WindSpeedAt(site.terrain, stability, site.windSpeed[IndexOf(stability)],
                                   site.stack.height),
          .stability = stability};
}

Plume PlumeOf(const Site& site, Stability stability) {
  const Air air = AirOf(site, stability);
  return {.emission = site.stack.emission,
          .windSpeed = air.windSpeed,
          .effectiveHeight = HeightAfterDownwash(site.stack, air.windSpeed) +
                             FinalRise(site.riseFormula, site.stack, air),
          .stability = stability,
          .terrain = site.terrain};
}

YearlyField::YearlyField(const Site& site) : windRose_(site.windRose) {
  for (const Stability stability : kStabilities) {
    plumes_[IndexOf(stability)] = PlumeOf(site, stability);
  }
}

// At a point straight downwind of the middle of `sector`, from which the wind comes.
double YearlyField::FromSector(std::size_t sector, double distance) const {
  double mean = 0;
  for (std::size_t i = 0; i < kStabilityCount; ++i) {
    const double frequency = windRose_.frequency[sector][i];
    if (frequency > 0) mean += frequency * SectorMean(plumes_[i], distance, kSectorAngle);
  }
  return mean;
}

double YearlyField::At(double east, double north) const {
  const double distance = std::hypot(east, north);
  if (distance <= 0) return 0;
  // The wind that carries the plume to this point comes from the opposite bearing.
  const double bearingOfWind = std::atan2(-east, -north) + 2 * std::numbers::pi;
  const double position = bearingOfWind / kSectorAngle;
  const double share = position - std::floor(position);
  const auto sector = static_cast<std::size_t>(position) % kSectorCount;
  return (1 - share) * FromSector(sector, distance) +
         share * FromSector((sector + 1) % kSectorCount, distance);
}

WorstHour WorstHourAt(const Site& site, double distance) {
  WorstHour worst;
  for (const Stability stability : kStabilities) {
    const double concentration = GroundConcentration(PlumeOf(site, stability), distance);
    if (concentration > worst.concentration) worst = {stability, concentration};
  }
  return worst;
}

}  // namespace plumeo
