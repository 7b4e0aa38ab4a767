#include "engine/native/printing/printing_series.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "engine/native/spool/print_failures.h"

namespace pagivo::native {

PrintingSeries::PrintingSeries(std::shared_ptr<WindowSystem> windows,
                               std::shared_ptr<PrintServer> server, PrintedDocument document,
                               std::int32_t copies)
    : server_(std::move(server)), window_(std::move(windows), document) {
  outcome_.printer = std::move(document.printer);
  outcome_.copies = copies;
}

void PrintingSeries::Print(const SendCopy& send) {
  if (ending_) std::rethrow_exception(ending_);
  try {
    Send(send);
  } catch (const PrintingCancelled& reason) {
    Note(kPrintingCancelled, reason);
    TakeBack();
    throw;
  } catch (const PrintingFailed& reason) {
    Note(kPrintingFailed, reason);
    advice_ = reason.Advice();
    throw;
  } catch (const std::exception& reason) {
    Note(kPrintingFailed, reason);
    throw;
  }
}

void PrintingSeries::Send(const SendCopy& send) {
  ++copy_;
  SentJobs sent = send([this](const PrintProgress& progress) {
    return window_.Continues({.copy = copy_,
                              .copies = outcome_.copies,
                              .page = std::max(progress.page, 1),
                              .pages = progress.pageCount});
  });
  std::ranges::move(sent, std::back_inserter(jobs_));
  ++outcome_.printedCopies;
  outcome_.result = kPrinted;
}

void PrintingSeries::Note(std::int16_t result, const std::exception& reason) {
  ending_ = std::current_exception();
  outcome_.result = result;
  outcome_.description = reason.what();
}

void PrintingSeries::TakeBack() noexcept {
  outcome_.printedCopies = 0;
  if (server_) TakeBackJobs(*server_, jobs_);
}

PrintCommandOutcome PrintingSeries::End() {
  if (outcome_.result == kPrintingFailed) {
    window_.TellFailure({.cause = outcome_.description,
                         .advice = advice_,
                         .copies = outcome_.copies,
                         .printedCopies = outcome_.printedCopies});
  }
  return std::move(outcome_);
}

}  // namespace pagivo::native
