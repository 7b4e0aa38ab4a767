// A user with mouse and keyboard before a real window.
#pragma once

#include <QPointer>
#include <QString>
#include <QToolButton>
#include <QWidget>
#include <cstdint>
#include <string_view>

#include "support/form_user.h"
#include "window/form.h"

namespace pagivo::testing {

// Everything is done with the events that mouse, keyboard and window manager give, delivered to the
// window as the window system delivers them. What is typed into a box goes there after Tab has
// brought the focus.
class QtUser final : public FormUser {
 public:
  // The form that is shown and its window, exposed and active.
  QtUser(Form& form, QWidget& window) : form_(form), window_(&window) {}

  void Click(std::string_view control) override;
  void ClickToolbar(std::string_view toolbar, std::string_view button) override;
  void ClickToolbarMenu(std::string_view toolbar, std::string_view item) override;
  void Replace(std::string_view control, std::string_view text) override;
  void Type(std::string_view control, std::string_view text) override;
  void Erase(std::string_view control) override;
  void PressAccessKey(char letter) override;
  void Pick(std::string_view comboBox, std::int32_t item) override;
  void Scroll(std::string_view scrollBar, std::int16_t value) override;
  void ClickUpArrow(std::string_view scrollBar) override;
  void ClickDownArrow(std::string_view scrollBar) override;
  void Resize(const Extent& size) override;
  void Close() override;

 protected:
  void PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  // What shows the control of that name and kind.
  template <typename Shown, typename Kind = Control>
  Shown& WidgetOf(std::string_view control);
  bool IsOpen() const { return window_ && window_->isVisible(); }
  void ClickAt(QWidget& widget, QPoint place);
  void ClickThrough(QToolButton& button, QAction& entry);
  void KeyClick(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                const QString& text = {});
  // Whether Tab brings the focus there.
  bool TabTo(QWidget& widget);

  Form& form_;
  QPointer<QWidget> window_;
};

}  // namespace pagivo::testing
