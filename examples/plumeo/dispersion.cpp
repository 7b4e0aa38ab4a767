#include "dispersion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace plumeo {
namespace {

// sigma = slope x (1 + curvature x)^power
struct SpreadCurve {
  double slope;
  double curvature;
  double power;

  double At(double distance) const {
    return slope * distance * std::pow(1 + curvature * distance, power);
  }
};

struct SpreadCurves {
  SpreadCurve lateral;
  SpreadCurve vertical;
};

using CurvesByClass = std::array<SpreadCurves, kStabilityCount>;

// Briggs (1973), open country, 100 m to 10 km.
constexpr CurvesByClass kOpenCountry = {{
    {{0.22, 0.0001, -0.5}, {0.20, 0.0, 1.0}},
    {{0.16, 0.0001, -0.5}, {0.12, 0.0, 1.0}},
    {{0.11, 0.0001, -0.5}, {0.08, 0.0002, -0.5}},
    {{0.08, 0.0001, -0.5}, {0.06, 0.0015, -0.5}},
    {{0.06, 0.0001, -0.5}, {0.03, 0.0003, -1.0}},
    {{0.04, 0.0001, -0.5}, {0.016, 0.0003, -1.0}},
}};

// Briggs (1973), urban; A and B share their curves, and so do E and F.
constexpr CurvesByClass kUrban = {{
    {{0.32, 0.0004, -0.5}, {0.24, 0.001, 0.5}},
    {{0.32, 0.0004, -0.5}, {0.24, 0.001, 0.5}},
    {{0.22, 0.0004, -0.5}, {0.20, 0.0, 1.0}},
    {{0.16, 0.0004, -0.5}, {0.14, 0.0003, -0.5}},
    {{0.11, 0.0004, -0.5}, {0.08, 0.0015, -0.5}},
    {{0.11, 0.0004, -0.5}, {0.08, 0.0015, -0.5}},
}};

constexpr std::array<double, kStabilityCount> kOpenCountryExponents = {0.07, 0.07, 0.10,
                                                                       0.15, 0.35, 0.55};
constexpr std::array<double, kStabilityCount> kUrbanExponents = {0.15, 0.15, 0.20,
                                                                 0.25, 0.30, 0.30};

double Bell(double offset, double spread) {
  const double deviations = offset / spread;
  return std::exp(-0.5 * deviations * deviations);
}

// The search runs over ln x, in which the curve of concentrations is broad and has one top.
constexpr double kSearchFrom = 20;
constexpr double kSearchTo = 100'000;
constexpr int kSearchSteps = 200;

}  // namespace

Spread SpreadAt(Terrain terrain, Stability stability, double distance) {
  const CurvesByClass& curves = terrain == Terrain::Urban ? kUrban : kOpenCountry;
  const SpreadCurves& curve = curves[IndexOf(stability)];
  return {curve.lateral.At(distance), curve.vertical.At(distance)};
}

double WindProfileExponent(Terrain terrain, Stability stability) {
  return (terrain == Terrain::Urban ? kUrbanExponents : kOpenCountryExponents)[IndexOf(stability)];
}

double WindSpeedAt(Terrain terrain, Stability stability, double speedAtTenMetres, double height) {
  if (height <= 10) return speedAtTenMetres;
  return speedAtTenMetres * std::pow(height / 10, WindProfileExponent(terrain, stability));
}

double Concentration(const Plume& plume, double x, double y, double z) {
  if (x <= 0) return 0;
  const Spread spread = SpreadAt(plume.terrain, plume.stability, x);
  const double axis =
      plume.emission / (2 * std::numbers::pi * plume.windSpeed * spread.lateral * spread.vertical);
  const double direct = Bell(z - plume.effectiveHeight, spread.vertical);
  const double reflected = Bell(z + plume.effectiveHeight, spread.vertical);
  return axis * Bell(y, spread.lateral) * (direct + reflected);
}

double GroundConcentration(const Plume& plume, double distance) {
  return Concentration(plume, distance, 0, 0);
}

double SectorMean(const Plume& plume, double distance, double sectorAngle) {
  if (distance <= 0) return 0;
  const double vertical = SpreadAt(plume.terrain, plume.stability, distance).vertical;
  const double arc = sectorAngle * distance;
  return std::sqrt(2 / std::numbers::pi) * plume.emission / (vertical * plume.windSpeed * arc) *
         Bell(plume.effectiveHeight, vertical);
}

GroundMaximum FindGroundMaximum(const Plume& plume) {
  const auto at = [&plume](double logarithm) {
    return GroundConcentration(plume, std::exp(logarithm));
  };
  const double step = std::log(kSearchTo / kSearchFrom) / kSearchSteps;
  double best = std::log(kSearchFrom);
  for (int i = 1; i <= kSearchSteps; ++i) {
    const double candidate = std::log(kSearchFrom) + i * step;
    if (at(candidate) > at(best)) best = candidate;
  }
  double low = std::max(best - step, std::log(kSearchFrom));
  double high = std::min(best + step, std::log(kSearchTo));
  while (high - low > 1e-9) {  // a ternary search around the best step
    const double third = (high - low) / 3;
    if (at(low + third) < at(high - third)) {
      low += third;
    } else {
      high -= third;
    }
  }
  const double distance = std::exp((low + high) / 2);
  return {distance, GroundConcentration(plume, distance)};
}

}  // namespace plumeo
