// The component's own print dialog for the host.
#pragma once

#include <functional>
#include <string>

#include "dialogs/print_request_form.h"
#include "platform/platform.h"
#include "window/combo_box.h"

namespace pagivo {

// Leaves the user's choices in the print request. A printer picked in the list becomes the engine's
// at once, and stays so whatever the user does next. The close box acts as Annuleren. Unloading
// releases the shared instance, so that each showing starts fresh.
class frmAfdrukSetup : public PrintRequestForm {
 public:
  frmAfdrukSetup(const Platform& platform, PrintDialogRequest& request, EngineSource engine);

 private:
  void CreateControls() override;
  void OnLoad() override;
  void OnQueryUnload(bool& cancel, UnloadMode mode) override;
  void OnUnload() override;

  void cboPrinters_Click();
  void cmdOK_Click();
  void cmdAnnuleren_Click();

  ComboBox& cboPrinters() { return Get<ComboBox>("cboPrinters"); }
  void ListPrinters();
  void SelectCurrentPrinter();
  static std::int16_t PageIn(TextBox& box);
  void ShowRange();
  void PlaceButtons();

  EngineSource engine_;
  std::function<std::string()> defaultPrinter_;
};

// Answers the shared instance, which is created on first use. `request` and `engine` serve it as
// long as it lives.
frmAfdrukSetup& PrinterSetupDialog(PrintDialogRequest& request, const EngineSource& engine);

}  // namespace pagivo
