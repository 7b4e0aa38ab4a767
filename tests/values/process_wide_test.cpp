#include "values/process_wide.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace pagivo {
namespace {

TEST(ProcessWide, IsOneObjectOfItsTypeHoweverOftenItIsAskedFor) {
  struct Counter {
    int count = 0;
  };
  EXPECT_EQ(&ProcessWide<Counter>(), &ProcessWide<Counter>());
  ++ProcessWide<Counter>().count;
  EXPECT_EQ(ProcessWide<Counter>().count, 1);
}

TEST(ProcessWide, IsMadeAsItIsAskedForTheFirstTime) {
  struct Named {
    std::string name;
  };
  const auto ask = []() -> Named& { return ProcessWide<Named>([] { return new Named{"een"}; }); };
  EXPECT_EQ(ask().name, "een");
  ask().name = "twee";
  EXPECT_EQ(ask().name, "twee");
}

TEST(ProcessWide, IsTriedAgainWhenItCouldNotBeMade) {
  struct Late {};
  static bool canBeMade = false;
  const auto ask = [] {
    return &ProcessWide<Late>([] {
      if (!canBeMade) throw std::runtime_error("not yet");
      return new Late;
    });
  };
  EXPECT_THROW(ask(), std::runtime_error);
  canBeMade = true;
  EXPECT_NE(ask(), nullptr);
}

}  // namespace
}  // namespace pagivo
