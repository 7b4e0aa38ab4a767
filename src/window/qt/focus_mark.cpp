#include "window/qt/focus_mark.h"

#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QRect>

namespace pagivo::qt {

void DrawFocusMark(QWidget& widget) {
  constexpr int kWithin = 3;  // pixels
  if (!widget.hasFocus() || !MarksFocus(*widget.window())) return;
  QPainter painter(&widget);
  painter.setPen(QPen(widget.palette().color(widget.foregroundRole()), 1, Qt::DotLine));
  painter.drawRect(widget.rect().adjusted(kWithin, kWithin, -kWithin - 1, -kWithin - 1));
}

}  // namespace pagivo::qt
