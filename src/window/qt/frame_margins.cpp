#include "window/qt/frame_margins.h"

#include <QApplication>
#include <QStyle>
#include <map>

namespace pagivo::qt {

namespace {

std::map<bool, QMargins>& Seen() {
  static std::map<bool, QMargins> frames;
  return frames;
}

QMargins Guess() {
  const QString platform = QGuiApplication::platformName();
  // What Qt frames windows with that are drawn into memory.
  if (platform == QLatin1String("offscreen")) return {2, 2, 2, 2};
  if (platform != QLatin1String("xcb") && !platform.startsWith(QLatin1String("wayland"))) return {};
  return {1, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight), 1, 1};
}

}  // namespace

QMargins ExpectedFrame(bool sizable) {
  const auto frame = Seen().find(sizable);
  return frame == Seen().end() ? Guess() : frame->second;
}

void RememberFrame(bool sizable, const QMargins& frame) {
  Seen()[sizable] = frame;
}

}  // namespace pagivo::qt
