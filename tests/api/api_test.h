// What the tests of the interface share: one PgPrint on a recording engine.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "pagivo/pg_print.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "support/recording_platform.h"
#include "system/decimal_separator_in_test.h"

namespace pagivo::testing {

// Readable literals of the two integer kinds.
constexpr std::int16_t Integer(int value) {
  return static_cast<std::int16_t>(value);
}
constexpr std::int32_t Long(std::int32_t value) {
  return value;
}

using Lines = std::vector<std::string>;

// Starts with a loaded preview window, an empty log and fresh shared state.
class ApiTest : public ::testing::Test {
 protected:
  ApiTest() {
    print.VsPPStart(nullptr);
    platform.Log().Clear();
  }

  ~ApiTest() override {
    print.VsPPEinde();
    State() = ModuleState{};
  }

  RecordingEngine& Engine() { return platform.Engine(); }
  ScriptedPictureLoader& Loader() { return platform.Pictures(); }

  // What the engine was asked during `call`.
  template <typename Call>
  Lines LogOf(Call&& call) {
    platform.Log().Clear();
    std::forward<Call>(call)();
    return platform.Log().Lines();
  }

  // The same without what it was only asked to tell.
  template <typename Call>
  Lines WritesOf(Call&& call) {
    Lines lines = LogOf(std::forward<Call>(call));
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("get "); });
    return lines;
  }

  // Twips per host unit.
  void UseScale(float x, float y) {
    State().ScaleX = x;
    State().ScaleY = y;
  }

  // For a call whose statements do not build on each other: lets each in turn fail, and all the
  // others must run all the same.
  template <typename Call>
  void ExpectEveryFailureToBeLostAlone(Call&& call) {
    const Lines undisturbed = LogOf(call);
    for (std::size_t i = 0; i < undisturbed.size(); ++i) {
      const auto line = undisturbed.begin() + static_cast<std::ptrdiff_t>(i);
      const auto occurrence = std::count(undisturbed.begin(), std::next(line), *line);
      Engine().FailOn(*line, static_cast<int>(occurrence));
      Lines expected = undisturbed;
      expected[i] += " (failed)";
      EXPECT_EQ(LogOf(call), expected);
      Engine().FailNothing();
    }
  }

  RecordingPlatform platform;
  PgPrint print;
};

}  // namespace pagivo::testing
