// The widget of a form's window.
#pragma once

#include <QWidget>
#include <functional>
#include <utility>

namespace pagivo::qt {

class FormWidget final : public QWidget {
 public:
  // `moveFocus` is asked when Qt wants the focus to go on by itself, because the control that had
  // it was disabled or hidden; its argument tells the direction.
  FormWidget(Qt::WindowFlags flags, std::function<void(bool forwards)> moveFocus)
      : QWidget(nullptr, flags), moveFocus_(std::move(moveFocus)) {}

 protected:
  bool focusNextPrevChild(bool next) override {
    const QWidget* before = focusWidget();
    moveFocus_(next);
    return focusWidget() != before;
  }

 private:
  std::function<void(bool forwards)> moveFocus_;
};

}  // namespace pagivo::qt
