#include "engine/native/printing/print_progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "support/user/headless_user.h"
#include "window/headless/headless_windows.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

// A clock that is a second on whenever it is looked at.
PrintProgressWindow::Clock SlowClock() {
  return [time = std::chrono::steady_clock::time_point{}]() mutable { return time += 1s; };
}

// What somebody reads in the window, from top to bottom.
Lines LinesIn(Form& form) {
  Lines lines;
  for (const char* name : {"page", "title", "device", "count", "message", "cancel"}) {
    if (form.Get(name).Visible()) lines.push_back(form.Get(name).Caption());
  }
  return lines;
}

double DoneIn(Form& form) {
  return dynamic_cast<ProgressBar&>(*form.Get<Surface>("bar").Content()).Done();
}

class PrintProgressTest : public ::testing::Test {
 protected:
  // So much later the next page is printed; whether printing goes on.
  bool NextPageAfter(std::chrono::milliseconds wait) {
    now_ += wait;
    return progress.Continues({.page = ++page_, .pages = 1000});
  }

  // The user of the window the next time that it is looked after.
  void User(std::function<void(Form& form, HeadlessUser& user)> acts) {
    windows->AddScript([acts = std::move(acts)](Form& form) {
      HeadlessUser user(form);
      acts(form, user);
    });
  }

  // What stands in the window when printing takes long.
  Lines LinesFor(const PrintedDocument& document, const SeriesProgress& reached) {
    Lines lines;
    User([&](Form& form, HeadlessUser&) { lines = LinesIn(form); });
    PrintProgressWindow slow(windows, document, SlowClock());
    slow.Continues(reached);
    return lines;
  }

  Lines LinesFor(const PrintedDocument& document) {
    return LinesFor(document, {.page = 12, .pages = 20});
  }

  std::shared_ptr<HeadlessWindows> windows = std::make_shared<HeadlessWindows>();

 private:
  std::chrono::steady_clock::time_point now_{};
  int page_ = 0;

 protected:
  PrintProgressWindow progress{
      windows, {"Rapport", "Laser", "ipp://laser"}, [this] { return now_; }};
};

TEST_F(PrintProgressTest, ShowsPageTitlePrinterAndPort) {
  EXPECT_EQ(LinesFor({"Rapport", "Laser", "LPT1:"}),
            (Lines{"Afdrukken pagina 12 van", "Rapport", "op de Laser op LPT1:", "blad 12 van 20",
                   "Annuleren"}));
}

TEST_F(PrintProgressTest, TakesNothingInNamesForAnythingElse) {
  EXPECT_EQ(LinesFor({"Jan & Piet", "%s & %d", "%s"}),
            (Lines{"Afdrukken pagina 12 van", "Jan && Piet", "op de %s && %d op %s",
                   "blad 12 van 20", "Annuleren"}));
}

TEST_F(PrintProgressTest, LeavesOutAPortThatIsNotKnown) {
  EXPECT_EQ(LinesFor({"", "Laser", ""}),
            (Lines{"Afdrukken pagina 12 van", "", "op de Laser", "blad 12 van 20", "Annuleren"}));
}

TEST_F(PrintProgressTest, LeavesOutAPrinterThatThereIsNot) {
  EXPECT_EQ(LinesFor({"Rapport", "", ""})[2], "");
}

TEST_F(PrintProgressTest, CountsTheCopiesOfACommandForSeveral) {
  EXPECT_EQ(LinesFor({}, {.copy = 3, .copies = 30, .page = 120, .pages = 5000})[3],
            "exemplaar 3 van 30, blad 120 van 5.000");
}

TEST_F(PrintProgressTest, PutsAPointBetweenThousands) {
  EXPECT_EQ(LinesFor({}, {.page = 999, .pages = 32766})[3], "blad 999 van 32.766");
  EXPECT_EQ(LinesFor({}, {.copy = 1000, .copies = 1000, .page = 1, .pages = 1})[3],
            "exemplaar 1.000 van 1.000, blad 1 van 1");
}

TEST_F(PrintProgressTest, ItsBarFillsWithThePagesOfAllCopies) {
  double done = -1;
  User([&](Form& form, HeadlessUser&) { done = DoneIn(form); });
  PrintProgressWindow slow(windows, {}, SlowClock());
  slow.Continues({.copy = 2, .copies = 4, .page = 51, .pages = 100});
  EXPECT_EQ(done, 0.375);
}

TEST_F(PrintProgressTest, AShortJobGetsNoWindow) {
  User([](Form&, HeadlessUser&) { FAIL(); });
  for (int page = 0; page < 499; ++page) EXPECT_TRUE(NextPageAfter(1ms));
  EXPECT_EQ(windows->ScriptsLeft(), 1U);
}

TEST_F(PrintProgressTest, AppearsAfterHalfASecondUnderItsCaption) {
  std::string caption;
  User([&](Form& form, HeadlessUser&) {
    EXPECT_TRUE(form.Visible());
    caption = form.Caption();
  });
  EXPECT_TRUE(NextPageAfter(500ms));
  EXPECT_EQ(caption, "Afdrukken...");
}

TEST_F(PrintProgressTest, CountsThePagesAndIsLookedAfterAtLeastEveryFiftyMilliseconds) {
  Lines lines;
  for (int look = 0; look < 3; ++look) {
    User([&](Form& form, HeadlessUser&) { lines.push_back(form.Get("page").Caption()); });
  }
  NextPageAfter(500ms);
  NextPageAfter(10ms);
  NextPageAfter(40ms);
  NextPageAfter(50ms);
  EXPECT_EQ(lines,
            (Lines{"Afdrukken pagina 1 van", "Afdrukken pagina 3 van", "Afdrukken pagina 4 van"}));
}

TEST_F(PrintProgressTest, ItsButtonStopsThePrinting) {
  User([](Form&, HeadlessUser& user) { user.Click("cancel"); });
  EXPECT_FALSE(NextPageAfter(500ms));
  EXPECT_FALSE(NextPageAfter(1ms));
  EXPECT_FALSE(NextPageAfter(500ms));
}

TEST_F(PrintProgressTest, EscStopsThePrinting) {
  User([](Form&, HeadlessUser& user) { user.Press(kKeyEscape); });
  EXPECT_FALSE(NextPageAfter(500ms));
}

TEST_F(PrintProgressTest, ItsCloseBoxStopsThePrintingAndLeavesTheWindowToWhoPrints) {
  User([](Form& form, HeadlessUser& user) {
    user.Close();
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_FALSE(NextPageAfter(500ms));
}

TEST_F(PrintProgressTest, GoesWithThePrinting) {
  std::weak_ptr<Form> window;
  User([&](Form& form, HeadlessUser&) { window = form.weak_from_this(); });
  {
    PrintProgressWindow slow(windows, {"", "Laser", ""}, SlowClock());
    slow.Continues({});
    EXPECT_FALSE(window.expired());
  }
  EXPECT_TRUE(window.expired());
}

TEST_F(PrintProgressTest, AFailureIsToldInTheSameWindowUntilItIsClosed) {
  Form* followed = nullptr;
  User([&](Form& form, HeadlessUser&) { followed = &form; });
  NextPageAfter(500ms);
  Lines lines;
  User([&](Form& form, HeadlessUser& user) {
    EXPECT_EQ(&form, followed);
    EXPECT_FALSE(form.Get("bar").Visible());
    lines = LinesIn(form);
    user.Click("cancel");
    EXPECT_FALSE(form.Visible());
  });
  progress.TellFailure({.cause = "De printer brandt",
                        .advice = "Blus de printer.",
                        .copies = 30,
                        .printedCopies = 2});
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
  EXPECT_EQ(lines, (Lines{"Het afdrukken is mislukt", "Rapport", "op de Laser op ipp://laser",
                          "De printer brandt.\nWel afgedrukt: 2 van de 30 exemplaren.\n"
                          "Blus de printer.",
                          "Sluiten"}));
}

TEST_F(PrintProgressTest, AFailureThatComesAtOnceIsToldToo) {
  for (const auto& closes : std::vector<std::function<void(HeadlessUser&)>>{
           [](HeadlessUser& user) { user.Press(kKeyEscape); },
           [](HeadlessUser& user) { user.Press(kKeyEnter); },
           [](HeadlessUser& user) { user.Close(); }}) {
    PrintProgressWindow quick(windows, {"", "Laser", ""});
    User([&](Form& form, HeadlessUser& user) {
      EXPECT_EQ(form.Get("message").Caption(), "Het is op.");
      closes(user);
      EXPECT_FALSE(form.Visible());
    });
    quick.TellFailure({.cause = "Het is op", .advice = ""});
    EXPECT_EQ(windows->ScriptsLeft(), 0U);
  }
}

TEST_F(PrintProgressTest, AWindowThatCannotBeShownDoesNotStopThePrinting) {
  class NoWindows : public HeadlessWindows {
    std::shared_ptr<FormPeer> MakeFormPeer(Form&) override {
      throw Error(ErrorNumber::InvalidArgument, "Er is geen beeldscherm");
    }
  };
  for (const std::shared_ptr<WindowSystem>& none :
       {std::shared_ptr<WindowSystem>(std::make_shared<NoWindows>()),
        std::shared_ptr<WindowSystem>()}) {
    PrintProgressWindow unseen(none, {"", "Laser", ""}, SlowClock());
    EXPECT_TRUE(unseen.Continues({}));
    EXPECT_TRUE(unseen.Continues({}));
    unseen.TellFailure({.cause = "Het is op", .advice = ""});
  }
}

}  // namespace
}  // namespace pagivo::native
