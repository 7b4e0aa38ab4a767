#include "window/qt/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>
#include <QStringList>
#include <algorithm>
#include <cstring>

#include "system/descriptor.h"

namespace pagivo::qt {

namespace {

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

}  // namespace

bool HasDisplay() {
  return std::ranges::any_of(CandidatePlatforms(), [](const QString& platform) {
    return IsReached(platform) && HasPlugin(platform);
  });
}

}  // namespace pagivo::qt
