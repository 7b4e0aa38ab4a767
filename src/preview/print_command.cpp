// Printing from the preview.
#include <cstdint>

#include "dialogs/frm_afdruk_pagina.h"
#include "preview/frm_afdrukken.h"
#include "preview/last_page.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "values/errors_ignored.h"

namespace pagivo {

namespace {

struct PageRange {
  std::int16_t from = 0;
  std::int16_t to = 0;
};

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

// A job for each copy, so that they come out collated.
void PrintCopiesOf(PrintEngine& engine, const PageRange& range) {
  IgnoringErrors([&] { engine.PutCopies(1); });
  const std::int32_t copies = State().PrintCopies;
  for (std::int32_t copy = 1; copy <= copies; ++copy) {
    IgnoringErrors([&] { engine.PrintDoc(false, range.from, range.to); });
  }
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
  PrintCopiesOf(*engine, ChosenRange(*engine));
  IgnoringErrors([&] { engine->PutPreviewPage(shown); });
  IgnoringErrors([this] { PreviewSurface().PutVisible(true); });
  IgnoringErrors([this] { PreviewSurface().Focus(); });
}

}  // namespace pagivo
