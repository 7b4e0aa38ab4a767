// What the tests of the print dialogs share: a recording engine, a user, and the check of a table.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "dialogs/print_request_form.h"
#include "support/recording_platform.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"

namespace pagivo::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// One control as it shall be once its dialog is loaded.
struct ExpectedControl {
  std::string_view name;
  ControlKind kind;
  std::string_view caption;
  Placement placement;  // a height of 0 is free
  std::string_view container;
  int tabIndex = -1;  // -1 is free
};

inline std::string_view TextOf(const Control& control) {
  const auto* box = dynamic_cast<const TextBox*>(&control);
  return box != nullptr ? std::string_view(box->Text()) : control.Caption();
}

// Checks the controls of the loaded form against the rows, none more and none less.
inline void ExpectControls(Form& form, std::span<const ExpectedControl> rows) {
  EXPECT_EQ(form.Controls().All().size(), rows.size());
  for (const ExpectedControl& row : rows) {
    SCOPED_TRACE(row.name);
    const Control& control = form.Get(row.name);
    EXPECT_EQ(control.Kind(), row.kind);
    EXPECT_EQ(TextOf(control), row.caption);
    EXPECT_EQ(control.Left(), row.placement.left);
    EXPECT_EQ(control.Top(), row.placement.top);
    EXPECT_EQ(control.Width(), row.placement.width);
    if (row.placement.height != 0) {
      EXPECT_EQ(control.Height(), row.placement.height);
    }
    EXPECT_EQ(control.Container() == nullptr ? "" : control.Container()->Name(), row.container);
    if (row.tabIndex >= 0) {
      EXPECT_EQ(control.Design().tabIndex, row.tabIndex);
    }
  }
}

class DialogTest : public ::testing::Test {
 protected:
  // The user of the next showing.
  void User(std::function<void(FormUser& user)> acts) {
    platform.Windows().AddScript([acts = std::move(acts)](Form&, FormUser& user) { acts(user); });
  }

  PrintDialogRequest request;
  RecordingPlatform platform;
  std::shared_ptr<RecordingEngine> engine = std::make_shared<RecordingEngine>();
  EngineSource source = [this] { return engine; };
};

}  // namespace pagivo::testing
