#include "window/qt/focus_mark.h"

#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QRect>

namespace pagivo::qt {

void DrawFocusMark(QWidget& widget) {
  if (!widget.hasFocus() || !MarksFocus(*widget.window())) return;
  constexpr int kNarrow = 16;  // pixels
  const int within = widget.width() > kNarrow ? 3 : 1;
  QPainter painter(&widget);
  painter.setPen(QPen(widget.palette().color(widget.foregroundRole()), 1, Qt::DotLine));
  painter.drawRect(widget.rect().adjusted(within, within, -within - 1, -within - 1));
}

}  // namespace pagivo::qt
