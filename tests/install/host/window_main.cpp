#include <pagivo/pg_print.h>
#include <pagivo/qt_windows.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>

// Looks at the preview for a moment and closes it; succeeds when it was there.
int main() {
  pagivo::UseQtWindows();
  pagivo::PgPrint print;
  print.VsPPInit();
  print.VsPPNewPage();
  print.VsPPFinish("Eerste document");
  bool seen = false;
  QTimer::singleShot(0, [&seen] {
    QWidget* window = QApplication::activeModalWidget();
    seen = window != nullptr && window->windowTitle() == "Afdrukvoorbeeld Eerste document";
    if (seen) window->close();
  });
  print.VsPreviewFile(1);
  print.VsPPEinde();
  return seen ? 0 : 1;
}
