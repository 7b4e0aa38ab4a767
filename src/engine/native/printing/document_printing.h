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
  std::int32_t page = 0;       // the page being printed, from 1 among those that are printed
  std::int32_t pageCount = 0;  // counts those of every copy that is sent for itself
};

// Is asked before each page is printed, and many times a second while the server is silent; false
// cancels the printing.
using PrintWatcher = std::function<bool(const PrintProgress&)>;

// Jobs that a server has accepted.
using SentJobs = std::vector<std::unique_ptr<PrintJob>>;

// Gives the server the pages one by one: as one job when all have the same paper, however they are
// turned, else as a job for each run of pages on the same paper, for a job has only one paper.
// Raises ErrorNumber::PrinterFailure; every job that was sent is then taken back. `watcher` may be
// empty.
SentJobs PrintPages(PrintServer& server, const Document& document, const PrintRequest& request,
                    const PrintWatcher& watcher);

// Cancels the jobs and tells the server. What is on paper already stays there.
void TakeBackJobs(PrintServer& server, const SentJobs& jobs) noexcept;

}  // namespace pagivo::native
