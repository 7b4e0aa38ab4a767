#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <clocale>
#include <memory>
#include <string>

#include "pagivo/error.h"
#include "pagivo/qt_windows.h"
#include "platform/platform.h"
#include "values/process_wide.h"
#include "window/qt/display.h"
#include "window/qt/qt_windows.h"

namespace pagivo {

namespace {

// Qt sets the process's C locale to the user's, on which a host's own number formats would depend.
class LocaleKeeper {
 public:
  LocaleKeeper() : locale_(std::setlocale(LC_ALL, nullptr)) {}
  ~LocaleKeeper() { std::setlocale(LC_ALL, locale_.c_str()); }
  LocaleKeeper(const LocaleKeeper&) = delete;
  LocaleKeeper& operator=(const LocaleKeeper&) = delete;

 private:
  std::string locale_;
};

// What Qt says of itself, as in the menu of a text box. A host's own application has its own
// choice.
void SpeakDutch(QApplication& application) {
  auto* dutch = new QTranslator(&application);
  if (dutch->load(QStringLiteral("qtbase_nl"),
                  QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(dutch);
  }
}

void MakeApplication() {
  if (!qt::HasDisplay()) {
    throw Error(ErrorNumber::InvalidArgument,
                "Er is geen beeldscherm om vensters op te tonen: Qt vindt geen X-server of "
                "Wayland-compositor");
  }
  static int count = 1;
  static char name[] = "pagivo";
  static char* arguments[] = {name, nullptr};
  const LocaleKeeper keeper;
  auto& application = ProcessWide<QApplication>([] { return new QApplication(count, arguments); });
  application.setQuitOnLastWindowClosed(false);
  SpeakDutch(application);
}

void EnsureApplication() {
  const QCoreApplication* application = QCoreApplication::instance();
  if (application == nullptr) return MakeApplication();
  if (qobject_cast<const QApplication*>(application) == nullptr) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het toepassingsobject van het hoofdprogramma is geen QApplication en kan geen "
                "vensters tonen");
  }
}

}  // namespace

void UseQtWindows() {
  Platform platform = CurrentPlatform();
  // Without fonts a preview would show empty pages.
  if (platform.requireFonts) platform.requireFonts();
  EnsureApplication();
  if (std::dynamic_pointer_cast<QtWindows>(platform.windows)) return;
  platform.windows = std::make_shared<QtWindows>();
  UsePlatform(std::move(platform));
}

}  // namespace pagivo
