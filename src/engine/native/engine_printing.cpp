// NativeEngine's printers and printing.
#include <algorithm>
#include <limits>
#include <utility>

#include "engine/native/native_engine.h"
#include "pagivo/error.h"

namespace pagivo::native {

std::string NativeEngine::GetDevices(std::int16_t index) {
  return printers_.Name(index);
}

std::int16_t NativeEngine::GetNDevices() {
  constexpr int kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::min(printers_.Count(), kMost));
}

std::string NativeEngine::GetDevice() {
  return printers_.Current();
}

std::string NativeEngine::GetPort() {
  return printers_.Port();
}

void NativeEngine::PutCopies(std::int16_t copies) {
  if (copies < 1) ThrowInvalidPropertyValue("Copies");
  copies_ = copies;
}

void NativeEngine::BeginSeries(std::int32_t copies) {
  if (series_) throw Error(ErrorNumber::NoDocument, kStillPrinting);
  series_ = std::make_unique<PrintingSeries>(
      services_.windows, services_.printers,
      PrintedDocument{document_->Title(), printers_.Current(), printers_.Port()}, copies);
}

// The host may discard the engine, or print again, while the user reads of a failure.
PrintCommandOutcome NativeEngine::EndSeries() {
  const auto self = weak_from_this().lock();
  const auto series = std::move(series_);
  return series ? series->End() : PrintCommandOutcome();
}

void NativeEngine::PrintDoc(bool /*showDialog*/, std::int16_t firstPage, std::int16_t lastPage) {
  RequireNoPrinting();
  if (series_) return PrintCopy(firstPage, lastPage);
  const auto self = weak_from_this().lock();
  BeginSeries(1);
  try {
    PrintCopy(firstPage, lastPage);
  } catch (...) {
    EndSeries();
    throw;
  }
  EndSeries();
}

void NativeEngine::PrintCopy(std::int16_t firstPage, std::int16_t lastPage) {
  series_->Print(
      [&](const PrintWatcher& watcher) { return SendCopy(firstPage, lastPage, watcher); });
}

SentJobs NativeEngine::SendCopy(std::int16_t firstPage, std::int16_t lastPage,
                                const PrintWatcher& watcher) {
  if (!IsComplete()) throw Error(ErrorNumber::NoDocument, "Er is geen afgesloten document");
  RequireWhole();
  const std::int32_t first = std::max<std::int32_t>(firstPage, 1);
  const std::int32_t last = std::min<std::int32_t>(lastPage, document_->PageCount());
  if (first > last) {
    throw Error(ErrorNumber::PageOutOfRange, "Het document heeft geen pagina's " +
                                                 std::to_string(firstPage) + " tot en met " +
                                                 std::to_string(lastPage));
  }
  return SendPages({.printer = {}, .copies = copies_, .firstPage = first, .lastPage = last},
                   watcher);
}

// The document is held as it is, and so is the engine: in the window that follows the job the user
// acts, and the host may act too.
SentJobs NativeEngine::SendPages(const PrintRequest& request, const PrintWatcher& watcher) {
  const auto self = weak_from_this().lock();
  const Stage before = std::exchange(stage_, Stage::Printing);
  try {
    SentJobs jobs = printers_.Print(*document_, request, watcher);
    stage_ = before;
    return jobs;
  } catch (...) {
    stage_ = before;
    throw;
  }
}

}  // namespace pagivo::native
