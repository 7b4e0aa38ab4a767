// Preview, print, PDF.
#include <algorithm>

#include "api/engine_access.h"
#include "pagivo/pg_print.h"
#include "preview/print_copies.h"

namespace pagivo {

namespace {

void ShowPage(const std::int16_t& page) {
  IgnoringErrors([&] { Engine().PutPreviewPage(page); });
}

PageRange PrintRangeOf(const Variant& from, const Variant& to) {
  PageRange range;
  IgnoringErrors([&] { range.from = ToInteger(from); });
  IgnoringErrors([&] { range.to = ToInteger(to); });
  if (range.from > range.to) std::swap(range.from, range.to);
  if (TrueOnError([&] { return range.from > LastPage() || range.from < 1; })) range.from = 1;
  if (TrueOnError([&] { return range.to > LastPage() || range.to < 1; })) {
    IgnoringErrors([&] { range.to = LastPage(); });
  }
  return range;
}

}  // namespace

void PgPrint::VsPreviewFile(IntegerVariable Pagina) {
  IgnoringErrors([&] {
    std::int16_t page = Pagina;
    const std::int32_t zoomMode = ReadOrZero([] { return Engine().GetZoomMode(); });
    if (zoomMode == kZoomTwoPages && page % 2 == 0) {
      IgnoringErrors([&] { Pagina = page = SubtractIntegers(page, 1); });
    }
    if (page < 1) {
      ShowPage(1);
    } else {
      ShowPage(std::min(page, ReadOrZero(LastPage)));
    }
    IgnoringErrors(ToonVoorbeeld);
  });
}

void PgPrint::VsPrintFile(const IntegerArgument& AantalExemplaren, const Variant& Van,
                          const Variant& Tm) {
  IgnoringErrors([&] {
    const std::int16_t copies = AantalExemplaren;
    const PageRange range = PrintRangeOf(Van, Tm);
    IgnoringErrors([] { Engine().PutCopies(1); });
    // Held: a host may discard the preview window while the user follows the printing.
    const std::shared_ptr<PrintEngine> engine = PreviewEngine();
    PrintCopies(*engine, range, copies == 0 ? 1 : copies);
  });
}

void PgPrint::VSPDF(const TextArgument& Filename) {
  ReportingErrors([&] {
    const std::int16_t last = LastPage();
    PreviewForm().Exporter().ExportPdf(PreviewForm().vsPrint(), Filename, 1, last);
  });
}

}  // namespace pagivo
