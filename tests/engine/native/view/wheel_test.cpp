#include "engine/native/view/wheel.h"

#include <gtest/gtest.h>

namespace pagivo::native {
namespace {

TEST(WheelNotches, WholeOnesCountAtOnce) {
  WheelNotches wheel;
  EXPECT_EQ(wheel.Turn(1), 1);
  EXPECT_EQ(wheel.Turn(-3), -3);
}

TEST(WheelNotches, FractionsAddUp) {
  for (const double direction : {1.0, -1.0}) {
    WheelNotches wheel;
    int whole = 0;
    for (int i = 0; i < 30; ++i) whole += wheel.Turn(0.1 * direction);
    EXPECT_EQ(whole, static_cast<int>(3 * direction));
  }
}

TEST(WheelNotches, TurningBackDiscardsWhatIsNotComplete) {
  WheelNotches wheel;
  EXPECT_EQ(wheel.Turn(0.9), 0);
  EXPECT_EQ(wheel.Turn(-0.2), 0);
  EXPECT_EQ(wheel.Turn(-0.8), -1);
}

TEST(WheelNotches, AResetDiscardsToo) {
  WheelNotches wheel;
  wheel.Turn(0.9);
  wheel.Reset();
  EXPECT_EQ(wheel.Turn(0.2), 0);
}

TEST(WheelNotches, AbsurdTurnsAreLimited) {
  WheelNotches wheel;
  EXPECT_EQ(wheel.Turn(1e300), 100);
}

}  // namespace
}  // namespace pagivo::native
