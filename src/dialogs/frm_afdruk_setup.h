// The component's own print dialog for the host.
#pragma once

#include <functional>
#include <string>

#include "dialogs/engine_source.h"
#include "dialogs/print_request_form.h"
#include "platform/platform.h"
#include "window/combo_box.h"

namespace pagivo {

// Reads the print request when it is loaded and leaves the user's choices there. A printer picked
// in the list becomes the engine's at once, and stays it whatever the user does next. Its close
// box acts as Annuleren. Unloading releases the shared instance, so each showing starts fresh.
class frmAfdrukSetup : public PrintRequestForm {
 public:
  frmAfdrukSetup(const Platform& platform, EngineSource engine);

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

// The shared instance, created on first use; `engine` serves it as long as it lives.
frmAfdrukSetup& PrinterSetupDialog(const EngineSource& engine);

}  // namespace pagivo
