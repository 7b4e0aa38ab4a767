// Printing from the preview.
#include <cstdint>

#include "dialogs/frm_afdruk_pagina.h"
#include "preview/frm_afdrukken.h"
#include "preview/last_page.h"
#include "preview/preview_form.h"
#include "preview/print_copies.h"
#include "state/module_state.h"
#include "values/errors.h"

namespace pagivo {

namespace {

// The rest of the request keeps its values, so that the dialog reopens with the last choice.
void PrepareRequest(PrintEngine& engine) {
  State().PrintFromPage = 1;
  IgnoringErrors([&] { State().PrintToPage = LastPageOf(engine); });
  IgnoringErrors([&] { State().PrintLastPage = LastPageOf(engine); });
}

PageRange ChosenRange(PrintEngine& engine) {
  PageRange range;
  if (State().PrintRange == kPrintShownPage) {
    IgnoringErrors([&] { range.from = engine.GetPreviewPage(); });
    range.to = range.from;
  } else if (State().PrintRange == kPrintPageRange) {
    range = {.from = State().PrintFromPage, .to = State().PrintToPage};
  } else {
    range.from = 1;
    IgnoringErrors([&] { range.to = LastPageOf(engine); });
  }
  return range;
}

}  // namespace

void frmAfdrukken::DrukAf() {
  const auto self = shared_from_this();
  const auto engine = vsPrint();
  std::int16_t shown = 0;
  IgnoringErrors([&] { shown = engine->GetPreviewPage(); });
  PrepareRequest(*engine);
  IgnoringErrors([] { PrintRangeDialog(PreviewEngine).ShowModal(); });
  IgnoringErrors(ReleasePrintRangeDialog);
  // A host may have discarded the window, and with it the document, meanwhile.
  if (State().PrintCancelled || !IsLoaded()) return;
  IgnoringErrors([&] { engine->PutCopies(1); });
  PrintCopies(*engine, ChosenRange(*engine), State().PrintCopies);
  IgnoringErrors([&] { engine->PutPreviewPage(shown); });
  IgnoringErrors([this] { PreviewSurface().PutVisible(true); });
  IgnoringErrors([this] { PreviewSurface().Focus(); });
}

}  // namespace pagivo
