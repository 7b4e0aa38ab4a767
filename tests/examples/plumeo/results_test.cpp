#include "results.h"

#include <gtest/gtest.h>

namespace plumeo {
namespace {

// 5 ug/m3 from the background; from the stack 10 over the year and 100 in the worst hour.
class Receptors : public testing::Test {
 protected:
  Receptors() {
    project.background = 5;
    project.yearlyLimit = 15;
    project.hourlyLimit = 105;
    result.yearlyMean = 10e-6;
    result.worstHour.concentration = 100e-6;
  }

  Project project;
  ReceptorResult result;
};

TEST_F(Receptors, AreExposedToStackAndBackgroundTogether) {
  EXPECT_DOUBLE_EQ(YearWithBackground(project, result), 15);
  EXPECT_DOUBLE_EQ(HourWithBackground(project, result), 105);
}

TEST_F(Receptors, AreWithinLimitsThatTheyJustReach) {
  project.yearlyLimit = YearWithBackground(project, result);
  project.hourlyLimit = HourWithBackground(project, result);
  EXPECT_TRUE(IsWithinLimits(project, result));
}

TEST_F(Receptors, AreNotWithinLimitsWhenEitherOneIsExceeded) {
  project.hourlyLimit = 105.1;
  project.yearlyLimit = 14.9;
  EXPECT_FALSE(IsWithinLimits(project, result));
  project.yearlyLimit = 15.1;
  project.hourlyLimit = 104.9;
  EXPECT_FALSE(IsWithinLimits(project, result));
}

}  // namespace
}  // namespace plumeo
