#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "pagivo/error.h"
#include "window/qt/qt_windows.h"
#include "window/qt/units.h"

namespace pagivo {

WindowImage QtWindows::CaptureWindow(std::int32_t handle) {
  QWidget* widget = QWidget::find(static_cast<WId>(handle));
  if (widget == nullptr) {
    throw Error(ErrorNumber::InvalidArgument, "Er is geen venster " + std::to_string(handle));
  }
  const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
  WindowImage captured;
  captured.width = image.width();
  captured.height = image.height();
  captured.size = {.width = qt::ToTwips(widget->width()), .height = qt::ToTwips(widget->height())};
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    captured.pixels.insert(captured.pixels.end(), row, row + image.width());
  }
  return captured;
}

}  // namespace pagivo
