// The engine's printer setup: the printer, the paper and its orientation.
#pragma once

#include <memory>
#include <string>

#include "engine/native/setup/paper_form.h"

namespace pagivo::native {

// A printer picked in the list becomes the engine's when OK is pressed. Without printers the rest
// can still be chosen.
class PrinterSetupForm final : public PaperForm {
 public:
  PrinterSetupForm(std::shared_ptr<WindowSystem> windows, PrintEngine& engine);

 private:
  void CreateControls() override;
  void OnLoad() override;
  void AddChanges(EngineChanges& changes) override;

  ComboBox& printers() { return Get<ComboBox>("printers"); }
  void printers_Click();

  void ListPrinters();
  void SelectPrinter();

  std::string enginePrinter_;
  bool enginePrinterExists_ = false;
};

}  // namespace pagivo::native
