#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/native/printing/printer_choice.h"

namespace pagivo::native {
namespace {

std::string ConditionIn(PrinterState state, std::vector<std::string> reasons = {}) {
  Printer printer;
  printer.state = state;
  printer.stateReasons = std::move(reasons);
  return ConditionOf(printer);
}

TEST(PrinterCondition, APrinterThatIsReadyHasNone) {
  EXPECT_EQ(ConditionIn(PrinterState::Idle), "");
  EXPECT_EQ(ConditionIn(PrinterState::Printing), "");
}

TEST(PrinterCondition, AQueueThatRejectsJobsSaysThatAndNothingElse) {
  Printer printer;
  printer.state = PrinterState::Stopped;
  printer.acceptsJobs = false;
  EXPECT_EQ(ConditionOf(printer), "Deze printer neemt geen afdruktaken aan");
}

TEST(PrinterCondition, APausedQueueSaysThatJobsWait) {
  EXPECT_EQ(ConditionIn(PrinterState::Stopped, {"paused"}),
            "Deze printer staat stil; afdruktaken wachten");
}

TEST(PrinterCondition, AKnownReasonIsSaidInDutchHoweverBadItIs) {
  for (const char* reason : {"media-empty", "media-empty-error", "media-empty-warning"}) {
    EXPECT_EQ(ConditionIn(PrinterState::Idle, {"other-report", reason}),
              "Deze printer meldt: het papier is op");
  }
  EXPECT_EQ(ConditionIn(PrinterState::Stopped, {"offline-report"}),
            "Deze printer staat stil; afdruktaken wachten: de printer staat uit of is niet "
            "aangesloten");
}

TEST(PrinterCondition, AReasonThatNobodyCanDoAnythingAboutIsLeftOut) {
  EXPECT_EQ(ConditionIn(PrinterState::Idle, {"cups-ipp-conformance-failure-report"}), "");
}

}  // namespace
}  // namespace pagivo::native
