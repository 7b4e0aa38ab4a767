// What a document costs: composing, exporting and drawing, by number of pages, beside the libraries
// that a host could use instead. Times are per page; read them as ratios within one run.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "compose_report.h"
#include "engine/native/native_engine.h"
#include "pagivo/page_image.h"
#include "peak_memory.h"
#include "peers.h"
#include "preview/preview_form.h"

namespace pagivo::bench {
namespace {

std::string TemporaryPdf() {
  return (std::filesystem::temp_directory_path() /
          ("pagivo_bench_" + std::to_string(getpid()) + ".pdf"))
      .string();
}

const native::Document& ComposedDocument() {
  return dynamic_cast<native::NativeEngine&>(*PreviewForm().vsPrint()).GetDocument();
}

void CountPages(benchmark::State& state) {
  state.counters["per_page"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void CountFileBytes(benchmark::State& state) {
  state.counters["file_bytes_per_page"] =
      static_cast<double>(std::filesystem::file_size(TemporaryPdf())) /
      static_cast<double>(state.range(0));
  std::filesystem::remove(TemporaryPdf());
}

void Compose(benchmark::State& state) {
  PgPrint print;
  for (auto _ : state) ComposeReport(print, static_cast<int>(state.range(0)));
  CountPages(state);
  state.counters["record_bytes_per_page"] =
      static_cast<double>(ComposedDocument().RecordBytes()) / static_cast<double>(state.range(0));
  print.VsPPEinde();
}

void Export(benchmark::State& state) {
  PgPrint print;
  ComposeReport(print, static_cast<int>(state.range(0)));
  for (auto _ : state) print.VSPDF(TemporaryPdf());
  CountPages(state);
  CountFileBytes(state);
  print.VsPPEinde();
}

template <int kDotsPerInch>
void KeptBitmap(benchmark::State& state) {
  PgPrint print;
  ComposeReport(print, static_cast<int>(state.range(0)));
  PageImage image;
  for (auto _ : state) {
    for (std::int32_t page = 1; page <= state.range(0); ++page) {
      DrawPageImage(page, kDotsPerInch, image);
    }
  }
  CountPages(state);
  print.VsPPEinde();
}

template <int kDotsPerInch>
void NewBitmap(benchmark::State& state) {
  PgPrint print;
  ComposeReport(print, static_cast<int>(state.range(0)));
  for (auto _ : state) {
    for (std::int32_t page = 1; page <= state.range(0); ++page) {
      benchmark::DoNotOptimize(DrawPageImage(page, kDotsPerInch));
    }
  }
  CountPages(state);
  print.VsPPEinde();
}

void ComposeAndExport(benchmark::State& state) {
  PgPrint print;
  for (auto _ : state) {
    ComposeReport(print, static_cast<int>(state.range(0)));
    print.VSPDF(TemporaryPdf());
  }
  CountPages(state);
  CountFileBytes(state);
  print.VsPPEinde();
}

template <void (*Write)(int, const std::string&)>
void Peer(benchmark::State& state) {
  for (auto _ : state) Write(static_cast<int>(state.range(0)), TemporaryPdf());
  CountPages(state);
  CountFileBytes(state);
}

template <int kDotsPerInch>
void CairoBitmap(benchmark::State& state) {
  for (auto _ : state) {
    for (int page = 0; page < state.range(0); ++page) DrawReportPageWithCairo(page, kDotsPerInch);
  }
  CountPages(state);
}

void MemoryOfPagivo(benchmark::State& state) {
  PeakMemory(state, [&state] {
    PgPrint print;
    ComposeReport(print, static_cast<int>(state.range(0)));
    print.VSPDF(TemporaryPdf());
    std::filesystem::remove(TemporaryPdf());
  });
}

template <void (*Write)(int, const std::string&)>
void MemoryOfPeer(benchmark::State& state) {
  PeakMemory(state, [&state] {
    Write(static_cast<int>(state.range(0)), TemporaryPdf());
    std::filesystem::remove(TemporaryPdf());
  });
}

constexpr int kMostPages = 32766;

#define PAGIVO_BENCHMARK(function) BENCHMARK(function)->Unit(benchmark::kMillisecond)

// First, while this process is small: a child's peak starts at its parent's size.
PAGIVO_BENCHMARK(MemoryOfPagivo)->Arg(5000)->Arg(kMostPages)->Iterations(1);
PAGIVO_BENCHMARK(MemoryOfPeer<WriteReportWithHaru>)->Arg(5000)->Iterations(1);
PAGIVO_BENCHMARK(MemoryOfPeer<WriteReportWithCairo>)->Arg(5000)->Iterations(1);

PAGIVO_BENCHMARK(ComposeAndExport)->Arg(1000)->Arg(5000);
PAGIVO_BENCHMARK(Peer<WriteReportWithHaru>)->Arg(1000)->Arg(5000);
PAGIVO_BENCHMARK(Peer<WriteReportWithCairo>)->Arg(1000);

PAGIVO_BENCHMARK(Compose)->Arg(100)->Arg(1000)->Arg(5000)->Arg(20000)->Arg(kMostPages);
PAGIVO_BENCHMARK(Export)->Arg(100)->Arg(1000)->Arg(5000)->Arg(20000)->Arg(kMostPages);
PAGIVO_BENCHMARK(KeptBitmap<96>)->Arg(100)->Arg(1000)->Arg(20000);
PAGIVO_BENCHMARK(KeptBitmap<144>)->Arg(100);
PAGIVO_BENCHMARK(NewBitmap<96>)->Arg(100);
PAGIVO_BENCHMARK(NewBitmap<144>)->Arg(100);
PAGIVO_BENCHMARK(CairoBitmap<96>)->Arg(100);
PAGIVO_BENCHMARK(CairoBitmap<144>)->Arg(100);

}  // namespace
}  // namespace pagivo::bench

BENCHMARK_MAIN();
