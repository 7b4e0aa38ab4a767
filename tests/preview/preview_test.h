// What the tests of the preview share: the process's preview window on a recording engine.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pagivo/error.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "support/recording_platform.h"

namespace pagivo::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PreviewTest : public ::testing::Test {
 protected:
  PreviewTest() { form->Load(); }
  ~PreviewTest() override {
    form->Unload();
    ReleasePreviewForm();
    State() = ModuleState{};
  }

  RecordingEngine& Engine() { return platform.Engine(); }
  PrintEngineEvents& Events() { return *Engine().Events(); }

  // A document of so many real pages, at `page`, in the zoom mode.
  void Show(int realPages, int page, std::int32_t zoomMode = kZoomWholePage) {
    Engine().Answer("PageCount", static_cast<std::int16_t>(realPages + 1));
    Engine().Answer("PreviewPage", static_cast<std::int16_t>(page));
    Engine().Answer("ZoomMode", zoomMode);
  }

  // The user of the next showing, of whatever window it is.
  void User(std::function<void(FormUser& user)> acts) {
    platform.Windows().AddScript([acts = std::move(acts)](Form&, FormUser& user) { acts(user); });
  }

  // What is put to the engine and called of it meanwhile.
  std::vector<std::string> DoingsOf(const std::function<void()>& action) {
    Engine().ClearLog();
    action();
    std::vector<std::string> doings;
    for (const std::string& line : Engine().Log()) {
      if (!line.starts_with("get ")) doings.push_back(line);
    }
    return doings;
  }

  std::string PageBox() { return form->txtPaginanummer().Text(); }
  bool EngineHasFocus() { return form->Controls().Focused() == &form->PreviewSurface(); }

  RecordingPlatform platform;
  std::shared_ptr<frmAfdrukken> form =
      std::static_pointer_cast<frmAfdrukken>(PreviewForm().shared_from_this());
};

}  // namespace pagivo::testing
