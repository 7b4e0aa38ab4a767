#include "engine/native/dialogs/print_progress.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "window/headless/headless_user.h"
#include "window/headless/headless_windows.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class PrintProgressTest : public ::testing::Test {
 protected:
  // So much later the next page is printed; whether printing goes on.
  bool NextPageAfter(std::chrono::milliseconds wait) {
    now_ += wait;
    return progress.Continues(++page_);
  }

  // The user of the window the next time that it is looked after.
  void User(std::function<void(Form& form, HeadlessUser& user)> acts) {
    windows->AddScript([acts = std::move(acts)](Form& form) {
      HeadlessUser user(form);
      acts(form, user);
    });
  }

  // What stands in the window when a job takes long.
  std::vector<std::string> LinesFor(const PrintedDocument& document) {
    std::vector<std::string> lines;
    User([&](Form& form, HeadlessUser&) {
      for (const char* name : {"page", "title", "device", "cancel"}) {
        lines.push_back(form.Get(name).Caption());
      }
    });
    PrintProgressWindow slow(windows, document, [this] { return now_; });
    now_ += 1s;
    slow.Continues(12);
    return lines;
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
  EXPECT_THAT(
      LinesFor({"Rapport", "Laser", "LPT1:"}),
      ElementsAre("Afdrukken pagina 12 van", "Rapport", "op de Laser op LPT1:", "Annuleren"));
}

TEST_F(PrintProgressTest, TakesNothingInNamesForAnythingElse) {
  EXPECT_THAT(
      LinesFor({"Jan & Piet", "%s & %d", "%s"}),
      ElementsAre("Afdrukken pagina 12 van", "Jan && Piet", "op de %s && %d op %s", "Annuleren"));
}

TEST_F(PrintProgressTest, LeavesOutAPortThatIsNotKnown) {
  EXPECT_THAT(LinesFor({"", "Laser", ""}),
              ElementsAre("Afdrukken pagina 12 van", "", "op de Laser", "Annuleren"));
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
  std::vector<std::string> lines;
  for (int look = 0; look < 3; ++look) {
    User([&](Form& form, HeadlessUser&) { lines.push_back(form.Get("page").Caption()); });
  }
  NextPageAfter(500ms);
  NextPageAfter(10ms);
  NextPageAfter(40ms);
  NextPageAfter(50ms);
  EXPECT_THAT(lines, ElementsAre("Afdrukken pagina 1 van", "Afdrukken pagina 3 van",
                                 "Afdrukken pagina 4 van"));
}

TEST_F(PrintProgressTest, ItsButtonStopsTheJob) {
  User([](Form&, HeadlessUser& user) { user.Click("cancel"); });
  EXPECT_FALSE(NextPageAfter(500ms));
  EXPECT_FALSE(NextPageAfter(500ms));
}

TEST_F(PrintProgressTest, EscStopsTheJob) {
  User([](Form&, HeadlessUser& user) { user.Press(kKeyEscape); });
  EXPECT_FALSE(NextPageAfter(500ms));
}

TEST_F(PrintProgressTest, ItsCloseBoxStopsTheJobAndLeavesTheWindowToWhoPrints) {
  User([](Form& form, HeadlessUser& user) {
    user.Close();
    EXPECT_TRUE(form.Visible());
  });
  EXPECT_FALSE(NextPageAfter(500ms));
}

TEST_F(PrintProgressTest, GoesWithTheJob) {
  std::weak_ptr<Form> window;
  User([&](Form& form, HeadlessUser&) { window = form.weak_from_this(); });
  {
    PrintProgressWindow slow(
        windows, {"", "Laser", ""},
        [time = std::chrono::steady_clock::time_point{}]() mutable { return time += 1s; });
    slow.Continues(1);
    EXPECT_FALSE(window.expired());
  }
  EXPECT_TRUE(window.expired());
}

TEST_F(PrintProgressTest, AWindowThatCannotBeShownDoesNotStopTheJob) {
  class NoWindows : public HeadlessWindows {
    std::shared_ptr<FormPeer> MakeFormPeer(Form&) override {
      throw Error(ErrorNumber::InvalidArgument, "Er is geen beeldscherm");
    }
  };
  for (const std::shared_ptr<WindowSystem>& none :
       {std::shared_ptr<WindowSystem>(std::make_shared<NoWindows>()),
        std::shared_ptr<WindowSystem>()}) {
    PrintProgressWindow unseen(
        none, {"", "Laser", ""},
        [time = std::chrono::steady_clock::time_point{}]() mutable { return time += 1s; });
    EXPECT_TRUE(unseen.Continues(1));
    EXPECT_TRUE(unseen.Continues(2));
  }
}

}  // namespace
}  // namespace pagivo::native
