// Preview, print, PDF, and what became of the last print command.
#include <algorithm>
#include <array>

#include "api/engine_access.h"
#include "pagivo/pg_print.h"
#include "pagivo/print_outcome.h"
#include "preview/print_command.h"
#include "values/late_binding.h"

namespace pagivo {

namespace {

void ShowPage(const std::int16_t& page) {
  IgnoringErrors([&] { Engine().PutPreviewPage(page); });
}

std::int16_t LastPage() {
  return LastPageOf(Engine());
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

constexpr std::array kReportRows{
    BindMember<&PrintReport::PrintOutcome>("PrintOutcome", 1, MemberKind::Get),
    BindMember<&PrintReport::Description>("Description", 2, MemberKind::Get),
    BindMember<&PrintReport::Printer>("Printer", 3, MemberKind::Get),
    BindMember<&PrintReport::Copies>("Copies", 4, MemberKind::Get),
    BindMember<&PrintReport::PrintedCopies>("PrintedCopies", 5, MemberKind::Get),
};

constexpr MemberTable<PrintReport> kReportMembers(kReportRows);

// A command is for no more copies than that.
std::int16_t CountOf(std::int32_t copies) {
  return static_cast<std::int16_t>(copies);
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
    IgnoringErrors([] { ToonVoorbeeld(State().HostForm); });
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
    PrintCopies(*engine, range, copies == 0 ? 1 : copies, State().PrintOutcome);
  });
}

void PgPrint::VSPDF(const TextArgument& Filename) {
  ReportingErrors([&] {
    const std::int16_t last = LastPage();
    PreviewForm().Exporter().ExportPdf(PreviewForm().vsPrint(), Filename, 1, last);
  });
}

std::int16_t PrintReport::PrintOutcome() {
  return State().PrintOutcome.result;
}

std::string PrintReport::Description() {
  return State().PrintOutcome.description;
}

std::string PrintReport::Printer() {
  return State().PrintOutcome.printer;
}

std::int16_t PrintReport::Copies() {
  return CountOf(State().PrintOutcome.copies);
}

std::int16_t PrintReport::PrintedCopies() {
  return CountOf(State().PrintOutcome.printedCopies);
}

Variant PrintReport::GetMember(std::string_view name) {
  return kReportMembers.Get(*this, name);
}

Variant PrintReport::CallMember(std::string_view name, std::span<Variant> arguments) {
  return kReportMembers.Call(*this, name, arguments);
}

}  // namespace pagivo
