// A document's pages, sent to a printer.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/native/document/document.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

struct PrintRequest {
  std::string printer;
  int copies = 1;
  // From 1, both inclusive; they must exist.
  std::int32_t firstPage = 1;
  std::int32_t lastPage = 1;
};

struct PrintProgress {
  std::int32_t page = 0;       // of the pages that are printed, the one being written; from 1
  std::int32_t pageCount = 0;  // those of every copy that is sent for itself
};

// Told before each page is written, and many times a second while the server is silent;
// false cancels the printing.
using PrintWatcher = std::function<bool(const PrintProgress&)>;

// Jobs that a server has accepted.
using SentJobs = std::vector<std::unique_ptr<PrintJob>>;

// Sends the pages as PDF while it is being written. One job when all pages have one paper, however
// they are turned; else a job for each run of pages of the same paper, as a job has only one.
// Raises ErrorNumber::PrinterFailure; every job that was sent is then taken back. `watcher` may be
// empty.
SentJobs PrintPages(PrintServer& server, const Document& document, const PrintRequest& request,
                    const PrintWatcher& watcher);

// What is on paper already stays there.
void TakeBackJobs(PrintServer& server, const SentJobs& jobs) noexcept;

}  // namespace pagivo::native
