#include "engine/native/setup/setup_dialogs.h"

#include "engine/native/setup/page_setup_form.h"
#include "engine/native/setup/printer_setup_form.h"
#include "engine/print_engine.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

template <typename Dialog>
bool Show(PageSetupOwner& owner, const std::shared_ptr<WindowSystem>& windows) {
  if (!windows) return false;
  const auto dialog = std::make_shared<Dialog>(windows, owner);
  dialog->ShowModal();
  return dialog->IsConfirmed();
}

}  // namespace

bool ShowSetupDialog(std::int32_t dialog, PageSetupOwner& owner,
                     const std::shared_ptr<WindowSystem>& windows) {
  switch (dialog) {
    case kPrinterSetupDialog:
      return Show<PrinterSetupForm>(owner, windows);
    case kPageSetupDialog:
      return Show<PageSetupForm>(owner, windows);
    default:
      ThrowInvalidPropertyValue("PrintDialog");
  }
}

}  // namespace pagivo::native
