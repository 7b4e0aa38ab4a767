// What the user does in the widgets, and what the controls make of it.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QWheelEvent>

#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/qt_test.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::QtWindowsTest;
using testing::TestForm;

constexpr ControlDesign kControls[] = {
    {.name = "text", .kind = ControlKind::TextBox, .placement = {0, 0, 1500, 330}, .tabIndex = 0},
    {.name = "short",
     .kind = ControlKind::TextBox,
     .placement = {1500, 0, 1500, 330},
     .tabIndex = 1,
     .maximumLength = 3},
    {.name = "list",
     .kind = ControlKind::ComboBox,
     .placement = {0, 600, 1500, 330},
     .tabIndex = 2},
    {.name = "typed",
     .kind = ControlKind::ComboBox,
     .placement = {1500, 600, 1500, 330},
     .tabIndex = 3,
     .editable = true},
    {.name = "one",
     .kind = ControlKind::OptionButton,
     .caption = "&Een",
     .placement = {0, 1200, 1500, 255},
     .tabIndex = 4},
    {.name = "two",
     .kind = ControlKind::OptionButton,
     .caption = "&Twee",
     .placement = {0, 1500, 1500, 255},
     .tabIndex = 5},
    {.name = "arrows",
     .kind = ControlKind::ScrollBar,
     .placement = {1500, 1200, 180, 288},
     .tabIndex = 6,
     .minimum = 1,
     .maximum = 9},
    {.name = "bar",
     .kind = ControlKind::ScrollBar,
     .placement = {2100, 1200, 255, 1800},
     .tabIndex = 7,
     .minimum = 0,
     .maximum = 100},
    {.name = "ok",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {0, 3000, 1200, 330},
     .tabIndex = 8,
     .role = ButtonRole::Default},
};
constexpr FormDesign kDesign{
    .caption = "Alles", .client = {.width = 3000, .height = 3600}, .controls = kControls};

class Controls : public QtWindowsTest {
 protected:
  TextBox& Box(std::string_view name) { return form->Get<TextBox>(name); }
  ComboBox& List(std::string_view name) { return form->Get<ComboBox>(name); }
  ScrollBar& Bar(std::string_view name) { return form->Get<ScrollBar>(name); }

  static void TurnWheel(QWidget& widget, int eighthsOfDegrees) {
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, eighthsOfDegrees}, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
  }

  std::shared_ptr<TestForm> form = MakeForm(kDesign);
};

// --- Text boxes

TEST_F(Controls, TextThatIsTypedGoesToTheTextBoxACharacterAtATime) {
  std::vector<std::string> texts;
  Box("text").WhenChanged([&] { texts.push_back(Box("text").Text()); });
  Show(*form, [&](QWidget& window) {
    QTest::keyClicks(&Find(window, "text"), "12");
    EXPECT_EQ(Box("text").SelectionStart(), 2U);
  });
  EXPECT_THAT(texts, ElementsAre("1", "12"));
}

TEST_F(Controls, TextThatTheHandlerChangesIsShownChanged) {
  Box("text").WhenChanged([&] {
    if (Box("text").Text().empty()) Box("text").PutText("1");
  });
  Box("text").PutText("7");
  Show(*form, [&](QWidget& window) {
    auto& edit = Find<QLineEdit>(window, "text");
    edit.selectAll();
    Press(window, Qt::Key_Delete);
    EXPECT_EQ(edit.text(), "1");
    EXPECT_EQ(edit.cursorPosition(), 0);
  });
}

TEST_F(Controls, SelectionOfATextBoxGoesBothWays) {
  Box("text").PutText("héé😀n");
  Show(*form, [&](QWidget& window) {
    auto& edit = Find<QLineEdit>(window, "text");
    Box("text").PutSelection(3, 2);
    EXPECT_EQ(edit.selectedText(), "😀n");
    edit.setSelection(1, 4);
    EXPECT_EQ(Box("text").SelectionStart(), 1U);
    EXPECT_EQ(Box("text").SelectionLength(), 3U);
    edit.setCursorPosition(5);
    EXPECT_EQ(Box("text").SelectionStart(), 4U);
    EXPECT_EQ(Box("text").SelectionLength(), 0U);
  });
}

TEST_F(Controls, SelectionFromRightToLeftStaysTheUsers) {
  Box("text").PutText("abcdef");
  Show(*form, [&](QWidget& window) {
    auto& edit = Find<QLineEdit>(window, "text");
    edit.setCursorPosition(4);
    Press(window, Qt::Key_Left, Qt::ShiftModifier);
    Press(window, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(edit.selectedText(), "cd");
    EXPECT_EQ(edit.cursorPosition(), 2);
    EXPECT_EQ(Box("text").SelectionStart(), 2U);
    EXPECT_EQ(Box("text").SelectionLength(), 2U);
  });
}

TEST_F(Controls, TextBoxTakesNoMoreThanItsMaximumLength) {
  Show(*form, [&](QWidget& window) {
    QTest::keyClicks(&Find(window, "short"), "12345");
    EXPECT_EQ(Box("short").Text(), "123");
  });
}

TEST_F(Controls, FocusBySelectingAllReplacesWhatIsTyped) {
  Box("short").PutText("12");
  Box("short").WhenFocused([&] { Box("short").SelectAll(); });
  Show(*form, [&](QWidget& window) {
    Press(window, Qt::Key_Tab);
    EXPECT_EQ(Find<QLineEdit>(window, "short").selectedText(), "12");
    QTest::keyClicks(window.focusWidget(), "5");
    EXPECT_EQ(Box("short").Text(), "5");
  });
}

TEST_F(Controls, TextBoxIsClickedByTheMouse) {
  int clicks = 0;
  Box("text").WhenClicked([&] { ++clicks; });
  Show(*form, [&](QWidget& window) {
    QTest::mouseClick(&Find(window, "text"), Qt::LeftButton);
    QTest::mouseClick(&Find(window, "text"), Qt::RightButton);
    // Let go elsewhere.
    QTest::mousePress(&Find(window, "text"), Qt::LeftButton);
    QTest::mouseRelease(&Find(window, "text"), Qt::LeftButton, {}, QPoint(-20, 5));
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  });
  EXPECT_EQ(clicks, 1);
}

TEST_F(Controls, APressThatBringsTheFocusKeepsTheWholeTextSelectedThoughThePointerTrembles) {
  Box("short").PutText("12");
  Box("short").WhenFocused([&] { Box("short").SelectAll(); });
  Show(*form, [&](QWidget& window) {
    auto& edit = Find<QLineEdit>(window, "short");
    QTest::mousePress(&edit, Qt::LeftButton, {}, QPoint(8, 10));
    QTest::mouseMove(&edit, QPoint(9, 11));
    QTest::mouseRelease(&edit, Qt::LeftButton, {}, QPoint(9, 11));
    EXPECT_TRUE(Box("short").HasFocus());
    EXPECT_EQ(edit.selectedText(), "12");
    QTest::keyClicks(window.focusWidget(), "5");
    EXPECT_EQ(Box("short").Text(), "5");
  });
}

TEST_F(Controls, AFurtherPressPutsTheInsertionPointUnderThePointer) {
  Box("text").PutText("iiiiiiiiii");
  Show(*form, [&](QWidget& window) {
    auto& edit = Find<QLineEdit>(window, "text");
    Box("text").SelectAll();
    const QPoint place(14, 10);
    QTest::mouseClick(&edit, Qt::LeftButton, {}, place);
    EXPECT_EQ(edit.cursorPosition(), edit.cursorPositionAt(place));
    EXPECT_EQ(Box("text").SelectionStart(), static_cast<std::size_t>(edit.cursorPosition()));
    EXPECT_FALSE(edit.hasSelectedText());
  });
}

// --- Combo boxes

TEST_F(Controls, EditingAPickedItemLeavesTheInsertionPointWhereItIs) {
  List("typed").AddItem("Inleiding");
  List("typed").PutListIndex(0);
  Show(*form, [&](QWidget& window) {
    auto& edit = *Find<QComboBox>(window, "typed").lineEdit();
    List("typed").Focus();
    edit.setCursorPosition(2);
    QTest::keyClicks(window.focusWidget(), "xy");
    EXPECT_EQ(List("typed").Text(), "Inxyleiding");
    EXPECT_EQ(List("typed").ListIndex(), -1);
    EXPECT_EQ(edit.text(), "Inxyleiding");
    EXPECT_EQ(edit.cursorPosition(), 4);
  });
}

TEST_F(Controls, TextThatIsTooLongForAListIsInItsToolTips) {
  const char* longText = "Een printer met een naam die veel te lang is voor zijn vak";
  List("list").AddItem("kort");
  List("list").AddItem(longText);
  List("list").PutListIndex(1);
  Show(*form, [&](QWidget& window) {
    auto& list = Find<QComboBox>(window, "list");
    EXPECT_EQ(list.toolTip(), longText);
    EXPECT_EQ(list.itemData(0, Qt::ToolTipRole).toString(), "");
    EXPECT_EQ(list.itemData(1, Qt::ToolTipRole).toString(), longText);
    List("list").PutListIndex(0);
    EXPECT_EQ(list.toolTip(), "");
  });
}

TEST_F(Controls, PickingAnItemSelectsItAndClicks) {
  for (const char* item : {"een", "twee", "drie"}) List("list").AddItem(item);
  std::vector<std::int32_t> picked;
  List("list").WhenClicked([&] { picked.push_back(List("list").ListIndex()); });
  Show(*form, [&](QWidget& window) {
    auto& box = Find<QComboBox>(window, "list");
    EXPECT_EQ(box.count(), 3);
    EXPECT_EQ(box.currentIndex(), -1);
    box.setFocus();
    Press(window, Qt::Key_Down);
    Press(window, Qt::Key_Down);
    EXPECT_EQ(box.currentText(), "twee");
    TurnWheel(box, -120);
    EXPECT_EQ(List("list").Text(), "drie");
  });
  EXPECT_THAT(picked, ElementsAre(0, 1, 2));
}

TEST_F(Controls, ListOpensWithAltAndDown) {
  List("list").AddItem("een");
  Show(*form, [&](QWidget& window) {
    auto& box = Find<QComboBox>(window, "list");
    box.setFocus();
    Press(window, Qt::Key_Down, Qt::AltModifier);
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    box.hidePopup();
    EXPECT_EQ(List("list").ListIndex(), -1);
  });
}

TEST_F(Controls, TextTypedInAComboBoxIsNotCompletedAndSelectsNothing) {
  List("typed").AddItem("Inleiding");
  Show(*form, [&](QWidget& window) {
    QTest::keyClicks(&Find(window, "typed"), "In");
    EXPECT_EQ(List("typed").Text(), "In");
    EXPECT_EQ(List("typed").ListIndex(), -1);
    EXPECT_EQ(Find<QComboBox>(window, "typed").currentText(), "In");
  });
}

TEST_F(Controls, ComboBoxShowsAnEmptiedListAndItsTextAnew) {
  List("typed").AddItem("een");
  List("typed").PutListIndex(0);
  Show(*form, [&](QWidget& window) {
    auto& box = Find<QComboBox>(window, "typed");
    EXPECT_EQ(box.currentText(), "een");
    List("typed").PutText("los");
    EXPECT_EQ(box.currentText(), "los");
    List("typed").Clear();
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(box.currentText(), "");
  });
}

// --- Option buttons

TEST_F(Controls, OneOptionIsSetAtATime) {
  int clicks = 0;
  form->Get("one").WhenClicked([&] { ++clicks; });
  Show(*form, [&](QWidget& window) {
    auto& one = Find<QRadioButton>(window, "one");
    auto& two = Find<QRadioButton>(window, "two");
    one.click();
    EXPECT_TRUE(one.isChecked());
    two.click();
    EXPECT_FALSE(one.isChecked());
    EXPECT_TRUE(two.isChecked());
    form->Get<OptionButton>("two").PutValue(false);
    EXPECT_FALSE(two.isChecked());
    EXPECT_EQ(clicks, 1);
  });
}

TEST_F(Controls, SettingAnOptionThatIsSetClicksItAgain) {
  int clicks = 0;
  form->Get("one").WhenClicked([&] { ++clicks; });
  Show(*form, [&](QWidget& window) {
    auto& one = Find<QRadioButton>(window, "one");
    one.click();
    one.click();
    EXPECT_TRUE(one.isChecked());
  });
  EXPECT_EQ(clicks, 2);
}

TEST_F(Controls, ArrowsGoToTheNextOptionAndSetIt) {
  form->Get("one").Click();
  Show(*form, [&](QWidget& window) {
    form->Get("one").Focus();
    Press(window, Qt::Key_Down);
    EXPECT_TRUE(Find<QRadioButton>(window, "two").isChecked());
    EXPECT_EQ(window.focusWidget(), &Find(window, "two"));
  });
}

// --- Scroll bars

TEST_F(Controls, UpperArrowStepsTowardsTheMinimum) {
  Bar("arrows").PutValue(5);
  Show(*form, [&](QWidget& window) {
    QWidget& arrows = Find(window, "arrows");
    EXPECT_EQ(arrows.size(), QSize(12, 19));
    QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(6, 3));
    EXPECT_EQ(Bar("arrows").Value(), 4);
    QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(6, 16));
    QTest::mouseClick(&arrows, Qt::LeftButton, {}, QPoint(6, 16));
    EXPECT_EQ(Bar("arrows").Value(), 6);
  });
}

TEST_F(Controls, ArrowsRepeatWhileTheyAreHeldDownAndStopAtTheEnd) {
  Bar("arrows").PutValue(3);
  Show(*form, [&](QWidget& window) {
    QWidget& arrows = Find(window, "arrows");
    QTest::mousePress(&arrows, Qt::LeftButton, {}, QPoint(6, 3));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Bar("arrows").Value() == 1; }));
    QTest::qWait(120);
    EXPECT_EQ(Bar("arrows").Value(), 1);
    QTest::mouseRelease(&arrows, Qt::LeftButton, {}, QPoint(6, 3));
  });
}

TEST_F(Controls, WheelStepsOnceANotchAlsoWhenItTurnsFinely) {
  Bar("arrows").PutValue(5);
  Show(*form, [&](QWidget& window) {
    QWidget& arrows = Find(window, "arrows");
    TurnWheel(arrows, 120);
    EXPECT_EQ(Bar("arrows").Value(), 4);
    for (int i = 0; i < 4; ++i) TurnWheel(arrows, -30);
    EXPECT_EQ(Bar("arrows").Value(), 5);
  });
}

TEST_F(Controls, LongScrollBarIsTheDesktopsOwn) {
  Show(*form, [&](QWidget& window) {
    auto& bar = Find<QScrollBar>(window, "bar");
    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(Bar("bar").Value(), 100);
    Bar("bar").PutValue(40);
    EXPECT_EQ(bar.value(), 40);
  });
}

// --- Buttons and focus

TEST_F(Controls, ButtonIsPressedByMouseAndSpace) {
  int clicks = 0;
  form->Get("ok").WhenClicked([&] { ++clicks; });
  Show(*form, [&](QWidget& window) {
    QTest::mouseClick(&Find(window, "ok"), Qt::LeftButton);
    EXPECT_EQ(form->Controls().Focused(), &form->Get("ok"));
    Press(window, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
    form->Get("text").Focus();
    Press(window, Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
    EXPECT_TRUE(Find<QPushButton>(window, "ok").isDefault());
  });
}

TEST_F(Controls, MouseGivesTheFocusAndRaisesFocusGained) {
  int gained = 0;
  Box("short").WhenFocused([&] { ++gained; });
  Show(*form, [&](QWidget& window) {
    QTest::mouseClick(&Find(window, "short"), Qt::LeftButton);
    EXPECT_EQ(form->Controls().Focused(), &Box("short"));
    EXPECT_EQ(gained, 1);
  });
}

TEST_F(Controls, FocusOfTheFormIsThatOfTheWindow) {
  Show(*form, [&](QWidget& window) {
    EXPECT_EQ(window.focusWidget(), &Find(window, "text"));
    form->Get("two").Focus();
    EXPECT_EQ(window.focusWidget(), &Find(window, "two"));
    Press(window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &Find(window, "arrows"));
  });
}

TEST_F(Controls, FocusGoesOnInTabOrderFromAControlThatIsDisabled) {
  Show(*form, [&](QWidget& window) {
    Box("text").PutEnabled(false);
    EXPECT_EQ(form->Controls().Focused(), &Box("short"));
    EXPECT_EQ(window.focusWidget(), &Find(window, "short"));
  });
}

// Nothing that is merely shown comes back as the user's doing.
TEST_F(Controls, ShowingAStateReportsNothing) {
  std::vector<std::string> notes;
  for (const auto& control : form->Controls().All()) {
    control->WhenClicked([&notes, name = control->Name()] { notes.emplace_back(name); });
  }
  Show(*form, [&](QWidget&) {
    List("list").AddItem("een");
    Box("text").PutText("nieuw");
    Box("text").PutSelection(1, 2);
    Bar("arrows").PutValue(7);
    EXPECT_EQ(Box("text").SelectionStart(), 1U);
    EXPECT_EQ(List("list").ListIndex(), -1);
  });
  EXPECT_THAT(notes, IsEmpty());
}

TEST(Text, CountsCharactersNotUnits) {
  const QString text = QStringLiteral("a😀b");
  EXPECT_EQ(qt::CharactersBefore(text, 3), 2U);
  EXPECT_EQ(qt::UnitsBefore(text, 2), 3);
  EXPECT_EQ(qt::UnitsBefore(text, 9), 4);
}

}  // namespace
}  // namespace pagivo
