#include "preview/print_command.h"

#include <cstdint>

#include "dialogs/frm_afdruk_pagina.h"
#include "preview/frm_afdrukken.h"
#include "preview/preview_form.h"
#include "values/errors.h"

namespace pagivo {

namespace {

// The rest of the request keeps its values, so that the dialog reopens with the last choice.
void Prepare(PrintDialogRequest& request, PrintEngine& engine) {
  request.PrintFromPage = 1;
  IgnoringErrors([&] { request.PrintToPage = LastPageOf(engine); });
  IgnoringErrors([&] { request.PrintLastPage = LastPageOf(engine); });
}

PageRange ChosenRange(const PrintDialogRequest& request, PrintEngine& engine) {
  PageRange range;
  if (request.PrintRange == kPrintShownPage) {
    IgnoringErrors([&] { range.from = engine.GetPreviewPage(); });
    range.to = range.from;
  } else if (request.PrintRange == kPrintPageRange) {
    range = {.from = request.PrintFromPage, .to = request.PrintToPage};
  } else {
    range.from = 1;
    IgnoringErrors([&] { range.to = LastPageOf(engine); });
  }
  return range;
}

// Null when the engine knows none, or is printing for another command.
PrintSeries* BeginSeries(PrintEngine& engine, std::int32_t copies) {
  auto* series = dynamic_cast<PrintSeries*>(&engine);
  if (series == nullptr) return nullptr;
  PrintSeries* begun = nullptr;
  IgnoringErrors([&] {
    series->BeginSeries(copies);
    begun = series;
  });
  return begun;
}

}  // namespace

void PrintCopies(PrintEngine& engine, const PageRange& pages, std::int32_t copies,
                 PrintCommandOutcome& outcome) {
  if (copies < 1) return;
  PrintSeries* series = BeginSeries(engine, copies);
  for (std::int32_t copy = 1; copy <= copies; ++copy) {
    IgnoringErrors([&] { engine.PrintDoc(false, pages.from, pages.to); });
  }
  if (series == nullptr) return;
  IgnoringErrors([&] { outcome = series->EndSeries(); });
}

void frmAfdrukken::DrukAf() {
  const auto self = shared_from_this();
  const auto engine = vsPrint();
  std::int16_t shown = 0;
  IgnoringErrors([&] { shown = engine->GetPreviewPage(); });
  Prepare(state_.request, *engine);
  IgnoringErrors([this] { PrintRangeDialog(state_.request, PreviewEngine).ShowModal(); });
  IgnoringErrors(ReleasePrintRangeDialog);
  // A host may have discarded the window, and with it the document, meanwhile.
  if (state_.request.PrintCancelled || !IsLoaded()) return;
  IgnoringErrors([&] { engine->PutCopies(1); });
  PrintCopies(*engine, ChosenRange(state_.request, *engine), state_.request.PrintCopies,
              state_.PrintOutcome);
  IgnoringErrors([&] { engine->PutPreviewPage(shown); });
  IgnoringErrors([this] { PreviewSurface().PutVisible(true); });
  IgnoringErrors([this] { PreviewSurface().Focus(); });
}

}  // namespace pagivo
