// What the tests of the setup dialogs share: an engine with A4 paper and three printers, and a
// user.
#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/native/native_engine.h"
#include "engine/native/setup/setup_dialogs.h"
#include "engine/native/spool/memory_print_server.h"
#include "support/trial_windows.h"
#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/text_box.h"

namespace pagivo::native {

using pagivo::testing::TrialWindows;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SetupDialogTest : public ::testing::Test {
 protected:
  SetupDialogTest() {
    AddPrinter("Inkt", "usb://inkt");
    AddPrinter("Laser", "ipp://laser");
    AddPrinter("Plotter", "ipp://plotter");
    server->defaultPrinter = "Laser";
  }

  void AddPrinter(std::string name, std::string address) {
    server->printers.push_back({.name = std::move(name),
                                .uri = {},
                                .deviceAddress = std::move(address),
                                .stateReasons = {}});
  }
  void RemovePrinter(const std::string& name) {
    std::erase_if(server->printers, [&](const Printer& printer) { return printer.name == name; });
  }
  // The printer takes these papers and no others.
  void PutPapers(const std::string& printer, std::initializer_list<std::int32_t> codes) {
    std::vector<Medium>& media = server->media[printer].media;
    media.clear();
    for (const std::int32_t code : codes) {
      const Paper& paper = *FindPaper(code);
      media.push_back({.size = UprightSize(paper.width, paper.height), .margins = {}});
    }
  }

  // Shows the dialog to a user who does that; whether it was confirmed.
  bool Show(std::int32_t dialog, TrialWindows::Script user) {
    windows->AddScript(std::move(user));
    return ShowSetupDialog(dialog, *engine, windows);
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

  std::shared_ptr<MemoryPrintServer> server = std::make_shared<MemoryPrintServer>();
  std::shared_ptr<NativeEngine> engine =
      std::make_shared<NativeEngine>(EngineServices{.printers = server});
  std::shared_ptr<TrialWindows> windows = pagivo::testing::MakeTrialWindows();
};

}  // namespace pagivo::native
