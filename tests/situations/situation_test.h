// What the tests of bad situations share: a host with a real document and windows with a user.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "pagivo/pg_print.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "support/trial_windows.h"
#include "window/text_box.h"

namespace pagivo::testing {

class Situation : public ::testing::Test {
 protected:
  Situation() {
    Platform platform = NativePlatform();
    platform.windows = windows;
    UsePlatform(std::move(platform));
  }
  ~Situation() override {
    print.VsPPEinde();
    State() = ModuleState{};
    UsePlatform(NativePlatform());
  }

  // A finished document of so many pages, with an entry in the contents for each.
  void Compose(int pages) {
    print.VsPPInit();
    print.VsPPStart(nullptr);
    for (int page = 1; page <= pages; ++page) {
      print.VsPPPrint("Bladzijde " + std::to_string(page), 1000, 1000);
      print.VsPPZetInhoud("Hoofdstuk " + std::to_string(page));
      print.VsPPNewPage();
    }
    print.VsPPFinish("Proef");
  }

  // What the user does in the window that is shown next.
  void User(TrialWindows::Script acts) { windows->AddScript(std::move(acts)); }

  // Shows the preview from that page on until it is closed, and checks that it was shown.
  void Preview(std::int16_t page = 1) {
    print.VsPreviewFile(page);
    EXPECT_EQ(windows->ScriptsLeft(), 0U) << "a window was not shown";
  }

  // Whether a document can be composed and previewed, as ever.
  void ExpectPreviewWorks() {
    Compose(3);
    std::string box;
    User([&](Form&, FormUser& user) {
      user.ClickToolbar("tbAfdrukken", "Volgende");
      box = PageBox();
    });
    Preview();
    EXPECT_EQ(box, "2/3");
    EXPECT_FALSE(PreviewForm().Visible());
  }

  static std::string PageBox() { return PreviewForm().txtPaginanummer().Text(); }

  std::shared_ptr<TrialWindows> windows = MakeTrialWindows();
  PgPrint print;
};

}  // namespace pagivo::testing
