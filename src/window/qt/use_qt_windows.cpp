#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <QStringList>
#include <QTranslator>
#include <algorithm>
#include <clocale>
#include <cstring>
#include <memory>
#include <string>

#include "pagivo/error.h"
#include "pagivo/qt_windows.h"
#include "platform/platform.h"
#include "system/posix/descriptor.h"
#include "values/process_wide.h"
#include "window/qt/qt_windows.h"

namespace pagivo {

namespace {

// --- The display --------------------------------------------------------------------------------

QString FromEnvironment(const char* name) {
  return qEnvironmentVariable(name);
}

// The platforms that Qt will try, as names without their options, in order.
QStringList CandidatePlatforms() {
  QStringList names;
  for (const QString& choice :
       FromEnvironment("QT_QPA_PLATFORM").split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
    names << choice.section(QLatin1Char(':'), 0, 0).toLower();
  }
  if (names.isEmpty()) names << QStringLiteral("xcb") << QStringLiteral("wayland");
  return names;
}

// Loading it also finds out whether the libraries that it needs are there.
bool HasPlugin(const QString& platform) {
  QStringList folders = QCoreApplication::libraryPaths();
  const QString own = FromEnvironment("QT_QPA_PLATFORM_PLUGIN_PATH");
  std::ranges::for_each(folders, [](QString& folder) { folder += QLatin1String("/platforms"); });
  if (!own.isEmpty()) folders.prepend(own);
  for (const QString& folder : folders) {
    const QDir plugins(folder);
    for (const QString& file : plugins.entryList({QStringLiteral("libq%1*.so").arg(platform)})) {
      if (QPluginLoader(plugins.filePath(file)).load()) return true;
    }
  }
  return false;
}

bool ReachesXServer() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool isReached = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return isReached;
}

// The socket of the compositor: a name in the user's run-time folder, or a whole path.
QByteArray WaylandSocket() {
  const QString display = FromEnvironment("WAYLAND_DISPLAY");
  const QString name = display.isEmpty() ? QStringLiteral("wayland-0") : display;
  if (name.startsWith(QLatin1Char('/'))) return name.toLocal8Bit();
  const QString folder = FromEnvironment("XDG_RUNTIME_DIR");
  return folder.isEmpty() ? QByteArray() : (folder + QLatin1Char('/') + name).toLocal8Bit();
}

bool ReachesWaylandCompositor() {
  const QByteArray path = WaylandSocket();
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.isEmpty() || path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
    return false;
  std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
  const Descriptor compositor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  return compositor && connect(compositor.Number(), reinterpret_cast<const sockaddr*>(&address),
                               sizeof address) == 0;
}

bool IsReached(const QString& platform) {
  if (platform == QLatin1String("xcb")) return ReachesXServer();
  if (platform.startsWith(QLatin1String("wayland"))) return ReachesWaylandCompositor();
  // These draw into memory. All others want devices that a desktop program does not have.
  return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal") ||
         platform == QLatin1String("vnc");
}

// Qt ends the process when it finds no display, so this is asked beforehand: whether one of the
// platforms that the environment names can be reached and has its plug-in.
bool HasDisplay() {
  return std::ranges::any_of(CandidatePlatforms(), [](const QString& platform) {
    return IsReached(platform) && HasPlugin(platform);
  });
}

// --- The application ----------------------------------------------------------------------------

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
  if (!HasDisplay()) {
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
