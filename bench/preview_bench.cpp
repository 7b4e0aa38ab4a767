// What looking at a document costs, by number of pages: until the first page is there, turning
// pages, zooming, resizing, scrolling, and the memory of the bitmaps. Everything at whole-page view
// in 1280 x 900 pixels unless the name says more.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "compose_report.h"
#include "engine/native/native_engine.h"
#include "engine/native/view/preview_surface.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "window/headless/headless_windows.h"
#include "window/key_codes.h"

namespace pagivo::bench {
namespace {

using native::NativeEngine;
using native::PreviewSurface;

constexpr SurfaceArea kArea{.width = 1280, .height = 900};
constexpr int kMostPages = 32000;

// The composed report in the preview, without a window around it.
class Previewed {
 public:
  explicit Previewed(int pages, const SurfaceArea& area = kArea) {
    ComposeReport(print_, pages);
    surface_.emplace(dynamic_cast<NativeEngine&>(*PreviewForm().vsPrint()).GetPreview());
    PutArea(area);
  }
  ~Previewed() {
    surface_.reset();
    print_.VsPPEinde();
  }

  PrintEngine& Engine() const { return *PreviewForm().vsPrint(); }
  PreviewSurface& Surface() { return *surface_; }
  void PutArea(const SurfaceArea& area) {
    Surface().PutArea(area);
    area_ = area;
    pixels_.resize(static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height));
  }
  // To the next page or screenful, after the last one to the first again.
  void TurnOn() {
    const std::int16_t before = Engine().GetPreviewPage();
    Surface().PressKey(kKeyPageDown, 0);
    if (Engine().GetPreviewPage() == before) Surface().PressKey(kKeyHome, 0);
  }
  void Paint() {
    Surface().Draw({area_.width, area_.height, pixels_}, {});
    benchmark::DoNotOptimize(pixels_.data());
  }

 private:
  PgPrint print_;
  std::optional<PreviewSurface> surface_;
  SurfaceArea area_;
  std::vector<std::uint32_t> pixels_;
};

void CountMemory(benchmark::State& state, Previewed& previewed) {
  const native::BitmapCache& bitmaps = previewed.Surface().Bitmaps();
  state.counters["kept_MiB"] = static_cast<double>(bitmaps.Bytes()) / (1 << 20);
}

// From the host's call until the first page's pixels are there; the window itself is one without a
// display.
void FirstPage(benchmark::State& state) {
  PgPrint print;
  auto& windows = dynamic_cast<HeadlessWindows&>(*CurrentPlatform().windows);
  std::vector<std::uint32_t> pixels;
  for (auto _ : state) {
    ComposeReport(print, static_cast<int>(state.range(0)));
    double seconds = 0;
    const auto start = std::chrono::steady_clock::now();
    windows.AddScript([&](Form&) {
      const auto content = PreviewForm().PreviewSurface().Content();
      content->PutArea(kArea);
      pixels.resize(std::size_t{1280} * 900);
      content->Draw({kArea.width, kArea.height, pixels}, {});
      seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    });
    std::int16_t page = 1;
    print.VsPreviewFile(page);
    state.SetIterationTime(seconds);
    print.VsPPEinde();
  }
}

void TurnAndPaint(benchmark::State& state, Previewed& previewed) {
  for (auto _ : state) {
    previewed.TurnOn();
    previewed.Paint();
  }
  CountMemory(state, previewed);
}

void TurnPage(benchmark::State& state) {
  Previewed previewed(static_cast<int>(state.range(0)));
  TurnAndPaint(state, previewed);
}

void TurnPageOnADenseScreen(benchmark::State& state) {
  Previewed previewed(static_cast<int>(state.range(0)), {2560, 1800, 2});
  TurnAndPaint(state, previewed);
}

void TurnBackToAPageThatIsKept(benchmark::State& state) {
  Previewed previewed(static_cast<int>(state.range(0)));
  std::int16_t key = kKeyPageDown;
  for (auto _ : state) {
    previewed.Surface().PressKey(key, 0);
    previewed.Paint();
    key = key == kKeyPageDown ? kKeyPageUp : kKeyPageDown;
  }
}

void TurnOverview(benchmark::State& state) {
  Previewed previewed(static_cast<int>(state.range(0)));
  previewed.Engine().PutZoomMode(kZoomOverview);
  TurnAndPaint(state, previewed);
}

// Each time a percentage that was not shown before.
void ChangeZoom(benchmark::State& state) {
  Previewed previewed(static_cast<int>(state.range(0)));
  double percent = 50;
  for (auto _ : state) {
    percent = percent < 150 ? percent + 0.37 : 50.11;
    previewed.Engine().PutZoom(percent);
    previewed.Paint();
  }
  CountMemory(state, previewed);
}

// As while the window's corner is dragged.
void Resize(benchmark::State& state) {
  Previewed previewed(static_cast<int>(state.range(0)));
  std::int32_t smaller = 0;
  for (auto _ : state) {
    smaller = (smaller + 1) % 400;
    previewed.PutArea({kArea.width - smaller, kArea.height - smaller});
    previewed.Engine().PutZoomMode(kZoomWholePage);
    previewed.Paint();
  }
  CountMemory(state, previewed);
}

// Down the page and on to the next ones, a line at a time.
void Scroll(benchmark::State& state) {
  Previewed previewed(1000);
  previewed.Engine().PutZoom(static_cast<double>(state.range(0)));
  for (auto _ : state) {
    previewed.Surface().TurnWheel({640, 450}, 0, -1.0 / 3, 0);
    previewed.Paint();
  }
  CountMemory(state, previewed);
}

#define PAGIVO_BENCHMARK(function) BENCHMARK(function)->Unit(benchmark::kMicrosecond)

PAGIVO_BENCHMARK(FirstPage)->Arg(10)->Arg(1000)->Arg(kMostPages)->UseManualTime()->Iterations(5);
PAGIVO_BENCHMARK(TurnPage)->Arg(10)->Arg(1000)->Arg(kMostPages);
PAGIVO_BENCHMARK(TurnPageOnADenseScreen)->Arg(1000);
PAGIVO_BENCHMARK(TurnBackToAPageThatIsKept)->Arg(1000);
PAGIVO_BENCHMARK(TurnOverview)->Arg(10)->Arg(1000)->Arg(kMostPages);
PAGIVO_BENCHMARK(ChangeZoom)->Arg(10)->Arg(1000)->Arg(kMostPages);
PAGIVO_BENCHMARK(Resize)->Arg(10)->Arg(1000)->Arg(kMostPages);
PAGIVO_BENCHMARK(Scroll)->Arg(100)->Arg(1000);

}  // namespace
}  // namespace pagivo::bench

BENCHMARK_MAIN();
