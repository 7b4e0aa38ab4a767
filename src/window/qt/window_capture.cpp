// QtWindows' pictures of windows.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <cstring>

#include "pagivo/error.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/qt_windows.h"
#include "window/qt/x11_capture.h"

namespace pagivo {

namespace {

// Where a widget is transparent the paper shows.
QImage OnWhite(const QImage& image) {
  if (image.isNull()) return image;
  QImage opaque(image.size(), QImage::Format_RGB32);
  opaque.fill(Qt::white);
  QPainter(&opaque).drawImage(opaque.rect(), image);
  return opaque;
}

// As sharp as its screen has it, also what other windows cover.
WindowImage CaptureWidget(QWidget& widget) {
  const QImage image = OnWhite(widget.grab().toImage());
  WindowImage captured{
      .width = image.width(),
      .height = image.height(),
      .pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(image.width()) *
                                           static_cast<std::size_t>(image.height())),
      .size = {.width = qt::ToTwips(widget.width()), .height = qt::ToTwips(widget.height())}};
  std::uint32_t* row = captured.pixels.data();
  for (int y = 0; y < image.height(); ++y, row += image.width()) {
    std::memcpy(row, image.constScanLine(y),
                static_cast<std::size_t>(image.width()) * sizeof(std::uint32_t));
  }
  return captured;
}

// Null on other window systems.
xcb_connection_t* X11Connection() {
#if QT_CONFIG(xcb)
  const auto* application =
      qGuiApp == nullptr ? nullptr : qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return application == nullptr ? nullptr : application->connection();
#else
  return nullptr;
#endif
}

}  // namespace

// Handles are Longs; those of an X server are unsigned.
WindowImage QtWindows::CaptureWindow(std::int32_t handle) {
  const auto number = static_cast<std::uint32_t>(handle);
  if (QWidget* widget = QWidget::find(WId{number}); widget != nullptr) {
    return CaptureWidget(*widget);
  }
  xcb_connection_t* connection = X11Connection();
  if (connection == nullptr) {
    throw Error(ErrorNumber::InvalidArgument, "Er is geen venster " + std::to_string(handle));
  }
  return qt::CaptureX11Window(*connection, number,
                              QGuiApplication::primaryScreen()->devicePixelRatio());
}

}  // namespace pagivo
