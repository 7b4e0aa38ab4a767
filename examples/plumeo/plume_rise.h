// How far the hot gas rises above the stack before the wind has bent it over.
#pragma once

#include "stability.h"

namespace plumeo {

enum class RiseFormula { Briggs, Holland };

// The stack and what leaves it.
struct Stack {
  double emission = 0;        // g/s
  double height = 0;          // m
  double diameter = 0;        // m, inside, at the mouth
  double exitVelocity = 0;    // m/s
  double gasTemperature = 0;  // K
};

// The air around the stack's mouth.
struct Air {
  double temperature = 0;  // K
  double pressure = 0;     // hPa
  double windSpeed = 0;    // m/s, at the stack's mouth
  Stability stability = Stability::D;
};

// Briggs' buoyancy flux in m4/s3 and momentum flux in m4/s2.
double BuoyancyFlux(const Stack& stack, double airTemperature);
double MomentumFlux(const Stack& stack, double airTemperature);

// The distance in metres at which a buoyant plume in unstable or neutral air has risen to its full
// height: Briggs (1971).
double DistanceToFinalRise(double buoyancyFlux);

// The final rise above the mouth, in metres. Briggs: "Plume rise predictions", in Lectures on air
// pollution and environmental impact analyses, American Meteorological Society (1975). Holland:
// Turner (1970), equation 4.1, with Holland's correction for stability.
double FinalRise(RiseFormula formula, const Stack& stack, const Air& air);

// The rise at `distance` metres on the way to the final one, after Briggs' two-thirds law.
double RiseAt(RiseFormula formula, const Stack& stack, const Air& air, double distance);

// The height from which the plume rises: lower than the stack when the gas leaves slower than one
// and a half times the wind and is drawn down behind the mouth (Briggs, 1974).
double HeightAfterDownwash(const Stack& stack, double windSpeed);

}  // namespace plumeo
