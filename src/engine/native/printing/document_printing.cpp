#include "engine/native/printing/document_printing.h"

#include <memory>
#include <vector>

#include "engine/native/spool/print_failures.h"

namespace pagivo::native {
namespace {

// Pages that follow each other on the same paper.
struct PaperRun {
  std::int32_t firstPage = 0;
  std::int32_t lastPage = 0;
  PageGeometry geometry;  // of the first page
};

MediaSize PaperOf(const PageGeometry& page) {
  return UprightSize(page.width, page.height);
}

std::vector<PaperRun> PaperRuns(const Document& document, std::int32_t firstPage,
                                std::int32_t lastPage) {
  std::vector<PaperRun> runs;
  for (std::int32_t page = firstPage; page <= lastPage; ++page) {
    const PageGeometry& geometry = document.GeometryOf(page);
    if (runs.empty() || PaperOf(geometry) != PaperOf(runs.back().geometry)) {
      runs.push_back({.firstPage = page, .geometry = geometry});
    }
    runs.back().lastPage = page;
  }
  return runs;
}

class DocumentPrinter {
 public:
  DocumentPrinter(PrintServer& server, const Document& document, const PrintRequest& request,
                  const PrintWatcher& watcher)
      : server_(server), document_(document), request_(request), watcher_(watcher) {
    progress_.pageCount = request.lastPage - request.firstPage + 1;
  }

  void Print() {
    const std::vector<PaperRun> runs = PaperRuns(document_, request_.firstPage, request_.lastPage);
    if (runs.size() == 1) {
      PrintRun(runs.front(), request_.copies);
    } else {
      PrintCollated(runs);
    }
  }

  // The jobs that were sent so far.
  SentJobs& Jobs() noexcept { return jobs_; }

 private:
  // Copies of several jobs come out as whole sets only when each is sent for itself.
  void PrintCollated(const std::vector<PaperRun>& runs) {
    progress_.pageCount *= request_.copies;
    for (int copy = 1; copy <= request_.copies; ++copy) {
      for (const PaperRun& run : runs) PrintRun(run, 1);
    }
  }

  void PrintRun(const PaperRun& run, int copies) {
    PrintJob& job = *jobs_.emplace_back(server_.OpenJob(
        TicketFor(run, copies), [this] { return !watcher_ || watcher_(progress_); }));
    for (std::int32_t page = run.firstPage; page <= run.lastPage; ++page) {
      NextPage();
      job.PrintPage(document_, page);
    }
    job.Finish();
  }

  JobTicket TicketFor(const PaperRun& run, int copies) {
    const auto& [width, height] = run.geometry;
    JobTicket ticket{.printer = request_.printer,
                     .title = document_.Title(),
                     .copies = copies,
                     .size = PaperOf(run.geometry),
                     .margins = {}};
    if (const auto medium = FindMedium(server_.MediaOf(request_.printer), width, height)) {
      ticket.size = medium->size;
      ticket.margins = medium->margins;
    }
    return ticket;
  }

  void NextPage() {
    ++progress_.page;
    if (watcher_ && !watcher_(progress_)) ThrowPrintingCancelled();
  }

  PrintServer& server_;
  const Document& document_;
  const PrintRequest& request_;
  const PrintWatcher& watcher_;
  PrintProgress progress_;
  SentJobs jobs_;
};

}  // namespace

SentJobs PrintPages(PrintServer& server, const Document& document, const PrintRequest& request,
                    const PrintWatcher& watcher) {
  DocumentPrinter printer(server, document, request, watcher);
  try {
    printer.Print();
    return std::move(printer.Jobs());
  } catch (...) {
    TakeBackJobs(server, printer.Jobs());
    throw;
  }
}

void TakeBackJobs(PrintServer& server, const SentJobs& jobs) noexcept {
  for (const auto& job : jobs) job->Cancel();
  server.TellOfCancelledJobs(PrintServer::kPatienceOfUser);
}

}  // namespace pagivo::native
