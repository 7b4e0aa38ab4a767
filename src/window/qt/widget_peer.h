// What the peers of all kinds of controls share, and how the one with the focus is marked where a
// style does not do it well enough.
#pragma once

#include <QObject>
#include <QPaintEvent>
#include <QPointer>
#include <QWidget>

#include "window/control.h"
#include "window/qt/form_window.h"
#include "window/window_system.h"

namespace pagivo::qt {

// Shows placement, font, enabling and visibility in the widget, and gives the control the focus
// when the widget gets the keyboard. Connections and event filters of a peer end with it; its
// widget goes later, with the window.
class WidgetPeer : public QObject, public ControlPeer {
 public:
  // `widget` is owned by its parent.
  WidgetPeer(FormWindow& window, Control& control, QWidget* widget);

  void Update() final;
  void Focus() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  // Shows what the kind has beside that. Nothing that it does to the widget is reported.
  virtual void Show() = 0;

  FormWindow& Window() const noexcept { return window_; }

  // Runs what the user has done, as FormWindow::Report does, and tells whether this peer has
  // survived it: a handler may unload the form. Nothing while the control is shown: a widget
  // reports what it is made to show just as what the user does.
  template <typename Doing>
  bool Report(const Doing& doing) {
    if (updating_) return true;
    const QPointer<QObject> self(this);
    window_.Report(doing);
    return !self.isNull();
  }

 private:
  void ShowPlace();
  void ShowReach();

  FormWindow& window_;
  Control& control_;
  QWidget* widget_;
  bool updating_ = false;
};

// Whether a window marks its widget with the focus: for those who use the keyboard.
inline bool MarksFocus(const QWidget& window) {
  return window.testAttribute(Qt::WA_KeyboardFocusChange);
}

// Draws a dotted line within the widget's edges, in the colour of its text, when it has the focus
// and its window marks that.
void DrawFocusMark(QWidget& widget);

// A button with such a mark. Styles give the default button the same look with and without the
// focus, and a button of a toolbar on a dark ground none at all.
template <typename Button>
class FocusMarkingButton final : public Button {
 public:
  using Button::Button;

 protected:
  void paintEvent(QPaintEvent* event) override {
    Button::paintEvent(event);
    DrawFocusMark(*this);
  }
};

}  // namespace pagivo::qt
