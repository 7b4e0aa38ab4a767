// A host that keeps its PgPrint for as long as it runs, so that what its users set up is in force
// for the next letter. Each letter has five pages with their numbers on them. With any argument it
// shows a letter at once.
#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <string>

#include "pagivo/pg_print.h"
#include "pagivo/qt_windows.h"

namespace {

constexpr int kPages = 5;
constexpr int kWidth = 640;
constexpr int kHeight = 480;

void ComposeLetter(pagivo::PgPrint& print, QWidget& window) {
  print.VsPPInit();
  print.VsPPStart(pagivo::MakeHostForm(window));
  for (int page = 1; page <= kPages; ++page) {
    print.VsPPPrint("Blad " + std::to_string(page), 1440.0, 1440.0);
    print.VsPPNewPage();
  }
  print.VsPPFinish("Brief");
}

void ShowLetter(pagivo::PgPrint& print, QWidget& window) {
  ComposeLetter(print, window);
  print.VsPreviewFile(1);
}

template <typename Action>
void AddButton(QWidget& window, const QString& caption, Action action) {
  auto* button = new QPushButton(caption);
  window.layout()->addWidget(button);
  QObject::connect(button, &QPushButton::clicked, &window, action);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  pagivo::UseQtWindows();
  pagivo::PgPrint print;
  QWidget window;
  window.setWindowTitle("Kantoor");
  window.resize(kWidth, kHeight);
  window.setLayout(new QVBoxLayout);
  AddButton(window, "&Voorbeeld", [&] { ShowLetter(print, window); });
  AddButton(window, "&Printer...", [&] { print.VsPPPrinterSetup(); });
  window.show();
  if (argc > 1) ShowLetter(print, window);
  const int status = QApplication::exec();
  print.VsPPEinde();
  return status;
}
