// The printer setup: the printer, the paper and its orientation.
#pragma once

#include <memory>
#include <string>

#include "engine/native/setup/paper_form.h"

namespace pagivo::native {

// A printer picked in the list is asked what it can do, and chosen when OK is pressed. Without
// printers the rest can still be chosen.
class PrinterSetupForm final : public PaperForm {
 public:
  PrinterSetupForm(std::shared_ptr<WindowSystem> windows, PageSetupOwner& owner);

 private:
  void CreateControls() override;
  void OnLoad() override;
  void PutChanges(PageSetup& setup) override;

  ComboBox& printers() { return Get<ComboBox>("printers"); }
  void printers_Click();

  void ListPrinters();
  void SelectPrinter();

  std::string printerBefore_;
};

}  // namespace pagivo::native
