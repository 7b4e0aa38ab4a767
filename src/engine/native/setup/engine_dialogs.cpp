#include "engine/native/setup/engine_dialogs.h"

#include "engine/native/setup/page_setup_form.h"
#include "engine/native/setup/printer_setup_form.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

template <typename Dialog>
bool Show(PrintEngine& engine, const std::shared_ptr<WindowSystem>& windows) {
  if (!windows) return false;
  const auto dialog = std::make_shared<Dialog>(windows, engine);
  dialog->ShowModal();
  return dialog->IsConfirmed();
}

}  // namespace

bool ShowEngineDialog(std::int32_t dialog, PrintEngine& engine,
                      const std::shared_ptr<WindowSystem>& windows) {
  switch (dialog) {
    case kPrinterSetupDialog:
      return Show<PrinterSetupForm>(engine, windows);
    case kPageSetupDialog:
      return Show<PageSetupForm>(engine, windows);
    default:
      ThrowInvalidPropertyValue("PrintDialog");
  }
}

}  // namespace pagivo::native
