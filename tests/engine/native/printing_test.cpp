// What else happens while the engine prints. (What arrives at printers is tested on real ones.)
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

#include "engine/native/engine_test.h"
#include "engine/native/spool/memory_print_server.h"
#include "window/headless/headless_user.h"
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

}  // namespace
}  // namespace pagivo::native
