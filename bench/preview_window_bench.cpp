// The preview as a window, beside Qt's own preview widget on the same report: until it is painted
// for the first time, and turning a page. Both in Qt, 1280 x 900 pixels for the pages, the whole
// page, and painted at once.
#include <benchmark/benchmark.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTimer>
#include <chrono>
#include <functional>

#include "compose_report.h"
#include "pagivo/qt_windows.h"
#include "peer_qt.h"
#include "report_page.h"

namespace pagivo::bench {
namespace {

constexpr QSize kPagesArea{1280, 900};

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Where a scroll area shows what it holds; null for any other object.
QAbstractScrollArea* AreaOfViewport(QObject* object) {
  auto* area = qobject_cast<QAbstractScrollArea*>(object->parent());
  return area != nullptr && area->viewport() == object ? area : nullptr;
}

// Runs something once after pages were painted for the first time.
class FirstPaint final : public QObject {
 public:
  using Handler = std::function<void(QAbstractScrollArea& area)>;

  explicit FirstPaint(Handler handler) : handler_(std::move(handler)) {
    qApp->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || seen_) return false;
    QAbstractScrollArea* area = AreaOfViewport(watched);
    if (area == nullptr) return false;
    seen_ = true;
    // When the painting that begins now is over.
    QTimer::singleShot(0, this, [this, area] { handler_(*area); });
    return false;
  }

 private:
  Handler handler_;
  bool seen_ = false;
};

void FitPagesArea(QAbstractScrollArea& area) {
  area.window()->resize(area.window()->size() + kPagesArea - area.viewport()->size());
  QApplication::processEvents();
}

// Shows the composed report and does something when it has been painted.
void ShowPreview(PgPrint& print, const FirstPaint::Handler& painted) {
  const FirstPaint first([&](QAbstractScrollArea& area) {
    painted(area);
    area.window()->close();
  });
  std::int16_t page = 1;
  print.VsPreviewFile(page);
}

// The same in Qt, which asks for the pages when it is shown.
void ShowQtPreview(int pages, const std::function<void(QPrintPreviewWidget& preview)>& painted) {
  QPrinter printer;
  printer.setFullPage(true);
  printer.setPageSize(QPageSize(QPageSize::A4));
  QPrintPreviewWidget preview(&printer);
  QObject::connect(&preview, &QPrintPreviewWidget::paintRequested, [pages](QPrinter* target) {
    QPainter painter(target);
    const double scale = target->width() / kPageWidth;
    for (int number = 0; number < pages; ++number) {
      if (number > 0) target->newPage();
      painter.resetTransform();
      painter.scale(scale, scale);
      DrawReportPageWithQt(painter, number);
    }
  });
  preview.resize(kPagesArea);
  QEventLoop loop;
  const FirstPaint first([&](QAbstractScrollArea&) {
    painted(preview);
    loop.quit();
  });
  preview.show();
  loop.exec();
}

// From the host's call; the document is there.
void ShowPagivo(benchmark::State& state) {
  PgPrint print;
  for (auto _ : state) {
    ComposeReport(print, static_cast<int>(state.range(0)));
    const auto start = Clock::now();
    ShowPreview(print, [&](QAbstractScrollArea&) { state.SetIterationTime(SecondsSince(start)); });
    print.VsPPEinde();
  }
}

void ComposeAndShowPagivo(benchmark::State& state) {
  PgPrint print;
  for (auto _ : state) {
    const auto start = Clock::now();
    ComposeReport(print, static_cast<int>(state.range(0)));
    ShowPreview(print, [&](QAbstractScrollArea&) { state.SetIterationTime(SecondsSince(start)); });
    print.VsPPEinde();
  }
}

void ComposeAndShowQt(benchmark::State& state) {
  for (auto _ : state) {
    const auto start = Clock::now();
    ShowQtPreview(static_cast<int>(state.range(0)),
                  [&](QPrintPreviewWidget&) { state.SetIterationTime(SecondsSince(start)); });
  }
}

// As the user does it, with a key.
void TurnPagePagivo(benchmark::State& state) {
  PgPrint print;
  const int pages = static_cast<int>(state.range(0));
  ComposeReport(print, pages);
  ShowPreview(print, [&](QAbstractScrollArea& area) {
    FitPagesArea(area);
    int page = 1;
    for (auto _ : state) {
      page = page % pages + 1;
      QKeyEvent key(QEvent::KeyPress, page == 1 ? Qt::Key_Home : Qt::Key_PageDown, Qt::NoModifier);
      QApplication::sendEvent(&area, &key);
      area.viewport()->repaint();
    }
  });
  print.VsPPEinde();
}

void TurnPageQt(benchmark::State& state) {
  const int pages = static_cast<int>(state.range(0));
  ShowQtPreview(pages, [&](QPrintPreviewWidget& preview) {
    auto& area = *preview.findChild<QAbstractScrollArea*>();
    preview.fitInView();
    QApplication::processEvents();
    int page = 1;
    for (auto _ : state) {
      page = page % pages + 1;
      preview.setCurrentPage(page);
      area.viewport()->repaint();
    }
  });
}

#define PAGIVO_BENCHMARK(function) BENCHMARK(function)->Unit(benchmark::kMicrosecond)

PAGIVO_BENCHMARK(ShowPagivo)->Arg(10)->Arg(1000)->Arg(32000)->UseManualTime()->Iterations(5);
PAGIVO_BENCHMARK(ComposeAndShowPagivo)->Arg(10)->Arg(1000)->UseManualTime()->Iterations(3);
PAGIVO_BENCHMARK(ComposeAndShowQt)->Arg(10)->Arg(1000)->UseManualTime()->Iterations(3);
PAGIVO_BENCHMARK(TurnPagePagivo)->Arg(10)->Arg(1000);
PAGIVO_BENCHMARK(TurnPageQt)->Arg(10)->Arg(1000);

}  // namespace
}  // namespace pagivo::bench

int main(int argc, char** argv) {
  // Figures of drawing, not of a display.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  pagivo::UseQtWindows();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
