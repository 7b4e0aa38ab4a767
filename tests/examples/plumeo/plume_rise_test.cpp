#include "plume_rise.h"

#include <gtest/gtest.h>

namespace plumeo {
namespace {

// F = 9.80665 x 15 x 4 x 130 / (4 x 420) = 45.5309
constexpr Stack kSmall{
    .emission = 1, .height = 50, .diameter = 2, .exitVelocity = 15, .gasTemperature = 420};
// F = 9.80665 x 20 x 25 x 130 / (4 x 420) = 379.424
constexpr Stack kLarge{
    .emission = 1, .height = 150, .diameter = 5, .exitVelocity = 20, .gasTemperature = 420};

Air AirWith(Stability stability) {
  return {.temperature = 290, .pressure = 1013, .windSpeed = 5, .stability = stability};
}

TEST(BuoyancyFlux, IsTheHandComputedOne) {
  EXPECT_NEAR(BuoyancyFlux(kSmall, 290), 45.5309, 1e-3);
  EXPECT_NEAR(BuoyancyFlux(kLarge, 290), 379.424, 1e-2);
}

TEST(BuoyancyFlux, IsNothingForGasAsColdAsTheAir) {
  EXPECT_EQ(BuoyancyFlux(kSmall, 420), 0);
}

TEST(MomentumFlux, IsTheHandComputedOne) {
  EXPECT_NEAR(MomentumFlux(kSmall, 290), 155.357, 1e-3);
}

TEST(DistanceToFinalRise, ChangesItsFormulaAtFiftyFive) {
  EXPECT_NEAR(DistanceToFinalRise(45.5309), 532.89, 0.01);
  EXPECT_NEAR(DistanceToFinalRise(379.424), 1279.96, 0.01);
}

struct BriggsRow {
  const Stack& stack;
  Stability stability;
  double rise;
};

TEST(FinalRise, IsBriggsPublishedOne) {
  const BriggsRow rows[] = {
      {kSmall, Stability::D, 75.107},   // 21.425 F^(3/4) / u
      {kLarge, Stability::D, 273.104},  // 38.71 F^(3/5) / u
      {kSmall, Stability::E, 61.854},   // 2.6 (F / u s)^(1/3), s = 6.7632e-4
      {kSmall, Stability::F, 51.328},   // s = 1.18356e-3
  };
  for (const BriggsRow& row : rows) {
    SCOPED_TRACE(LetterOf(row.stability));
    EXPECT_NEAR(FinalRise(RiseFormula::Briggs, row.stack, AirWith(row.stability)), row.rise, 0.001);
  }
}

TEST(FinalRise, OfColdGasIsThatOfItsMomentum) {
  Stack cold = kSmall;
  cold.gasTemperature = 291;
  EXPECT_DOUBLE_EQ(FinalRise(RiseFormula::Briggs, cold, AirWith(Stability::D)), 18);
  EXPECT_LE(FinalRise(RiseFormula::Briggs, cold, AirWith(Stability::F)), 18);
}

TEST(FinalRise, IsHollandsWithItsCorrectionForStability) {
  // 15 x 2 / 5 x (1.5 + 2.68e-3 x 1013 x 130 / 420 x 2) = 19.083
  EXPECT_NEAR(FinalRise(RiseFormula::Holland, kSmall, AirWith(Stability::D)), 19.083, 1e-2);
  EXPECT_NEAR(FinalRise(RiseFormula::Holland, kSmall, AirWith(Stability::A)), 21.946, 1e-2);
  EXPECT_NEAR(FinalRise(RiseFormula::Holland, kSmall, AirWith(Stability::F)), 16.221, 1e-2);
}

TEST(RiseAt, GrowsWithTwoThirdsOfDistanceAndEndsAtTheFinalRise) {
  const Air air = AirWith(Stability::D);
  const auto at = [&air](double x) { return RiseAt(RiseFormula::Briggs, kSmall, air, x); };
  EXPECT_EQ(at(0), 0);
  EXPECT_NEAR(at(200) / at(100), 1.5874, 1e-3);
  EXPECT_DOUBLE_EQ(at(5000), FinalRise(RiseFormula::Briggs, kSmall, air));
  EXPECT_NEAR(at(532.89), at(5000), 0.01 * at(5000));
}

TEST(HeightAfterDownwash, IsTheStacksForAFastJet) {
  EXPECT_EQ(HeightAfterDownwash(kSmall, 10), 50);
}

TEST(HeightAfterDownwash, SinksBehindTheMouthOfASlowOne) {
  // 50 + 2 x 2 x (15 / 20 - 1.5)
  EXPECT_DOUBLE_EQ(HeightAfterDownwash(kSmall, 20), 47);
}

}  // namespace
}  // namespace plumeo
