#include "dialogs/frm_afdruk_setup.h"

#include <memory>

#include "state/module_state.h"

namespace pagivo {

namespace {

constexpr FormDesign kDesign{.caption = "Printerinstelling",
                             .client = {.width = 6645, .height = 3975}};

std::shared_ptr<frmAfdrukSetup>& Instance() {
  // Never destroyed: its window's toolkit is gone before the process's statics are.
  static auto& instance = *new std::shared_ptr<frmAfdrukSetup>;
  return instance;
}

}  // namespace

frmAfdrukSetup::frmAfdrukSetup(const Platform& platform) : Form(platform.windows, kDesign) {}

void frmAfdrukSetup::cmdAnnuleren_Click() {
  State().PrintCancelled = true;
  Unload();
}

void frmAfdrukSetup::OnQueryUnload(bool& cancel, UnloadMode mode) {
  if (mode != UnloadMode::ControlMenu) return;
  cancel = true;
  cmdAnnuleren_Click();
}

void frmAfdrukSetup::OnUnload() {
  Instance().reset();
}

frmAfdrukSetup& PrinterSetupDialog() {
  std::shared_ptr<frmAfdrukSetup>& instance = Instance();
  if (!instance) instance = std::make_shared<frmAfdrukSetup>(CurrentPlatform());
  return *instance;
}

}  // namespace pagivo
