// The print range dialog of the preview window.
#pragma once

#include "dialogs/print_request_form.h"
#include "platform/platform.h"

namespace pagivo {

// Leaves the user's choices in the print request. Closing it by its close box runs no handler:
// PrintCancelled keeps the value of the use before.
class frmAfdrukPagina : public PrintRequestForm {
 public:
  frmAfdrukPagina(const Platform& platform, PrintDialogRequest& request, EngineSource engine);

 private:
  void CreateControls() override;
  void OnLoad() override;

  void cmdOK_Click();
  void cmdAnnuleren_Click();
  void cmdPrinter_Click();

  OptionButton& optHuidig() { return Get<OptionButton>("optHuidig"); }
  static std::int16_t PageIn(const TextBox& box);
  void ShowRange();
  void PlaceButtons();

  EngineSource engine_;
};

// Answers the shared instance, which is created on first use. `request` and `engine` serve it as
// long as it lives. Whoever showed it releases it, so that each showing starts fresh.
frmAfdrukPagina& PrintRangeDialog(PrintDialogRequest& request, const EngineSource& engine);
void ReleasePrintRangeDialog();

}  // namespace pagivo
