// The Gaussian plume: its spread with distance and the concentration anywhere in it.
//
// SI units throughout: metres, seconds, grams; x runs downwind from the stack, y crosswind, z up
// from the ground.
#pragma once

#include "stability.h"

namespace plumeo {

// The standard deviations of the concentration across the plume, in metres.
struct Spread {
  double lateral = 0;   // sigma y
  double vertical = 0;  // sigma z
};

// The spread at `distance` metres (above 0) downwind, after Briggs (1973), as tabled in
// Gifford, "Turbulent diffusion-typing schemes: a review", Nuclear Safety 17 (1976).
Spread SpreadAt(Terrain terrain, Stability stability, double distance);

// The exponent p of the wind profile u(z) = u10 (z / 10)^p, after Irwin (1979) as the regulatory
// models tabulate it.
double WindProfileExponent(Terrain terrain, Stability stability);

// The wind speed at `height` metres given the one at 10 m, both in m/s. Below 10 m the wind is
// taken as that at 10 m.
double WindSpeedAt(Terrain terrain, Stability stability, double speedAtTenMetres, double height);

// A plume in one weather condition.
struct Plume {
  double emission = 0;         // g/s
  double windSpeed = 0;        // m/s, at the stack's mouth
  double effectiveHeight = 0;  // m, of the plume's axis
  Stability stability = Stability::D;
  Terrain terrain = Terrain::OpenCountry;
};

// The concentration in g/m3 with total reflection at the ground: Pasquill (1961), Gifford (1961),
// in the form of Turner, "Workbook of atmospheric dispersion estimates" (1970), equation 3.1.
// Nothing upwind of the stack.
double Concentration(const Plume& plume, double x, double y, double z);

// The same on the ground under the axis.
double GroundConcentration(const Plume& plume, double distance);

// The mean over a sector of the wind rose that is `sectorAngle` radians wide, on the ground, while
// the wind blows along that sector: Turner (1970), equation 5.12 for sixteen sectors.
double SectorMean(const Plume& plume, double distance, double sectorAngle);

struct GroundMaximum {
  double distance = 0;       // m
  double concentration = 0;  // g/m3
};

// The highest concentration on the ground under the axis, between 20 m and 100 km.
GroundMaximum FindGroundMaximum(const Plume& plume);

}  // namespace plumeo
