#include "support/qt/qt_user.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "pagivo/error.h"
#include "support/qt/qt_values.h"
#include "values/measures.h"
#include "window/combo_box.h"
#include "window/key_codes.h"
#include "window/scroll_bar.h"
#include "window/toolbar.h"

namespace pagivo::testing {

namespace {

constexpr int kIntoMark = 8;   // pixels from the left edge of an option button
constexpr int kIntoArrow = 4;  // pixels from the edge that an arrow lies at

[[noreturn]] void ThrowMissing(std::string_view what) {
  throw Error(ErrorNumber::InvalidArgument, "no widget shows " + std::string(what));
}

struct Key {
  std::int16_t code;
  Qt::Key key;
};

constexpr Key kKeys[] = {
    {kKeyBackspace, Qt::Key_Backspace},
    {kKeyTab, Qt::Key_Tab},
    {kKeyEnter, Qt::Key_Return},
    {kKeyEscape, Qt::Key_Escape},
    {kKeyPageUp, Qt::Key_PageUp},
    {kKeyPageDown, Qt::Key_PageDown},
    {kKeyEnd, Qt::Key_End},
    {kKeyHome, Qt::Key_Home},
    {kKeyLeft, Qt::Key_Left},
    {kKeyUp, Qt::Key_Up},
    {kKeyRight, Qt::Key_Right},
    {kKeyDown, Qt::Key_Down},
    {kKeyF6, Qt::Key_F6},
    {kKeyF10, Qt::Key_F10},
};

// Letters and digits have the key codes of their characters in both.
Qt::Key KeyOf(std::int16_t code) {
  for (const Key& key : kKeys) {
    if (key.code == code) return key.key;
  }
  return static_cast<Qt::Key>(code);
}

Qt::KeyboardModifiers ModifiersOf(std::int16_t shift) {
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, (shift & kShiftKey) != 0);
  modifiers.setFlag(Qt::ControlModifier, (shift & kControlKey) != 0);
  modifiers.setFlag(Qt::AltModifier, (shift & kAltKey) != 0);
  return modifiers;
}

// Of an option button only its mark and its caption take a click.
QPoint PlaceToClick(const QWidget& widget) {
  const QPoint middle = widget.rect().center();
  const bool isOption = qobject_cast<const QRadioButton*>(&widget) != nullptr;
  return isOption ? QPoint(kIntoMark, middle.y()) : middle;
}

// The entry of a tool button's menu; null when it has none of that key.
QAction* EntryOf(const QToolButton& button, const QString& key) {
  return button.menu() == nullptr ? nullptr : button.menu()->findChild<QAction*>(key);
}

// Clicks on the entry of the open menu; one that is not shown or a line is no place to click on, so
// that Esc is all that is left.
void ClickEntry(QMenu& menu, QAction& entry) {
  const QRect place = menu.actionGeometry(&entry);
  if (!entry.isVisible() || entry.isSeparator()) {
    return QTest::keyClick(&menu, Qt::Key_Escape);
  }
  QTest::mouseMove(&menu, place.center());
  QTest::mouseClick(&menu, Qt::LeftButton, {}, place.center());
}

}  // namespace

template <typename Shown, typename Kind>
Shown& QtUser::WidgetOf(std::string_view control) {
  form_.Get<Kind>(control);
  auto* widget = window_ ? window_->findChild<Shown*>(Text(control)) : nullptr;
  if (widget == nullptr) ThrowMissing(control);
  return *widget;
}

void QtUser::Click(std::string_view control) {
  auto& widget = WidgetOf<QWidget>(control);
  ClickAt(widget, PlaceToClick(widget));
}

void QtUser::ClickToolbar(std::string_view toolbar, std::string_view button) {
  auto& bar = WidgetOf<QWidget, Toolbar>(toolbar);
  form_.Get<Toolbar>(toolbar).Button(button);
  // A placeholder shows nothing that could be clicked.
  if (auto* shown = bar.findChild<QToolButton*>(Text(button)))
    ClickAt(*shown, shown->rect().center());
}

void QtUser::ClickToolbarMenu(std::string_view toolbar, std::string_view item) {
  for (QToolButton* button : WidgetOf<QWidget, Toolbar>(toolbar).findChildren<QToolButton*>()) {
    QAction* entry = EntryOf(*button, Text(item));
    if (entry != nullptr) return ClickThrough(*button, *entry);
  }
  ThrowMissing(item);
}

// The menu takes the events until it is closed, so the click on its entry waits in it.
void QtUser::ClickThrough(QToolButton& button, QAction& entry) {
  QMenu& menu = *button.menu();
  QTimer untilOpen;
  QObject::connect(&untilOpen, &QTimer::timeout, [&] {
    if (!menu.isVisible()) return;
    untilOpen.stop();
    ClickEntry(menu, entry);
  });
  untilOpen.start(1);
  ClickAt(button, {button.width() - kIntoArrow, button.height() / 2});
}

void QtUser::Replace(std::string_view control, std::string_view text) {
  if (!TabTo(WidgetOf<QWidget>(control))) return;
  KeyClick(Qt::Key_A, Qt::ControlModifier);
  if (text.empty()) return KeyClick(Qt::Key_Delete);
  QApplication::clipboard()->setText(Text(text));
  KeyClick(Qt::Key_V, Qt::ControlModifier);
}

void QtUser::Type(std::string_view control, std::string_view text) {
  if (!TabTo(WidgetOf<QWidget>(control))) return;
  for (const QChar character : Text(text)) {
    KeyClick(static_cast<Qt::Key>(character.toUpper().unicode()), Qt::NoModifier, character);
  }
}

void QtUser::Erase(std::string_view control) {
  if (!TabTo(WidgetOf<QWidget>(control))) return;
  KeyClick(Qt::Key_A, Qt::ControlModifier);
  KeyClick(Qt::Key_Backspace);
}

void QtUser::PressKey(std::int16_t keyCode, std::int16_t shift) {
  KeyClick(KeyOf(keyCode), ModifiersOf(shift));
}

void QtUser::PressAccessKey(char letter) {
  KeyClick(static_cast<Qt::Key>(QChar::fromLatin1(letter).toUpper().unicode()), Qt::AltModifier);
}

void QtUser::Pick(std::string_view comboBox, std::int32_t item) {
  auto& box = WidgetOf<QComboBox, ComboBox>(comboBox);
  if (!box.isEnabled()) return;
  if (item < 0 || item >= box.count()) ThrowMissing("item " + std::to_string(item));
  ClickAt(box, {box.width() - 5, box.height() / 2});
  QAbstractItemView& list = *box.view();
  const QModelIndex index = list.model()->index(item, box.modelColumn());
  list.scrollTo(index);
  const QPoint place = list.visualRect(index).center();
  // An open list takes no click before the pointer has moved, and it may lie there already.
  for (const int away : {1, 0}) QTest::mouseMove(list.viewport(), place + QPoint(away, 0));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
}

void QtUser::Scroll(std::string_view scrollBar, std::int16_t value) {
  const auto& bar = form_.Get<ScrollBar>(scrollBar);
  const int steps = value - bar.Value();
  for (int i = 0; i < steps; ++i) ClickDownArrow(scrollBar);
  for (int i = 0; i > steps; --i) ClickUpArrow(scrollBar);
}

void QtUser::ClickUpArrow(std::string_view scrollBar) {
  auto& bar = WidgetOf<QAbstractSlider, ScrollBar>(scrollBar);
  ClickAt(bar, {bar.width() / 2, kIntoArrow});
}

void QtUser::ClickDownArrow(std::string_view scrollBar) {
  auto& bar = WidgetOf<QAbstractSlider, ScrollBar>(scrollBar);
  ClickAt(bar, {bar.width() / 2, bar.height() - kIntoArrow});
}

void QtUser::Resize(const Extent& size) {
  const float frameWidth = form_.Width() - form_.ClientWidth();
  const float frameHeight = form_.Height() - form_.ClientHeight();
  const QSize client(qRound((size.width - frameWidth) / kTwipsPerPixel),
                     qRound((size.height - frameHeight) / kTwipsPerPixel));
  window_->resize(client);
  // The window system may take its time.
  if (!QTest::qWaitFor([this, client] { return window_->windowHandle()->size() == client; })) {
    throw Error(ErrorNumber::InvalidArgument, "the window does not take the size");
  }
  QTest::qWait(0);
}

void QtUser::Close() {
  if (IsOpen()) window_->windowHandle()->close();
}

void QtUser::ClickAt(QWidget& widget, QPoint place) {
  if (!IsOpen()) return;
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, widget.mapTo(window_, place));
}

void QtUser::KeyClick(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  if (!IsOpen()) return;
  QTest::sendKeyEvent(QTest::Click, window_->windowHandle(), key, text, modifiers);
}

bool QtUser::TabTo(QWidget& widget) {
  if (!IsOpen() || !widget.isEnabled() || !widget.isVisible()) return false;
  const auto rounds = form_.Controls().All().size();
  for (std::size_t i = 0; i < rounds && window_->focusWidget() != &widget; ++i) {
    KeyClick(Qt::Key_Tab);
  }
  return window_->focusWidget() == &widget;
}

}  // namespace pagivo::testing
