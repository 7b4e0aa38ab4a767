#include "window_main.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QScreen>
#include <QVBoxLayout>
#include <cstdint>
#include <exception>
#include <string>
#include <utility>

#include "dutch_numbers.h"
#include "pagivo/print_outcome.h"
#include "pagivo/qt_windows.h"
#include "window_overview.h"

namespace plumeo {
namespace {

constexpr int kWidth = 860;
constexpr int kHeight = 640;
constexpr int kFrame = 40;    // at most, in each direction
constexpr int kSpacing = 12;  // between the parts, from top to bottom

// The same report for the window it is shown over.
ReportOptions WithHost(ReportOptions options, QWidget& window) {
  options.hostForm = pagivo::MakeHostForm(window);
  return options;
}

QString BytesOf(const QString& path) {
  const auto kilobytes = static_cast<double>(QFileInfo(path).size()) / 1024;
  return QString::fromStdString(Fixed(kilobytes, 0)) + " kB";
}

// In the words of a status bar.
QString OutcomeOfPrinting() {
  pagivo::PrintReport report;
  if (report.PrintOutcome() != pagivo::kPrinted) {
    return "Niet afgedrukt: " + QString::fromStdString(report.Description());
  }
  return QString("Rapport afgedrukt op %1, %2 %3")
      .arg(QString::fromStdString(report.Printer()))
      .arg(report.Copies())
      .arg(report.Copies() == 1 ? "exemplaar" : "exemplaren");
}

}  // namespace

MainWindow::MainWindow(const Project& project, const Results& results, const ReportOptions& options)
    : project_(project),
      results_(results),
      options_(WithHost(options, *this)),
      status_(new QLabel("Berekening gereed")) {
  setWindowTitle("Plumeo");
  resize(QSize(kWidth, kHeight).boundedTo(screen()->availableSize() - QSize(kFrame, kFrame)));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(status_, 1);
  QPushButton* preview = MakeButton("&Voorbeeld", "Het rapport bekijken", &MainWindow::Preview);
  preview->setDefault(true);
  buttons->addWidget(preview);
  buttons->addWidget(MakeButton("&Afdrukken", "Het rapport afdrukken", &MainWindow::Print));
  buttons->addWidget(
      MakeButton("&PDF", "Het rapport als PDF-bestand opslaan", &MainWindow::WritePdf));
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(kSpacing);
  layout->addWidget(MakeHeading(project));
  layout->addWidget(MakeKeyFigures(project, results));
  layout->addWidget(MakeReceptorTable(project, results), 1);
  layout->addLayout(buttons);
  preview->setFocus();
}

QPushButton* MainWindow::MakeButton(const QString& caption, const QString& purpose,
                                    void (MainWindow::*action)()) {
  auto* button = new QPushButton(caption);
  button->setToolTip(purpose);
  button->setAccessibleName(QString(caption).remove('&'));
  button->setAccessibleDescription(purpose);
  connect(button, &QPushButton::clicked, this, [this, action] {
    try {
      (this->*action)();
    } catch (const std::exception& error) {
      QMessageBox::warning(this, windowTitle(), QString::fromUtf8(error.what()));
    }
  });
  return button;
}

void MainWindow::Preview() {
  WithReport([](pagivo::PgPrint& print) { print.VsPreviewFile(1); });
}

void MainWindow::Print() {
  WithReport([this](pagivo::PgPrint& print) {
    std::string device;
    int copies = 1;
    int from = 0;
    int to = 0;
    if (!print.VsPPPrinterDialog(device, copies, from, to).ToBoolean()) return;
    print.VsPrintFile(copies, from, to);
    Tell(OutcomeOfPrinting());
  });
}

void MainWindow::WritePdf() {
  const QString proposal = "Rapport " + QString::fromStdString(project_.texts.number) + ".pdf";
  const QString path =
      QFileDialog::getSaveFileName(this, "Rapport opslaan", proposal, "PDF-bestanden (*.pdf)");
  if (path.isEmpty()) return;
  WithReport([this, &path](pagivo::PgPrint& print) {
    print.VSPDF(path.toStdString());
    Tell(QString("%1 opgeslagen: %2 bladen, %3")
             .arg(QFileInfo(path).fileName())
             .arg(print.VsPPGetPageCount() - 1)
             .arg(BytesOf(path)));
  });
}

void MainWindow::WithReport(const std::function<void(pagivo::PgPrint& print)>& use) {
  pagivo::PgPrint print;
  ComposeReport(print, project_, results_, options_);
  try {
    use(print);
  } catch (...) {
    print.VsPPEinde();
    throw;
  }
  print.VsPPEinde();
}

}  // namespace plumeo
