#include "support/qt/shown_form.h"

#include <gtest/gtest.h>

#include <QAbstractSlider>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <cmath>
#include <string>

#include "support/qt/qt_values.h"
#include "values/measures.h"
#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"
#include "window/toolbar.h"

namespace pagivo::testing {

namespace {

constexpr double kPixelsPerInch = 96;

int Pixels(float twips) {
  return static_cast<int>(std::round(twips / kTwipsPerPixel));
}

QRect PlaceOf(const Control& control) {
  const QPoint topLeft(Pixels(control.Left()), Pixels(control.Top()));
  const QPoint end(Pixels(control.Left() + control.Width()),
                   Pixels(control.Top() + control.Height()));
  return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

// The widget of that name as the kind that it should be.
template <typename Shown>
const Shown& As(const QWidget& widget) {
  const auto* shown = qobject_cast<const Shown*>(&widget);
  if (shown == nullptr) throw std::logic_error(widget.metaObject()->className());
  return *shown;
}

void ExpectTextBox(const TextBox& box, const QLineEdit& shown) {
  const std::int16_t maximum = box.Design().maximumLength;
  EXPECT_EQ(shown.text(), Text(box.Text()));
  EXPECT_EQ(shown.maxLength(), maximum > 0 ? maximum : 32767);
  const bool isSelected = box.SelectionLength() > 0;
  const int start = isSelected ? shown.selectionStart() : shown.cursorPosition();
  EXPECT_EQ(static_cast<std::size_t>(shown.selectionLength()), box.SelectionLength());
  EXPECT_EQ(static_cast<std::size_t>(start), box.SelectionStart());
}

void ExpectComboBox(const ComboBox& box, const QComboBox& shown) {
  EXPECT_EQ(shown.isEditable(), box.Design().editable);
  EXPECT_EQ(shown.currentText(), Text(box.Text()));
  EXPECT_EQ(shown.currentIndex(), box.ListIndex());
  ASSERT_EQ(shown.count(), box.Count());
  for (int i = 0; i < box.Count(); ++i) EXPECT_EQ(shown.itemText(i), Text(box.Item(i)));
}

void ExpectScrollBar(const ScrollBar& bar, const QAbstractSlider& shown) {
  EXPECT_EQ(shown.minimum(), bar.Minimum());
  EXPECT_EQ(shown.maximum(), bar.Maximum());
  EXPECT_EQ(shown.value(), bar.Value());
}

void ExpectMenu(std::span<const MenuItem> items, const QMenu& shown) {
  const auto entries = shown.actions();
  ASSERT_EQ(static_cast<std::size_t>(entries.size()), items.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    const QAction& entry = *entries[static_cast<qsizetype>(i)];
    SCOPED_TRACE(items[i].key);
    EXPECT_EQ(entry.isSeparator(), items[i].text == "-");
    if (!entry.isSeparator()) {
      EXPECT_EQ(entry.text(), Text(items[i].text));
    }
    EXPECT_EQ(entry.isVisible(), items[i].visible);
  }
}

void ExpectToolButton(const ToolbarButton& button, const QToolButton& shown) {
  EXPECT_EQ(shown.toolTip(), Text(button.toolTip));
  EXPECT_EQ(shown.isEnabledTo(shown.parentWidget()), button.enabled);
  EXPECT_EQ(shown.isVisibleTo(shown.parentWidget()), button.visible);
  EXPECT_TRUE(shown.text().isEmpty());
  EXPECT_EQ(shown.menu() != nullptr, !button.menu.empty());
  if (shown.menu() != nullptr) ExpectMenu(button.menu, *shown.menu());
}

void ExpectToolbar(Toolbar& bar, const QWidget& shown) {
  for (const ToolbarButton& button : bar.Buttons()) {
    if (button.style != ToolbarButton::Style::Button &&
        button.style != ToolbarButton::Style::DropDown) {
      continue;
    }
    SCOPED_TRACE(button.key);
    const auto* widget = shown.findChild<QToolButton*>(Text(button.key));
    ASSERT_NE(widget, nullptr);
    ExpectToolButton(button, *widget);
    EXPECT_EQ(widget->x(), Pixels(bar.LeftOf(button.key)));
  }
}

void ExpectKind(Control& control, const QWidget& widget) {
  const QString caption = Text(control.Caption());
  switch (control.Kind()) {
    case ControlKind::Frame:
      EXPECT_EQ(As<QGroupBox>(widget).title(), caption);
      return;
    case ControlKind::Label:
      EXPECT_EQ(As<QLabel>(widget).text(), caption);
      return;
    case ControlKind::Button:
      EXPECT_EQ(As<QPushButton>(widget).text(), caption);
      return;
    case ControlKind::OptionButton:
      EXPECT_EQ(As<QRadioButton>(widget).text(), caption);
      EXPECT_EQ(As<QRadioButton>(widget).isChecked(), dynamic_cast<OptionButton&>(control).Value());
      return;
    case ControlKind::TextBox:
      return ExpectTextBox(dynamic_cast<TextBox&>(control), As<QLineEdit>(widget));
    case ControlKind::ComboBox:
      return ExpectComboBox(dynamic_cast<ComboBox&>(control), As<QComboBox>(widget));
    case ControlKind::ScrollBar:
      return ExpectScrollBar(dynamic_cast<ScrollBar&>(control), As<QAbstractSlider>(widget));
    case ControlKind::Toolbar:
      return ExpectToolbar(dynamic_cast<Toolbar&>(control), widget);
    case ControlKind::PictureBox:
    case ControlKind::Surface:
      return;
  }
}

void ExpectControl(Control& control, const QWidget& window) {
  SCOPED_TRACE(control.Name());
  const auto* widget = window.findChild<QWidget*>(Text(control.Name()));
  ASSERT_NE(widget, nullptr);
  const QWidget* parent = widget->parentWidget();
  const Control* container = control.Container();
  EXPECT_EQ(parent->objectName(), container != nullptr ? Text(container->Name()) : QString());
  EXPECT_EQ(widget->geometry(), PlaceOf(control));
  EXPECT_EQ(widget->isEnabledTo(parent), control.Enabled());
  EXPECT_EQ(widget->isVisibleTo(parent), control.Visible());
  EXPECT_NEAR(widget->font().pointSizeF() * widget->logicalDpiY() / kPixelsPerInch,
              control.FontSize(), 0.01);
  ExpectKind(control, *widget);
}

}  // namespace

void ExpectShown(Form& form, const QWidget& window) {
  EXPECT_EQ(window.windowTitle(), Text(form.Caption()));
  for (const auto& control : form.Controls().All()) ExpectControl(*control, window);
  const Control* focused = form.Controls().Focused();
  const QWidget* keyboard = window.focusWidget();
  EXPECT_EQ(keyboard != nullptr ? keyboard->objectName() : QString(),
            focused != nullptr ? Text(focused->Name()) : QString());
}

}  // namespace pagivo::testing
