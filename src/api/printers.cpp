// Printers and the dialogs about them.
#include <algorithm>

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

void Seed(PrintDialogRequest& request, std::int16_t copies, std::int16_t fromPage,
          std::int16_t toPage) {
  request.PrintCopies = std::max<std::int16_t>(copies, 1);
  request.PrintFromPage = std::max<std::int16_t>(fromPage, 0);
  request.PrintToPage = std::max<std::int16_t>(toPage, 0);
}

}  // namespace

std::int16_t PgPrint::VsPPGetNDevices() {
  return ReadOrZero([] { return Engine().GetNDevices(); });
}

void PgPrint::VsPPSetDevice(const TextArgument& DeviceName) {
  IgnoringErrors([&] { Engine().PutDevice(DeviceName); });
}

std::int16_t PgPrint::VsPPGetCopies() {
  return ReadOrZero([] { return Engine().GetCopies(); });
}

Variant PgPrint::VsPPPrinterDialog(std::string& DeviceName, IntegerVariable Copies,
                                   IntegerVariable FromPage, IntegerVariable ToPage) {
  return ReadOrZero([&]() -> Variant {
    PrintDialogRequest& request = State().request;
    Seed(request, Copies, FromPage, ToPage);
    IgnoringErrors([&] { PrinterSetupDialog(request, PreviewEngine).ShowModal(); });
    IgnoringErrors([&] { DeviceName = request.PrintDevice; });
    Copies = request.PrintCopies;
    FromPage = request.PrintFromPage;
    ToPage = request.PrintToPage;
    return !request.PrintCancelled;
  });
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
