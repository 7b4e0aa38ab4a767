#include "engine/native/setup/engine_changes.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EngineChangesTest : public ::testing::Test {
 protected:
  EngineChanges::Step Note(std::string text) {
    return [this, text = std::move(text)] { notes.push_back(text); };
  }
  static EngineChanges::Step Fail(const char* description) {
    return [description] { throw Error(ErrorNumber::InvalidArgument, description); };
  }
  std::string FailureOfMaking() {
    try {
      changes.Make();
    } catch (const Error& error) {
      return error.what();
    }
    return {};
  }

  EngineChanges changes;
  std::vector<std::string> notes;
};

TEST_F(EngineChangesTest, AreMadeInTheOrderTheyWereAdded) {
  changes.Add(Note("a"), Note("not a"));
  changes.Add(Note("b"), Note("not b"));
  EXPECT_EQ(FailureOfMaking(), "");
  EXPECT_THAT(notes, ElementsAre("a", "b"));
}

TEST_F(EngineChangesTest, NoneMakeNothing) {
  EXPECT_EQ(FailureOfMaking(), "");
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(EngineChangesTest, OneThatFailsTakesBackThoseBeforeItTheLastOneFirst) {
  changes.Add(Note("a"), Note("not a"));
  changes.Add(Note("b"), Note("not b"));
  changes.Add(Fail("geweigerd"), Note("not c"));
  changes.Add(Note("d"), Note("not d"));
  EXPECT_EQ(FailureOfMaking(), "geweigerd");
  EXPECT_THAT(notes, ElementsAre("a", "b", "not b", "not a"));
}

TEST_F(EngineChangesTest, WhatCannotBeTakenBackStaysAndTheOthersAreTakenBack) {
  changes.Add(Note("a"), Note("not a"));
  changes.Add(Note("b"), Fail("blijft"));
  changes.Add(Fail("geweigerd"), Note("not c"));
  EXPECT_EQ(FailureOfMaking(), "geweigerd");
  EXPECT_THAT(notes, ElementsAre("a", "b", "not a"));
}

}  // namespace
}  // namespace pagivo::native
