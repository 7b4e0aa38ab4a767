// How the widget with the focus is marked where a style does not do it well enough.
#pragma once

#include <QPaintEvent>
#include <QWidget>

namespace pagivo::qt {

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
