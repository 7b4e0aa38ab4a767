#include "window/qt/widget_peer.h"

#include <QEvent>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QRect>
#include <utility>

#include "window/qt/fonts.h"
#include "window/qt/qt_conversions.h"

namespace pagivo::qt {

namespace {

Placement PlacementOf(const Control& control) {
  return {.left = control.Left(),
          .top = control.Top(),
          .width = control.Width(),
          .height = control.Height()};
}

}  // namespace

WidgetPeer::WidgetPeer(FormWindow& window, Control& control, QWidget* widget)
    : window_(window), control_(control), widget_(widget) {
  widget->setObjectName(ToQt(control.Name()));
  if (control.Design().tabIndex < 0) widget->setFocusPolicy(Qt::NoFocus);
  widget->installEventFilter(this);
  // After this peer's own filter: the last one is the first to see an event.
  window.Add(control, *widget);
}

void WidgetPeer::Update() {
  if (window_.Window() == nullptr) return;
  const QPointer<QObject> self(this);
  const bool outer = std::exchange(updating_, true);
  ShowPlace();
  Show();
  ShowReach();
  if (self) updating_ = outer;
}

void WidgetPeer::Focus() {
  if (window_.Window() != nullptr) widget_->setFocus();
}

void WidgetPeer::ShowPlace() {
  widget_->setGeometry(ToPixels(PlacementOf(control_)));
  widget_->setFont(FontFor(control_.FontName(), control_.FontSize(), *widget_));
}

// A control with the focus that can no longer be reached loses it to the next one, whose handler
// may unload the form.
void WidgetPeer::ShowReach() {
  const QPointer<QObject> self(this);
  widget_->setEnabled(control_.Enabled());
  if (self) widget_->setVisible(control_.Visible());
}

bool WidgetPeer::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    window_.Report([this] {
      if (control_.CanTakeFocus()) control_.Focus();
    });
  }
  return false;
}

void DrawFocusMark(QWidget& widget) {
  if (!widget.hasFocus() || !MarksFocus(*widget.window())) return;
  constexpr int kNarrow = 16;  // pixels
  const int within = widget.width() > kNarrow ? 3 : 1;
  QPainter painter(&widget);
  painter.setPen(QPen(widget.palette().color(widget.foregroundRole()), 1, Qt::DotLine));
  painter.drawRect(widget.rect().adjusted(within, within, -within - 1, -within - 1));
}

}  // namespace pagivo::qt
