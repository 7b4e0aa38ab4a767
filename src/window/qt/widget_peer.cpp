#include "window/qt/widget_peer.h"

#include <QEvent>
#include <utility>

#include "window/qt/fonts.h"
#include "window/qt/text.h"
#include "window/qt/units.h"

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
  widget->installEventFilter(this);
  // After this peer's own filter: the last one is the first to see an event.
  window.Add(control, *widget);
}

void WidgetPeer::Update() {
  if (!widget_) return;
  const bool outer = std::exchange(updating_, true);
  ShowCommon();
  Show();
  updating_ = outer;
}

void WidgetPeer::Focus() {
  if (widget_) widget_->setFocus();
}

void WidgetPeer::ShowCommon() {
  widget_->setGeometry(ToPixels(PlacementOf(control_)));
  widget_->setFont(FontFor(control_.FontName(), control_.FontSize(), *widget_));
  widget_->setEnabled(control_.Enabled());
  widget_->setVisible(control_.Visible());
}

bool WidgetPeer::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    window_.Report([this] {
      if (control_.CanTakeFocus()) control_.Focus();
    });
  }
  return false;
}

}  // namespace pagivo::qt
