// What goes wrong between the host and the printer.
#include <chrono>
#include <cstdint>
#include <thread>

#include "engine/native/spool/cups/printing_test.h"
#include "support/printing/loopback.h"
#include "support/user/headless_user.h"

namespace pagivo {
namespace {

using native::PrintProgress;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kColor = TestPrintServer::kColorPrinter;
constexpr const char* kNoServer = "De afdrukserver is niet bereikbaar";
constexpr const char* kCancelled = "Het afdrukken is geannuleerd";

class FailuresTest : public PrintingTest {
 protected:
  // All pages, watched.
  std::string FailureOfPrinting(const native::PrintWatcher& watcher) {
    return PrinterFailureOf([&] {
      native::PrintPages(*printers, Engine().GetDocument(),
                         {.printer = kColor, .copies = 1, .firstPage = 1, .lastPage = kPages},
                         watcher);
    });
  }

  std::string FailureOfPrinting() {
    return PrinterFailureOf([this] { Engine().PrintDoc(false, 1, kPages); });
  }

  void ExpectNothingPrinted() {
    EXPECT_THAT(Received(Server().Color()), IsEmpty());
    EXPECT_THAT(Received(Server().Drawing()), IsEmpty());
  }

  // A document that failed is whole, and comes out after all.
  void ExpectAllPagesPrint() {
    UsePrintServer(Server().Address());
    print.VsPPSetDevice(kColor);
    print.VsPrintFile(1);
    const auto jobs = Received(Server().Color());
    ASSERT_THAT(jobs, SizeIs(1));
    EXPECT_THAT(TextsOf(jobs[0]), SizeIs(kPages));
  }

  // About 1 MB of PDF, more than fits into the buffers between two programs.
  void ComposeMuch() {
    std::uint32_t noise = 1;
    for (int page = 1; page <= kPages; ++page) {
      for (int line = 1; line <= 80; ++line) {
        std::string text;
        for (int letter = 0; letter < 100; ++letter) {
          noise = noise * 1664525 + 1013904223;
          text.push_back(static_cast<char>('a' + (noise >> 24) % 26));
        }
        print.VsPPPrint(text, 500.0, 180.0 * line);
      }
      print.VsPPNewPage();
    }
    print.VsPPFinish("Rapport");
  }

  static constexpr std::int16_t kPages = 100;
};

TEST_F(FailuresTest, AServerThatDoesNotRunHasNoPrintersAndPrintsNothing) {
  Compose(kPages);
  Server().Stop();
  EXPECT_EQ(FailureOfPrinting(), kNoServer);
  EXPECT_EQ(print.VsPPGetNDevices(), 0);
  EXPECT_EQ(print.VsPPGetDevice(), "");
  EXPECT_EQ(Engine().GetPort(), "");
  print.VsPrintFile(2);
  Server().Start();
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

TEST_F(FailuresTest, AServerThatStopsAfterItsPrintersWereListed) {
  Compose(kPages);
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  print.VsPPSetDevice(kColor);
  Server().Stop();
  EXPECT_EQ(FailureOfPrinting(), kNoServer);
  Server().Start();
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

TEST_F(FailuresTest, APrinterThatIsRemovedBetweenListingAndPrinting) {
  Compose(kPages);
  Server().AddQueue("Balie", Server().Color());
  EXPECT_EQ(print.VsPPGetNDevices(), 3);
  print.VsPPSetDevice("Balie");
  Engine().GetPaperSizes(9);
  Server().RemoveQueue("Balie");
  EXPECT_EQ(FailureOfPrinting(), "De printer \"Balie\" bestaat niet");
  EXPECT_EQ(print.VsPPGetDevice(), "Balie");
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

TEST_F(FailuresTest, AQueueThatRejectsJobs) {
  Compose(kPages);
  Server().Reject(kColor);
  EXPECT_EQ(FailureOfPrinting(), "De printer \"Kleur-A4\" neemt geen afdruktaken aan");
  print.VsPrintFile(1);
  Server().Accept(kColor);
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

// After it was chosen, for whoever may not use it does not see it. Root may always, and may be
// running this.
TEST_F(FailuresTest, AQueueThatIsClosedToTheUser) {
  Compose(kPages);
  print.VsPPSetDevice(kColor);
  Server().Deny(kColor, "piet");
  cupsSetUser("piet");
  EXPECT_EQ(FailureOfPrinting(), "De printer \"Kleur-A4\" neemt geen afdruktaken aan");
  cupsSetUser(nullptr);
  Server().AllowEverybody(kColor);
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

TEST_F(FailuresTest, AConnectionThatBreaksInTheMiddleOfAJob) {
  ComposeMuch();
  const FaultyRelay relay(Server().Port(), 300'000, RelayFault::Cut);
  UsePrintServer("127.0.0.1:" + std::to_string(relay.Port()));
  EXPECT_EQ(FailureOfPrinting(),
            "De verbinding met de afdrukserver is verbroken; de afdruktaak voor de printer "
            "\"Kleur-A4\" is geannuleerd");
  EXPECT_EQ(relay.FaultCount(), 1);
  EXPECT_THAT(Server().WaitingJobs(), IsEmpty());
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

TEST_F(FailuresTest, AUserWhoCancels) {
  ComposeMuch();
  std::vector<int> pages;
  const auto watcher = [&](const PrintProgress& progress) {
    EXPECT_EQ(progress.pageCount, kPages);
    pages.push_back(progress.page);
    return progress.page < 60;
  };
  EXPECT_EQ(FailureOfPrinting(watcher), kCancelled);
  EXPECT_EQ(pages.front(), 1);
  EXPECT_EQ(pages.back(), 60);
  EXPECT_THAT(Server().WaitingJobs(), IsEmpty());
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

// The user presses the button when nothing moves any more.
TEST_F(FailuresTest, AUserWhoCancelsWhileTheServerIsSilent) {
  ComposeMuch();
  const FaultyRelay relay(Server().Port(), 300'000, RelayFault::Silence);
  UsePrintServer("127.0.0.1:" + std::to_string(relay.Port()));
  auto pressed = std::chrono::steady_clock::time_point::max();
  int lastPage = 0;
  const auto watcher = [&](const PrintProgress& progress) {
    const auto now = std::chrono::steady_clock::now();
    const bool isWaiting = progress.page == lastPage;
    lastPage = progress.page;
    if (isWaiting && relay.FaultCount() > 0) pressed = std::min(pressed, now);
    return now < pressed;
  };
  EXPECT_EQ(FailureOfPrinting(watcher), kCancelled);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - pressed;
  EXPECT_LT(taken.count(), 0.2);
  UsePrintServer(Server().Address());
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  EXPECT_THAT(Server().WaitingJobs(), IsEmpty());
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

// As before, but with the button itself: half a second after the job began the window is there.
TEST_F(FailuresTest, AUserWhoPressesTheButtonOfTheWindowThatFollowsTheJob) {
  ComposeMuch();
  const FaultyRelay relay(Server().Port(), 300'000, RelayFault::Silence);
  UsePrintServer("127.0.0.1:" + std::to_string(relay.Port()));
  std::chrono::steady_clock::time_point pressed;
  windows->AddScript([&](Form& form) {
    EXPECT_EQ(form.Caption(), "Afdrukken...");
    pressed = std::chrono::steady_clock::now();
    HeadlessUser(form).Click("cancel");
  });
  EXPECT_EQ(FailureOfPrinting(), kCancelled);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - pressed;
  EXPECT_LT(taken.count(), 0.2);
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
  UsePrintServer(Server().Address());
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  ExpectNothingPrinted();
  ExpectAllPagesPrint();
}

// The whole job is with the server's machine by then, and it would print it.
class StandingServerTest : public FailuresTest {
 protected:
  StandingServerTest() {
    Compose(1);
    print.VsPPSetDevice(kColor);
    Engine().GetPaperSizes(9);
    EXPECT_EQ(FailureOfPrinting([](const PrintProgress&) { return Freeze(); }), kCancelled);
  }
  ~StandingServerTest() override {
    UsePrintServer(Server().Address());
    Server().Continue();
  }

  // Only while the document is being sent, and then the user has had enough.
  static bool Freeze() {
    if (Server().IsFrozen()) return false;
    Server().Freeze();
    return true;
  }

  std::string FailureOfPrinting(const native::PrintWatcher& watcher) {
    return PrinterFailureOf([&] {
      native::PrintPages(*printers, Engine().GetDocument(),
                         {.printer = kColor, .copies = 1, .firstPage = 1, .lastPage = 1}, watcher);
    });
  }
};

TEST_F(StandingServerTest, AJobThatWasCancelledMeanwhileIsNotPrintedWhenTheServerGoesOn) {
  Server().Continue();
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  ExpectNothingPrinted();
}

// It was told at once, and hears it when it goes on.
TEST_F(StandingServerTest, NobodyNeedsToAskAnythingForThat) {
  Server().Continue();
  ExpectNothingPrinted();
}

TEST_F(StandingServerTest, AServerThatWasAskedInVainIsToldWhenItGoesOn) {
  EXPECT_EQ(PrinterFailureOf([this] { printers->DefaultPrinter(); }), kNoServer);
  Server().Continue();
  printers->TellOfCancelledJobs(native::PrintServer::kPatienceAtEnd);
  ExpectNothingPrinted();
}

TEST_F(StandingServerTest, TheEndOfTheDocumentWaitsTwoSecondsToTellTheServer) {
  const auto taken = TimeOf([this] { print.VsPPEinde(); });
  EXPECT_GT(taken.count(), 1.0);
  EXPECT_LT(taken.count(), 2.2);
}

TEST_F(StandingServerTest, AServerThatGoesOnAtTheEndOfTheDocumentIsToldThen) {
  std::thread later([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    Server().Continue();
  });
  const auto taken = TimeOf([this] { print.VsPPEinde(); });
  later.join();
  EXPECT_GT(taken.count(), 0.4);
  EXPECT_LT(taken.count(), 1.5);
  ExpectNothingPrinted();
}

TEST_F(FailuresTest, AServerThatNeverAnswersCostsTwoSecondsOnce) {
  Compose(1);
  LoopbackSocket silent;
  UsePrintServer("127.0.0.1:" + std::to_string(silent.Listen()));
  const auto first = TimeOf([&] { EXPECT_EQ(print.VsPPGetNDevices(), 0); });
  EXPECT_LT(first.count(), 2.0);
  EXPECT_GT(first.count(), 1.0);
  const auto later = TimeOf([&] {
    EXPECT_EQ(print.VsPPGetNDevices(), 0);
    EXPECT_EQ(print.VsPPGetDevice(), "");
    EXPECT_EQ(FailureOfPrinting(), kNoServer);
    EXPECT_TRUE(Engine().GetPaperSizes(9));
    print.VsPPSetPhysicalPage(false);
    print.VsPrintFile(3);
  });
  EXPECT_LT(later.count(), 0.1);
}

TEST_F(FailuresTest, AServerThatGoesSilentAfterItsPrintersWereListed) {
  Compose(1);
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  LoopbackSocket silent;
  UsePrintServer("127.0.0.1:" + std::to_string(silent.Listen()));
  const auto taken = TimeOf([&] { EXPECT_EQ(FailureOfPrinting(), kNoServer); });
  EXPECT_LT(taken.count(), 2.0);
}

TEST_F(FailuresTest, AServerThatGoesSilentWithinAnAnswerCostsTwoSecondsOnce) {
  const FaultyRelay relay(Server().Port(), SIZE_MAX, RelayFault::Unfinished);
  UsePrintServer("127.0.0.1:" + std::to_string(relay.Port()));
  const auto first = TimeOf([&] { EXPECT_EQ(print.VsPPGetNDevices(), 0); });
  EXPECT_LT(first.count(), 2.0);
  const auto later = TimeOf([&] { EXPECT_EQ(print.VsPPGetNDevices(), 0); });
  EXPECT_LT(later.count(), 0.1);
}

// As one does on a busy machine; it must not be taken as having gone.
TEST_F(FailuresTest, AServerThatPausesWithinItsAnswersFailsInNothing) {
  Compose(1);
  const FaultyRelay relay(Server().Port(), SIZE_MAX, RelayFault::Stutter);
  UsePrintServer("127.0.0.1:" + std::to_string(relay.Port()));
  EXPECT_EQ(print.VsPPGetDevice(), kColor);
  EXPECT_EQ(FailureOfPrinting(), "");
  UsePrintServer(Server().Address());
  EXPECT_THAT(Received(Server().Color()), SizeIs(1));
}

}  // namespace
}  // namespace pagivo
