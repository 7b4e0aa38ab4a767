// Printers and the dialogs about them.
#include "api/engine_access.h"
#include "dialogs/frm_afdruk_setup.h"
#include "pagivo/pg_print.h"

namespace pagivo {

namespace {

bool ShowEngineDialog(std::int32_t dialog) {
  return ReadOrZero([&] {
    // Held: a host may discard the preview window while the dialog is open.
    const std::shared_ptr<PrintEngine> engine = PreviewEngine();
    return engine->GetPrintDialog(dialog);
  });
}

}  // namespace

std::int16_t PgPrint::VsPPGetNDevices() {
  return ReadOrZero([] { return Engine().GetNDevices(); });
}

void PgPrint::VsPPSetDevice(const std::string& DeviceName) {
  IgnoringErrors([&] { Engine().PutDevice(DeviceName); });
}

std::int16_t PgPrint::VsPPGetCopies() {
  return ReadOrZero([] { return Engine().GetCopies(); });
}

Variant PgPrint::VsPPPrinterDialog(std::string& DeviceName, std::int16_t& Copies,
                                   std::int16_t& FromPage, std::int16_t& ToPage) {
  State().PrintCopies = Copies >= 2 ? Copies : std::int16_t{1};
  State().PrintFromPage = FromPage >= 1 ? FromPage : std::int16_t{0};
  State().PrintToPage = ToPage >= 1 ? ToPage : std::int16_t{0};
  IgnoringErrors([] { PrinterSetupDialog(PreviewEngine).ShowModal(); });
  IgnoringErrors([&] { DeviceName = State().PrintDevice; });
  Copies = State().PrintCopies;
  FromPage = State().PrintFromPage;
  ToPage = State().PrintToPage;
  return !State().PrintCancelled;
}

bool PgPrint::VsPPPrinterSetup() {
  return ShowEngineDialog(kPrinterSetupDialog);
}

bool PgPrint::VsPPPageSetup() {
  return ShowEngineDialog(kPageSetupDialog);
}

void PgPrint::VsPPRenderControl(const std::int32_t& hwnd) {
  ReportingErrors([&] { Engine().PutRenderControl(hwnd); });
}

}  // namespace pagivo
