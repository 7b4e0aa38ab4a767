#include "dispersion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace plumeo {
namespace {

Plume PlumeIn(Terrain terrain, Stability stability) {
  return {.emission = 10,
          .windSpeed = 4,
          .effectiveHeight = 60,
          .stability = stability,
          .terrain = terrain};
}

// The published formulas evaluated by hand at 1 km, to 0.01 m.
struct PublishedSpread {
  Terrain terrain;
  Stability stability;
  double lateral;
  double vertical;
};

constexpr PublishedSpread kAtOneKilometre[] = {
    {Terrain::OpenCountry, Stability::A, 209.76, 200.00},
    {Terrain::OpenCountry, Stability::B, 152.55, 120.00},
    {Terrain::OpenCountry, Stability::C, 104.88, 73.03},
    {Terrain::OpenCountry, Stability::D, 76.28, 37.95},
    {Terrain::OpenCountry, Stability::E, 57.21, 23.08},
    {Terrain::OpenCountry, Stability::F, 38.14, 12.31},
    {Terrain::Urban, Stability::A, 270.45, 339.41},
    {Terrain::Urban, Stability::B, 270.45, 339.41},
    {Terrain::Urban, Stability::C, 185.93, 200.00},
    {Terrain::Urban, Stability::D, 135.22, 122.79},
    {Terrain::Urban, Stability::E, 92.97, 50.60},
    {Terrain::Urban, Stability::F, 92.97, 50.60},
};

TEST(SpreadAt, IsThePublishedOneAtOneKilometre) {
  for (const PublishedSpread& row : kAtOneKilometre) {
    SCOPED_TRACE(LetterOf(row.stability));
    const Spread spread = SpreadAt(row.terrain, row.stability, 1000);
    EXPECT_NEAR(spread.lateral, row.lateral, 0.01);
    EXPECT_NEAR(spread.vertical, row.vertical, 0.01);
  }
}

TEST(SpreadAt, NeverShrinksWithDistanceNorWithInstability) {
  for (const Terrain terrain : {Terrain::OpenCountry, Terrain::Urban}) {
    for (const Stability stability : kStabilities) {
      for (double distance = 100; distance < 10'000; distance *= 1.5) {
        const Spread near = SpreadAt(terrain, stability, distance);
        const Spread far = SpreadAt(terrain, stability, 1.5 * distance);
        EXPECT_GT(far.lateral, near.lateral);
        EXPECT_GT(far.vertical, near.vertical);
        if (stability == Stability::F) continue;
        const auto calmer = static_cast<Stability>(IndexOf(stability) + 1);
        EXPECT_LE(SpreadAt(terrain, calmer, distance).lateral, near.lateral);
        EXPECT_LE(SpreadAt(terrain, calmer, distance).vertical, near.vertical);
      }
    }
  }
}

TEST(WindSpeedAt, FollowsThePowerLawAboveTenMetres) {
  EXPECT_DOUBLE_EQ(WindSpeedAt(Terrain::OpenCountry, Stability::D, 5, 10), 5);
  EXPECT_NEAR(WindSpeedAt(Terrain::OpenCountry, Stability::D, 5, 100), 7.0627, 1e-4);
  EXPECT_NEAR(WindSpeedAt(Terrain::Urban, Stability::F, 2, 40), 3.0314, 1e-4);
}

TEST(WindSpeedAt, StaysTheTenMetreWindNearTheGround) {
  EXPECT_DOUBLE_EQ(WindSpeedAt(Terrain::Urban, Stability::A, 3, 2), 3);
}

TEST(Concentration, IsTheHandComputedOneOnTheAxisOnTheGround) {
  // Q / (pi u sy sz) exp(-H^2 / 2 sz^2) with sy 76.277 and sz 37.947: 10 / 36373 x 0.28650
  EXPECT_NEAR(GroundConcentration(PlumeIn(Terrain::OpenCountry, Stability::D), 1000), 7.8767e-5,
              1e-9);
}

TEST(Concentration, IsNothingUpwindAndAtTheStack) {
  const Plume plume = PlumeIn(Terrain::OpenCountry, Stability::C);
  EXPECT_EQ(Concentration(plume, -100, 0, 60), 0);
  EXPECT_EQ(Concentration(plume, 0, 0, 60), 0);
}

TEST(Concentration, IsSymmetricAcrossTheWind) {
  const Plume plume = PlumeIn(Terrain::Urban, Stability::B);
  EXPECT_DOUBLE_EQ(Concentration(plume, 800, 120, 10), Concentration(plume, 800, -120, 10));
}

TEST(Concentration, HasNoGradientThroughTheGround) {
  const Plume plume = PlumeIn(Terrain::OpenCountry, Stability::D);
  EXPECT_NEAR(Concentration(plume, 1500, 0, 0.5), Concentration(plume, 1500, 0, -0.5), 1e-15);
}

// What passes a plane across the wind each second is what the stack emits.
TEST(Concentration, ConservesMass) {
  for (const Stability stability : kStabilities) {
    for (const double distance : {300.0, 2000.0}) {
      SCOPED_TRACE(std::string(LetterOf(stability)) + " at " + std::to_string(distance));
      const Plume plume = PlumeIn(Terrain::OpenCountry, stability);
      const Spread spread = SpreadAt(plume.terrain, stability, distance);
      const double stepAcross = spread.lateral / 20;
      const double stepUp = spread.vertical / 20;
      double flux = 0;
      for (int i = -160; i <= 160; ++i) {
        for (double z = stepUp / 2; z < plume.effectiveHeight + 8 * spread.vertical; z += stepUp) {
          flux += plume.windSpeed * Concentration(plume, distance, i * stepAcross, z);
        }
      }
      EXPECT_NEAR(flux * stepAcross * stepUp, plume.emission, 1e-4 * plume.emission);
    }
  }
}

// Averaged over the crosswind line, the plume and its sector mean carry the same.
TEST(SectorMean, IsTheCrosswindIntegralSpreadOverTheArc) {
  const Plume plume = PlumeIn(Terrain::OpenCountry, Stability::D);
  const double angle = std::numbers::pi / 6;
  double integral = 0;
  for (int y = -2000; y <= 2000; ++y) integral += Concentration(plume, 1500, y, 0);
  EXPECT_NEAR(SectorMean(plume, 1500, angle), integral / (angle * 1500), 1e-10);
}

TEST(SectorMean, OfSixteenSectorsHasTheWorkbooksFactor) {
  const Plume plume = PlumeIn(Terrain::OpenCountry, Stability::D);
  const double vertical = SpreadAt(plume.terrain, plume.stability, 2000).vertical;
  const double expected = 2.03 * plume.emission / (vertical * plume.windSpeed * 2000) *
                          std::exp(-0.5 * std::pow(plume.effectiveHeight / vertical, 2));
  EXPECT_NEAR(SectorMean(plume, 2000, std::numbers::pi / 8) / expected, 1, 1e-3);
}

TEST(FindGroundMaximum, LiesWhereTheDerivativeIsZero) {
  for (const Terrain terrain : {Terrain::OpenCountry, Terrain::Urban}) {
    for (const Stability stability : kStabilities) {
      SCOPED_TRACE(LetterOf(stability));
      const Plume plume = PlumeIn(terrain, stability);
      const GroundMaximum maximum = FindGroundMaximum(plume);
      const double step = 1e-3 * maximum.distance;
      const double before = GroundConcentration(plume, maximum.distance - step);
      const double after = GroundConcentration(plume, maximum.distance + step);
      EXPECT_LT(before, maximum.concentration);
      EXPECT_LT(after, maximum.concentration);
      const double relativeSlope = (after - before) / (2e-3 * maximum.concentration);
      EXPECT_NEAR(relativeSlope, 0, 1e-3);
    }
  }
}

TEST(FindGroundMaximum, OfAPlumeFarAboveIsSoughtNoFurtherThanAHundredKilometres) {
  Plume plume = PlumeIn(Terrain::OpenCountry, Stability::F);
  plume.effectiveHeight = 1000;
  EXPECT_NEAR(FindGroundMaximum(plume).distance, 100'000, 0.1);
}

TEST(FindGroundMaximum, OfAWeakPlumeLiesWhereTheSpreadIsTheHeightOverRootTwo) {
  // In class B both spreads grow almost evenly near the stack, for which Turner gives the rule.
  Plume plume = PlumeIn(Terrain::OpenCountry, Stability::B);
  plume.effectiveHeight = 20;
  const double distance = FindGroundMaximum(plume).distance;
  const double vertical = SpreadAt(plume.terrain, plume.stability, distance).vertical;
  EXPECT_NEAR(vertical, 20 / std::numbers::sqrt2, 0.1);
}

}  // namespace
}  // namespace plumeo
