// The life of a document.
#include "api/engine_access.h"
#include "pagivo/pg_print.h"
#include "values/characters.h"

namespace pagivo {

namespace {

void ResetState() {
  State().contents.ContentsCount = 0;
  State().WatermarkOn = 0;
  State().ScaleX = 1;
  State().ScaleY = 1;
}

}  // namespace

PgPrint::PgPrint() {
  ReportingErrors(ResetState);
}

void PgPrint::VsPPInit() {
  constexpr std::int16_t kNoMargin = 0;
  ResetState();
  IgnoringErrors([] { Engine().StartDoc(); });
  IgnoringErrors([] { Engine().PutMarginLeft(kNoMargin); });
  IgnoringErrors([] { Engine().PutMarginRight(kNoMargin); });
  IgnoringErrors([] { Engine().PutMarginBottom(kNoMargin); });
  IgnoringErrors([] { Engine().PutMarginTop(kNoMargin); });
  IgnoringErrors([] { Engine().PutTextColor(0); });
}

void PgPrint::VsPPStart(const ObjectRef& frmProject) {
  State().HostForm = frmProject;
  IgnoringErrors([] { PreviewForm().Load(); });
}

void PgPrint::VsPPNewPage() {
  IgnoringErrors([] { Engine().NewPage(); });
  IgnoringErrors([this] { VsWatermerkAfdrukken(); });
}

void PgPrint::VsPPFinish(TextArgument sTitle) {
  IgnoringErrors([&] {
    // A copy of its own, for the host may change its text meanwhile.
    const std::string title = sTitle;  // NOLINT(performance-unnecessary-copy-initialization)
    IgnoringErrors([&] { Engine().PutDocName(title); });
    IgnoringErrors(
        [&] { PreviewForm().PutCaption("Afdrukvoorbeeld " + std::string(Trim(title))); });
  });
  IgnoringErrors([this] { VsPPClose(); });
}

void PgPrint::VsPPClose() {
  IgnoringErrors([] { Engine().EndDoc(); });
}

void PgPrint::VsPPEinde() {
  IgnoringErrors([] { PreviewForm().Unload(); });
  IgnoringErrors([] { ReleasePreviewForm(); });
}

std::int16_t PgPrint::VsPPGetCurrentPage() {
  return ReadOrZero([] { return Engine().GetCurrentPage(); });
}

std::int16_t PgPrint::VsPPGetPageCount() {
  return ReadOrZero([] { return Engine().GetPageCount(); });
}

std::string PgPrint::VsPPGetDevice() {
  return ReadOrZero([] { return Engine().GetDevice(); });
}

void PgPrint::VsPPZetInhoud(const TextArgument& sOmschrijving) {
  ContentsTable& contents = State().contents;
  if (contents.ContentsCount >= ContentsTable::kMostEntries) return;
  const std::int16_t entry = ++contents.ContentsCount;
  IgnoringErrors([&] { contents.ContentsTitle(entry) = sOmschrijving; });
  IgnoringErrors([&] { contents.ContentsPage(entry) = Engine().GetCurrentPage(); });
}

void PgPrint::VsPPZetKleur(const std::int32_t& Kleur) {
  IgnoringErrors([&] { Engine().PutTextColor(Kleur); });
}

void PgPrint::VsPPAfdrukkenAanUit(const bool& AfdrukkenUit) {
  ReportingErrors([&] {
    Toolbar& toolbar = PreviewForm().tbAfdrukken();
    toolbar.Button("Afdrukken").visible = !AfdrukkenUit;
    toolbar.Button("AfdrukkenSep").visible = toolbar.Button("Afdrukken").visible;
    toolbar.Refresh();
  });
}

// Hosts call these two; there is nothing to be done.
void PgPrint::VsPPSetPreviewMode(const IntegerArgument&) {}

void PgPrint::VsPPZetHelp(const TextArgument&, const std::int32_t&) {}

}  // namespace pagivo
