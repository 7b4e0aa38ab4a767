// What else happens while the engine prints: its window, its series, their outcome. (What arrives
// at printers is tested on real ones.)
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "engine/native/engine_test.h"
#include "engine/native/spool/memory_print_server.h"
#include "support/user/headless_user.h"
#include "values/errors.h"
#include "window/headless/headless_windows.h"

namespace pagivo::native {
namespace {

class Printing : public ::testing::Test {
 protected:
  Printing() {
    server->printers.emplace_back().name = "Laser";
    engine->StartDoc();
    engine->PutText("Een");
    engine->NewPage();
    engine->PutText("Twee");
    engine->EndDoc();
  }

  // Prints all, with `meanwhile` once in the middle of the job.
  void Print(std::function<void()> meanwhile) {
    server->meanwhile = [&meanwhile] {
      if (const auto acts = std::exchange(meanwhile, nullptr)) acts();
    };
    engine->PrintDoc(false, 1, 2);
  }

  const MemoryJob& Job() const { return *server->jobs.at(0); }

  std::shared_ptr<HeadlessWindows> windows = std::make_shared<HeadlessWindows>();
  std::shared_ptr<MemoryPrintServer> server = std::make_shared<MemoryPrintServer>();
  std::shared_ptr<NativeEngine> engine =
      std::make_shared<NativeEngine>(EngineServices{.windows = windows, .printers = server});
};

TEST_F(Printing, NothingChangesTheDocumentMeanwhile) {
  Print([this] {
    const auto refused = [](auto statement) { ExpectError(ErrorNumber::NoDocument, statement); };
    refused([this] { engine->StartDoc(); });
    refused([this] { engine->NewPage(); });
    refused([this] { engine->EndDoc(); });
    refused([this] { engine->StartOverlay(1); });
    refused([this] { engine->EndOverlay(); });
    refused([this] { engine->PutText("Drie"); });
    refused([this] { engine->DrawLine(1, 2, 3, 4); });
    refused([this] { engine->PrintDoc(false, 1, 1); });
    EXPECT_TRUE(engine->IsComplete());
    EXPECT_EQ(engine->GetPageCount(), 2);
  });
  EXPECT_TRUE(Job().isFinished);
}

TEST_F(Printing, AfterwardsTheDocumentIsAsItWas) {
  engine->StartOverlay(2);
  Print([] {});
  engine->PutText("Over");
  engine->EndOverlay();
  engine->StartDoc();
  EXPECT_EQ(engine->GetPageCount(), 1);
}

TEST_F(Printing, AFailureLeavesTheDocumentAsItWas) {
  ExpectError(ErrorNumber::PrinterFailure, [this] { Print([this] { server->failingJob = 1; }); });
  EXPECT_TRUE(Job().isCancelled);
  engine->StartOverlay(1);
  engine->EndOverlay();
}

TEST_F(Printing, AJobGoesOnWhenItsEngineIsGivenUp) {
  NativeEngine& printing = *engine;
  server->meanwhile = [this] { engine.reset(); };
  printing.PrintDoc(false, 1, 2);
  EXPECT_TRUE(Job().isFinished);
}

TEST_F(Printing, TheWindowsButtonTakesTheJobBack) {
  windows->AddScript([](Form& form) { HeadlessUser(form).Click("cancel"); });
  ExpectError(ErrorNumber::PrinterFailure, [this] {
    Print([] { std::this_thread::sleep_for(std::chrono::milliseconds(510)); });
  });
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
  EXPECT_FALSE(Job().isFinished);
  EXPECT_TRUE(Job().isCancelled);
}

// A command for several copies.
class Series : public Printing {
 protected:
  static constexpr std::int32_t kCopies = 3;

  // With `acts` in the user's place, once the window is there.
  PrintCommandOutcome PrintSeries(std::function<void(Form& form)> acts = nullptr) {
    if (acts) {
      windows->AddScript(std::move(acts));
      server->meanwhile = [this] {
        if (server->jobs.size() == 2) std::this_thread::sleep_for(std::chrono::milliseconds(510));
      };
    }
    engine->BeginSeries(kCopies);
    for (std::int32_t copy = 1; copy <= kCopies; ++copy) {
      IgnoringErrors([this] { engine->PrintDoc(false, 1, 2); });
    }
    return engine->EndSeries();
  }

  std::vector<bool> CancelledJobs() const {
    std::vector<bool> cancelled;
    for (const auto& job : server->jobs) cancelled.push_back(job->isCancelled);
    return cancelled;
  }
};

TEST_F(Series, SendsAJobForEachCopy) {
  const PrintCommandOutcome outcome = PrintSeries();
  EXPECT_EQ(CancelledJobs(), std::vector<bool>(kCopies, false));
  EXPECT_EQ(outcome.result, kPrinted);
  EXPECT_EQ(outcome.description, "");
  EXPECT_EQ(outcome.printer, "Laser");
  EXPECT_EQ(outcome.copies, kCopies);
  EXPECT_EQ(outcome.printedCopies, kCopies);
}

// Half a second after the command began, whatever its jobs take.
TEST_F(Series, HasOneWindowThatCountsItsCopies) {
  std::vector<std::string> counts;
  std::vector<const Form*> forms;
  const auto look = [&](Form& form) {
    forms.push_back(&form);
    counts.push_back(form.Get("count").Caption());
  };
  for (int page = 0; page < 2 * kCopies; ++page) windows->AddScript(look);
  server->meanwhile = [] { std::this_thread::sleep_for(std::chrono::milliseconds(260)); };
  PrintSeries();
  EXPECT_EQ(counts, (std::vector<std::string>{"exemplaar 2 van 3, blad 1 van 2",
                                              "exemplaar 3 van 3, blad 1 van 2"}));
  EXPECT_EQ(std::set(forms.begin(), forms.end()).size(), 1U);
}

TEST_F(Series, TheWindowsButtonTakesBackEveryCopyAndSendsNoOther) {
  const PrintCommandOutcome outcome =
      PrintSeries([](Form& form) { HeadlessUser(form).Click("cancel"); });
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
  EXPECT_EQ(CancelledJobs(), (std::vector<bool>{true, true}));
  EXPECT_EQ(outcome.result, kPrintingCancelled);
  EXPECT_EQ(outcome.description, "Het afdrukken is geannuleerd");
  EXPECT_EQ(outcome.printedCopies, 0);
}

TEST_F(Series, AFailureLeavesTheCopiesBeforeItAndSendsNoOther) {
  server->failingJob = 2;
  std::string told;
  windows->AddScript([&](Form& form) { told = form.Get("message").Caption(); });
  const PrintCommandOutcome outcome = PrintSeries();
  EXPECT_EQ(CancelledJobs(), (std::vector<bool>{false, true}));
  EXPECT_EQ(outcome.result, kPrintingFailed);
  EXPECT_EQ(outcome.description,
            "De verbinding met de afdrukserver is verbroken; de afdruktaak voor de printer "
            "\"Laser\" is geannuleerd");
  EXPECT_EQ(outcome.printedCopies, 1);
  EXPECT_EQ(told, outcome.description +
                      ".\nWel afgedrukt: 1 van de 3 exemplaren.\n"
                      "Druk het document opnieuw af zodra de afdrukserver weer bereikbaar is.");
}

TEST_F(Series, WhatCannotBePrintedAtAllIsToldToo) {
  std::string told;
  windows->AddScript([&](Form& form) { told = form.Get("message").Caption(); });
  engine->StartDoc();
  EXPECT_EQ(PrintSeries().result, kPrintingFailed);
  EXPECT_EQ(told, "Er is geen afgesloten document.");
}

TEST_F(Series, IsRefusedWithinAnother) {
  engine->BeginSeries(1);
  ExpectError(ErrorNumber::NoDocument, [this] { engine->BeginSeries(1); });
  EXPECT_EQ(engine->EndSeries().result, kNothingPrinted);
  engine->BeginSeries(1);
}

TEST_F(Printing, TheChoiceOfAQueueThatRejectsJobsSaysSo) {
  server->printers.back().acceptsJobs = false;
  std::string message;
  windows->AddScript([&](Form& form) { message = form.Get("message").Caption(); });
  engine->GetPrintDialog(kPrinterSetupDialog);
  EXPECT_EQ(message, "Deze printer neemt geen afdruktaken aan");
}

TEST_F(Printing, AFailureOfAPrintDocAloneIsToldOnce) {
  int told = 0;
  for (int showing = 0; showing < 2; ++showing) windows->AddScript([&](Form&) { ++told; });
  server->isAway = true;
  ExpectError(ErrorNumber::PrinterFailure, [this] { engine->PrintDoc(false, 1, 2); });
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace pagivo::native
