// What printing costs: from PrintDoc until the print server has accepted the job, by number of
// pages, beside the same pages through Qt's QPrinter to the same server. The server is one of this
// program's own; its queue is paused, so that nothing is measured but sending. Times are those of
// the clock, for the server takes part; read them as ratios within one run.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "compose_report.h"
#include "pagivo/pg_print.h"
#include "peak_memory.h"
#include "peer_qt.h"
#include "preview/preview_form.h"
#include "report_page.h"
#include "support/printing/test_print_server.h"

namespace pagivo::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kPrinter = TestPrintServer::kColorPrinter;

TestPrintServer& Server() {
  static TestPrintServer server;
  return server;
}

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

int PagesOf(const benchmark::State& state) {
  return static_cast<int>(state.range(0));
}

// Prints all report pages of the document that was composed last.
void PrintComposed(int pages) {
  PreviewForm().vsPrint()->PrintDoc(false, 1, static_cast<std::int16_t>(pages));
}

// A printer of Qt's, which draws while it writes and sends when it has written.
class QtPrinter {
 public:
  QtPrinter() {
    static int argumentCount = 0;
    static const QGuiApplication application(argumentCount, nullptr);
    printer_.emplace(QPrinter::HighResolution);
    printer_->setPrinterName(kPrinter);
    printer_->setPageSize(QPageSize(QPageSize::A4));
    printer_->setFullPage(true);
  }

  void Print(int pages) {
    QPainter painter(&*printer_);
    const double scale = printer_->width() / kPageWidth;
    painter.scale(scale, scale);
    for (int number = 0; number < pages; ++number) {
      if (number > 0) printer_->newPage();
      DrawReportPageWithQt(painter, number);
    }
  }

 private:
  std::optional<QPrinter> printer_;
};

// Of the one job that the server must have now, which is then forgotten.
void CountJob(benchmark::State& state) {
  if (Server().WaitingJobs().size() != 1) state.SkipWithError("no job has been accepted");
  state.counters["job_bytes_per_page"] =
      static_cast<double>(Server().DocumentBytes()) / PagesOf(state);
  Server().CancelAllJobs();
}

// Beside each whole time the time until the server has the first bytes of the document.
void TimeJobs(benchmark::State& state, const std::function<void()>& print) {
  double untilFirstBytes = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    std::jthread watcher([&](const std::stop_token& end) {
      while (!end.stop_requested() && Server().DocumentBytes() == 0) {
        std::this_thread::sleep_for(std::chrono::microseconds(500));
      }
      untilFirstBytes += SecondsSince(start);
    });
    print();
    state.SetIterationTime(SecondsSince(start));
    watcher = {};
    CountJob(state);
  }
  state.counters["first_bytes_ms"] =
      benchmark::Counter(untilFirstBytes * 1000, benchmark::Counter::kAvgIterations);
  state.counters["per_page"] = benchmark::Counter(
      PagesOf(state), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The document is there.
void Print(benchmark::State& state) {
  PgPrint print;
  ComposeReport(print, PagesOf(state));
  TimeJobs(state, [&] { PrintComposed(PagesOf(state)); });
  print.VsPPEinde();
}

void ComposeAndPrint(benchmark::State& state) {
  PgPrint print;
  TimeJobs(state, [&] {
    ComposeReport(print, PagesOf(state));
    PrintComposed(PagesOf(state));
  });
  print.VsPPEinde();
}

void DrawAndPrintWithQt(benchmark::State& state) {
  QtPrinter printer;
  TimeJobs(state, [&] { printer.Print(PagesOf(state)); });
}

void MemoryOfComposing(benchmark::State& state) {
  PeakMemory(state, [&] {
    PgPrint print;
    ComposeReport(print, PagesOf(state));
  });
}

void MemoryOfComposingAndPrinting(benchmark::State& state) {
  PeakMemory(state, [&] {
    PgPrint print;
    ComposeReport(print, PagesOf(state));
    PrintComposed(PagesOf(state));
  });
  CountJob(state);
}

void MemoryOfDrawingAndPrintingWithQt(benchmark::State& state) {
  PeakMemory(state, [&] { QtPrinter().Print(PagesOf(state)); });
  CountJob(state);
}

constexpr int kManyPages = 30'000;

#define PAGIVO_BENCHMARK(function) BENCHMARK(function)->Unit(benchmark::kMillisecond)
#define PAGIVO_TIMED_BENCHMARK(function) \
  PAGIVO_BENCHMARK(function)->UseManualTime()->Arg(10)->Arg(1000)->Arg(20'000)

// First, while this process is small.
PAGIVO_BENCHMARK(MemoryOfComposing)->Arg(kManyPages)->Iterations(1);
PAGIVO_BENCHMARK(MemoryOfComposingAndPrinting)->Arg(kManyPages)->Iterations(1);
PAGIVO_BENCHMARK(MemoryOfDrawingAndPrintingWithQt)->Arg(kManyPages)->Iterations(1);

PAGIVO_TIMED_BENCHMARK(Print);
PAGIVO_TIMED_BENCHMARK(ComposeAndPrint);
PAGIVO_TIMED_BENCHMARK(DrawAndPrintWithQt);

}  // namespace
}  // namespace pagivo::bench

int main(int argc, char** argv) {
  // Qt needs no display for this.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  pagivo::UsePrintServer(pagivo::bench::Server().Address());
  pagivo::bench::Server().Pause(pagivo::bench::kPrinter);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
