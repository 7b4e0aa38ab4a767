#include "climate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "results.h"

namespace plumeo {
namespace {

Site SiteWithWindFrom(std::size_t sector) {
  Site site;
  site.stack = {
      .emission = 5, .height = 40, .diameter = 1.5, .exitVelocity = 12, .gasTemperature = 420};
  site.airTemperature = 283;
  site.airPressure = 1013;
  site.windSpeed = {2, 3, 4, 5, 3, 2};
  site.windRose.frequency[sector][IndexOf(Stability::D)] = 1;
  return site;
}

TEST(WindRose, SumsBySectorByClassAndAltogether) {
  WindRose rose;
  rose.frequency[2] = {0.1, 0.0, 0.0, 0.2, 0.0, 0.0};
  rose.frequency[7] = {0.3, 0.0, 0.0, 0.0, 0.0, 0.4};
  EXPECT_DOUBLE_EQ(rose.OfSector(2), 0.3);
  EXPECT_DOUBLE_EQ(rose.OfClass(Stability::A), 0.4);
  EXPECT_DOUBLE_EQ(rose.Total(), 1.0);
}

TEST(PlumeOf, RisesFromTheStackInTheWindAtItsMouth) {
  const Site site = SiteWithWindFrom(0);
  const Plume plume = PlumeOf(site, Stability::D);
  EXPECT_NEAR(plume.windSpeed, 5 * std::pow(4, 0.15), 1e-9);
  EXPECT_GT(plume.effectiveHeight, site.stack.height);
}

TEST(YearlyField, LiesOnTheSideToWhichTheWindBlows) {
  const Site site = SiteWithWindFrom(3);  // from the east
  EXPECT_GT(YearlyField(site).At(-1500, 0), 0);
  EXPECT_EQ(YearlyField(site).At(1500, 0), 0);
  EXPECT_EQ(YearlyField(site).At(0, 1500), 0);
}

TEST(YearlyField, OfASteadyWindIsTheSectorMean) {
  const Site site = SiteWithWindFrom(0);  // from the north
  const double mean = SectorMean(PlumeOf(site, Stability::D), 1500, std::numbers::pi / 6);
  EXPECT_NEAR(YearlyField(site).At(0, -1500), mean, 1e-12 * mean);
}

TEST(YearlyField, RunsEvenlyBetweenTheMiddlesOfSectors) {
  const Site site = SiteWithWindFrom(0);
  const double halfway = 15 * std::numbers::pi / 180;
  EXPECT_NEAR(YearlyField(site).At(1500 * std::sin(halfway), -1500 * std::cos(halfway)),
              YearlyField(site).At(0, -1500) / 2, 1e-12);
}

TEST(YearlyField, IsNothingAtTheStackItself) {
  EXPECT_EQ(YearlyField(SiteWithWindFrom(0)).At(0, 0), 0);
}

TEST(WorstHourAt, TakesTheClassWithTheHighestConcentration) {
  const Site site = SiteWithWindFrom(0);
  const WorstHour worst = WorstHourAt(site, 800);
  for (const Stability stability : kStabilities) {
    EXPECT_LE(GroundConcentration(PlumeOf(site, stability), 800), worst.concentration);
  }
  EXPECT_EQ(GroundConcentration(PlumeOf(site, worst.stability), 800), worst.concentration);
}

TEST(Calculate, PutsTheYearlyPeakDownwindOfTheOnlyWind) {
  Project project;
  project.site = SiteWithWindFrom(8);  // from 240 degrees
  const Results results = Calculate(project);
  EXPECT_DOUBLE_EQ(results.yearlyPeak.bearing, 60);
  EXPECT_GT(results.yearlyPeak.concentration, 0);
}

TEST(Calculate, GivesReceptorsTheirBearingClockwiseFromNorth) {
  Project project;
  project.site = SiteWithWindFrom(0);
  project.receptors = {{"oost", 100, 0}, {"zuidwest", -100, -100}};
  const Results results = Calculate(project);
  EXPECT_DOUBLE_EQ(results.receptors[0].bearing, 90);
  EXPECT_DOUBLE_EQ(results.receptors[1].bearing, 225);
  EXPECT_NEAR(results.receptors[1].distance, 141.42, 0.01);
}

}  // namespace
}  // namespace plumeo
