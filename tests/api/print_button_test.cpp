// The switch of the preview's print button.
#include <functional>
#include <memory>
#include <utility>

#include "api/api_test.h"
#include "platform/platform.h"
#include "window/headless/headless_windows.h"

namespace pagivo::testing {
namespace {

// Windows whose toolbars report their refreshes.
class WatchedWindows : public HeadlessWindows {
 public:
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) override {
    if (control.Kind() != ControlKind::Toolbar) {
      return HeadlessWindows::MakeControlPeer(form, control);
    }
    return std::make_unique<Peer>(*this);
  }
  std::function<void()> atRefresh = [] {};

 private:
  class Peer : public ControlPeer {
   public:
    explicit Peer(WatchedWindows& windows) : windows_(windows) {}
    void Update() override { windows_.atRefresh(); }
    void Focus() override {}

   private:
    WatchedWindows& windows_;
  };
};

class PrintButton : public ApiTest {
 protected:
  PrintButton() { print.VsPPEinde(); }

  // From the next preview window on.
  std::shared_ptr<WatchedWindows> WatchWindows() {
    auto windows = std::make_shared<WatchedWindows>();
    Platform watched = CurrentPlatform();
    watched.windows = windows;
    UsePlatform(std::move(watched));
    return windows;
  }

  static void ExpectVisible(bool button, bool separator) {
    EXPECT_EQ(PreviewForm().tbAfdrukken().Button("Afdrukken").visible, button);
    EXPECT_EQ(PreviewForm().tbAfdrukken().Button("AfdrukkenSep").visible, separator);
  }
};

TEST_F(PrintButton, IsShownAtFirst) {
  ExpectVisible(true, true);
}

TEST_F(PrintButton, IsHiddenAndShownWithItsSeparator) {
  print.VsPPAfdrukkenAanUit(true);
  ExpectVisible(false, false);
  print.VsPPAfdrukkenAanUit(false);
  ExpectVisible(true, true);
}

TEST_F(PrintButton, SwitchingItCreatesAndLoadsTheWindow) {
  print.VsPPAfdrukkenAanUit(true);
  EXPECT_EQ(platform.EnginesMade(), 2);
  EXPECT_TRUE(PreviewForm().IsLoaded());
  EXPECT_FALSE(PreviewForm().Visible());
}

TEST_F(PrintButton, SwitchingItRefreshesTheToolbarOnceItIsDone) {
  int refreshes = 0;
  WatchWindows()->atRefresh = [&] {
    ++refreshes;
    ExpectVisible(false, false);
  };
  print.VsPPAfdrukkenAanUit(true);
  EXPECT_EQ(refreshes, 1);
}

TEST_F(PrintButton, AFailureReachesTheHostAndKeepsTheStepsDone) {
  WatchWindows()->atRefresh = [] { throw Error(ErrorNumber::InvalidArgument, "Geen werkbalk"); };
  try {
    print.VsPPAfdrukkenAanUit(true);
    FAIL() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "Geen werkbalk");
  }
  ExpectVisible(false, false);
}

TEST_F(PrintButton, AToolbarWithoutTheButtonFailsAndChangesNothing) {
  PreviewForm().tbAfdrukken().Button("Afdrukken").key = "Anders";
  try {
    print.VsPPAfdrukkenAanUit(true);
    FAIL() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "De werkbalk heeft geen knop \"Afdrukken\"");
  }
  EXPECT_TRUE(PreviewForm().tbAfdrukken().Button("Anders").visible);
  EXPECT_TRUE(PreviewForm().tbAfdrukken().Button("AfdrukkenSep").visible);
}

TEST_F(PrintButton, AToolbarWithoutTheSeparatorFailsWithTheButtonHidden) {
  PreviewForm().tbAfdrukken().Button("AfdrukkenSep").key = "Anders";
  EXPECT_THROW(print.VsPPAfdrukkenAanUit(true), Error);
  EXPECT_FALSE(PreviewForm().tbAfdrukken().Button("Afdrukken").visible);
  EXPECT_TRUE(PreviewForm().tbAfdrukken().Button("Anders").visible);
}

TEST_F(PrintButton, IsBackInANewWindow) {
  print.VsPPAfdrukkenAanUit(true);
  print.VsPPEinde();
  ExpectVisible(true, true);
}

}  // namespace
}  // namespace pagivo::testing
