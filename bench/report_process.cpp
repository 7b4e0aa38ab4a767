// A process that does nothing but write the report, by the library that PAGIVO_BENCH_WRITE names:
//
//   pagivo_report_process PAGES FILE [text]
//
// With "text" the pages have no picture, so that no file is read while they are composed.
//
// It prints the processor time of all of it, the start of the process included, in microseconds a
// page. report_processes.py runs several in turn.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string_view>

#include "compose_report.h"
#include "peers.h"
#include "report_page.h"

namespace pagivo::bench {
namespace {

// Since the process began.
double ProcessorSeconds() {
  timespec used{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

// What is written is the host's, and not counted.
double SecondsOfMakingPages(int pages) {
  const double before = ProcessorSeconds();
  ReportPages(pages);
  ReportPicturePath();
  return ProcessorSeconds() - before;
}

int Run(int pages, const char* fileName) {
  const double making = SecondsOfMakingPages(pages);
  PAGIVO_BENCH_WRITE(pages, fileName);
  std::printf("%.1f\n", (ProcessorSeconds() - making) * 1e6 / pages);
  return 0;
}

}  // namespace
}  // namespace pagivo::bench

int main(int count, char** arguments) {
  const int pages = count >= 3 ? std::atoi(arguments[1]) : 0;
  if (count == 4 && arguments[3] == std::string_view("text")) {
    pagivo::bench::LeaveOutReportPicture();
  }
  if (pages > 0) return pagivo::bench::Run(pages, arguments[2]);
  std::fprintf(stderr, "usage: %s PAGES FILE [text]\n", arguments[0]);
  return 2;
}
