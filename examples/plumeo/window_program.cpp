#include "window_program.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPixmap>
#include <QTranslator>

#include "pagivo/qt_windows.h"
#include "window_main.h"

namespace plumeo {
namespace {

// The mark at the left of the logo.
QIcon ProgramIcon(const std::string& pictureFolder) {
  const QPixmap logo(QString::fromStdString(pictureFolder + "/logo.png"));
  return logo.copy(25, 0, logo.height(), logo.height());
}

}  // namespace

void UseWindows() {
  pagivo::UseQtWindows();
}

void RunMainWindow(const Project& project, const Results& results, const ReportOptions& options) {
  QApplication::setApplicationName("Plumeo");
  QApplication::setQuitOnLastWindowClosed(true);
  QApplication::setWindowIcon(ProgramIcon(options.pictureFolder));
  QLocale::setDefault(QLocale(QLocale::Dutch));
  QTranslator dutch;  // of Qt's own file dialog and buttons
  if (dutch.load("qtbase_nl", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&dutch);
  }
  MainWindow window(project, results, options);
  window.show();
  QApplication::exec();
}

}  // namespace plumeo
