// What the tests of the engine's dialogs share: an engine with A4 paper and three printers, and a
// user.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/native/setup/engine_dialogs.h"
#include "support/operation_log.h"
#include "support/recording_engine.h"
#include "support/trial_windows.h"
#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/text_box.h"

namespace pagivo::native {

using pagivo::testing::OperationLog;
using pagivo::testing::RecordingEngine;
using pagivo::testing::TrialWindows;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SetupDialogTest : public ::testing::Test {
 protected:
  SetupDialogTest() {
    engine.Answer("PaperSizes", true);
    PutPaper(9, 11906, 16838);
    engine.Answer("Orientation", std::int32_t{0});
    for (const char* side : {"MarginLeft", "MarginRight", "MarginTop", "MarginBottom"}) {
      engine.Answer(side, 1440.0);
    }
    PutPrinters({"Inkt", "Laser", "Plotter"});
    engine.Answer("Device", "Laser");
    engine.Answer("Port", "ipp://laser");
  }

  void PutPaper(std::int32_t code, double pageWidth, double pageHeight) {
    engine.Answer("PaperSize", code);
    engine.Answer("PageWidth", pageWidth);
    engine.Answer("PageHeight", pageHeight);
  }
  void PutPrinters(const std::vector<std::string>& names) {
    engine.Answer("NDevices", static_cast<std::int16_t>(names.size()));
    std::int16_t index = 0;
    for (const std::string& name : names) engine.AnswerFor("Devices", index++, name);
  }

  // Shows the dialog to a user who does that; whether it was confirmed.
  bool Show(std::int32_t dialog, TrialWindows::Script user) {
    windows->AddScript(std::move(user));
    return ShowEngineDialog(dialog, engine, windows);
  }

  static std::string Message(Form& form) { return form.Get("message").Caption(); }
  static std::vector<std::string> Items(Form& form, std::string_view comboBox) {
    auto& box = form.Get<ComboBox>(comboBox);
    std::vector<std::string> items;
    for (std::int32_t i = 0; i < box.Count(); ++i) items.emplace_back(box.Item(i));
    return items;
  }
  // Picks the item that begins with this text.
  static void Pick(Form& form, FormUser& user, std::string_view comboBox, std::string_view text) {
    const std::vector<std::string> items = Items(form, comboBox);
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (items[i].starts_with(text)) return user.Pick(comboBox, static_cast<std::int32_t>(i));
    }
    ADD_FAILURE() << "no item " << text;
  }

  // What was put into the engine, in order.
  std::vector<std::string> Puts() const { return log->LinesBeginning("put "); }

  std::shared_ptr<OperationLog> log = std::make_shared<OperationLog>();
  RecordingEngine engine{log};
  std::shared_ptr<TrialWindows> windows = pagivo::testing::MakeTrialWindows();
};

}  // namespace pagivo::native
