// The component's own print dialog for the host.
#pragma once

#include "platform/platform.h"
#include "window/form.h"

namespace pagivo {

// Reads the print request when it is loaded and leaves the user's choices there. Its close box acts
// as Annuleren. Unloading releases the shared instance, so each showing starts fresh.
class frmAfdrukSetup : public Form {
 public:
  explicit frmAfdrukSetup(const Platform& platform);

  void cmdAnnuleren_Click();

 private:
  void OnQueryUnload(bool& cancel, UnloadMode mode) override;
  void OnUnload() override;
};

// The shared instance, created on first use.
frmAfdrukSetup& PrinterSetupDialog();

}  // namespace pagivo
