#include "engine/native/settings/checked_values.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace pagivo::native {
namespace {

std::int32_t SystemColor(std::uint32_t index) {
  return static_cast<std::int32_t>(0x80000000 | index);
}

TEST(ResolveColor, OrdinaryColoursStandForThemselves) {
  for (const std::int32_t color : {0, 0xFF, 0xFF00, 0xFF0000, 0x123456, 0xFFFFFF}) {
    EXPECT_EQ(ResolveColor(color), static_cast<Color>(color));
  }
}

TEST(ResolveColor, KnowsTheSystemsColours) {
  EXPECT_EQ(ResolveColor(SystemColor(5)), 0xFFFFFFU) << "window";
  EXPECT_EQ(ResolveColor(SystemColor(8)), 0x000000U) << "window text";
  EXPECT_EQ(ResolveColor(SystemColor(13)), 0xD77800U) << "highlight, blue first";
  EXPECT_EQ(ResolveColor(SystemColor(15)), 0xF0F0F0U) << "button face";
  for (std::uint32_t index = 0; index <= 30; ++index) {
    EXPECT_EQ(ResolveColor(SystemColor(index)).has_value(), index != 25) << index;
  }
}

TEST(ResolveColor, RefusesEverythingElse) {
  for (const std::int32_t value :
       {SystemColor(31), SystemColor(255), SystemColor(0x10005), 0x1000000, 0x2000000, 0x7FFFFFFF,
        -1, static_cast<std::int32_t>(0x81000005)}) {
    EXPECT_EQ(ResolveColor(value), std::nullopt) << std::hex << value;
  }
}

}  // namespace
}  // namespace pagivo::native
