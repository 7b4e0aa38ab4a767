#include "plume_rise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace plumeo {
namespace {

constexpr double kGravity = 9.80665;  // m/s2
// Above this flux (m4/s3) Briggs' curves for large plumes hold.
constexpr double kLargePlume = 55;

bool IsStable(Stability stability) {
  return stability >= Stability::E;
}

// s = (g / Ta) d(theta)/dz in 1/s2, with the potential temperature gradients of the regulatory
// models: 0.020 K/m in class E, 0.035 K/m in class F.
double StabilityParameter(const Air& air) {
  const double gradient = air.stability == Stability::E ? 0.020 : 0.035;
  return kGravity * gradient / air.temperature;
}

// The excess temperature in K above which buoyancy, not momentum, lifts the plume.
double CrossoverExcess(const Stack& stack, const Air& air) {
  if (IsStable(air.stability)) {
    return 0.019582 * stack.gasTemperature * stack.exitVelocity *
           std::sqrt(StabilityParameter(air));
  }
  if (BuoyancyFlux(stack, air.temperature) < kLargePlume) {
    return 0.0297 * stack.gasTemperature * std::cbrt(stack.exitVelocity) /
           std::pow(stack.diameter, 2.0 / 3);
  }
  return 0.00575 * stack.gasTemperature * std::pow(stack.exitVelocity, 2.0 / 3) /
         std::cbrt(stack.diameter);
}

bool IsBuoyant(const Stack& stack, const Air& air) {
  return stack.gasTemperature - air.temperature >= CrossoverExcess(stack, air);
}

double MomentumRise(const Stack& stack, const Air& air) {
  const double neutral = 3 * stack.diameter * stack.exitVelocity / air.windSpeed;
  if (!IsStable(air.stability)) return neutral;
  const double stable = 1.5 * std::cbrt(MomentumFlux(stack, air.temperature) /
                                        (air.windSpeed * std::sqrt(StabilityParameter(air))));
  return std::min(neutral, stable);
}

double BuoyantRise(const Stack& stack, const Air& air) {
  const double flux = BuoyancyFlux(stack, air.temperature);
  if (IsStable(air.stability)) {
    return 2.6 * std::cbrt(flux / (air.windSpeed * StabilityParameter(air)));
  }
  if (flux < kLargePlume) return 21.425 * std::pow(flux, 0.75) / air.windSpeed;
  return 38.71 * std::pow(flux, 0.6) / air.windSpeed;
}

// Holland's rise is 10 to 20 % more in unstable and as much less in stable air; the middle of
// these ranges is taken.
double HollandRise(const Stack& stack, const Air& air) {
  constexpr std::array<double, kStabilityCount> kCorrections = {1.15, 1.15, 1.15, 1.0, 0.85, 0.85};
  const double excess = (stack.gasTemperature - air.temperature) / stack.gasTemperature;
  const double rise = stack.exitVelocity * stack.diameter / air.windSpeed *
                      (1.5 + 2.68e-3 * air.pressure * excess * stack.diameter);
  return kCorrections[IndexOf(air.stability)] * rise;
}

}  // namespace

double BuoyancyFlux(const Stack& stack, double airTemperature) {
  const double excess = std::max(0.0, stack.gasTemperature - airTemperature);
  return kGravity * stack.exitVelocity * stack.diameter * stack.diameter * excess /
         (4 * stack.gasTemperature);
}

double MomentumFlux(const Stack& stack, double airTemperature) {
  const double speedTimesWidth = stack.exitVelocity * stack.diameter;
  return speedTimesWidth * speedTimesWidth * airTemperature / (4 * stack.gasTemperature);
}

double DistanceToFinalRise(double buoyancyFlux) {
  return buoyancyFlux < kLargePlume ? 49 * std::pow(buoyancyFlux, 0.625)
                                    : 119 * std::pow(buoyancyFlux, 0.4);
}

double FinalRise(RiseFormula formula, const Stack& stack, const Air& air) {
  if (formula == RiseFormula::Holland) return std::max(0.0, HollandRise(stack, air));
  return IsBuoyant(stack, air) ? BuoyantRise(stack, air) : MomentumRise(stack, air);
}

double RiseAt(RiseFormula formula, const Stack& stack, const Air& air, double distance) {
  const double finalRise = FinalRise(formula, stack, air);
  if (!IsBuoyant(stack, air)) return finalRise;
  const double flux = BuoyancyFlux(stack, air.temperature);
  const double rising = 1.60 * std::cbrt(flux) * std::pow(distance, 2.0 / 3) / air.windSpeed;
  return std::min(finalRise, rising);
}

double HeightAfterDownwash(const Stack& stack, double windSpeed) {
  const double ratio = stack.exitVelocity / windSpeed;
  if (ratio >= 1.5) return stack.height;
  return std::max(0.0, stack.height + 2 * stack.diameter * (ratio - 1.5));
}

}  // namespace plumeo
