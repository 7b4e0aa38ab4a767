#include "window/qt/keys.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLineEdit>
#include <QPalette>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <tuple>

#include "window/key_codes.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

struct KeyCase {
  int key;
  std::int16_t code;
};

constexpr KeyCase kKeyCases[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, kKeyTab},
    {Qt::Key_Backtab, kKeyTab},
    {Qt::Key_Return, kKeyEnter},
    {Qt::Key_Enter, kKeyEnter},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, kKeyPageUp},
    {Qt::Key_PageDown, kKeyPageDown},
    {Qt::Key_End, kKeyEnd},
    {Qt::Key_Home, kKeyHome},
    {Qt::Key_Left, kKeyLeft},
    {Qt::Key_Up, kKeyUp},
    {Qt::Key_Right, kKeyRight},
    {Qt::Key_Down, kKeyDown},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_0, '0'},
    {Qt::Key_9, '9'},
    {Qt::Key_A, 'A'},
    {Qt::Key_Z, 'Z'},
    {Qt::Key_Menu, 93},
    {Qt::Key_F1, 112},
    {Qt::Key_F10, 121},
    {Qt::Key_F24, 135},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},
};

constexpr KeyCase kPadCases[] = {
    {Qt::Key_0, 96},          {Qt::Key_9, 105},           {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},      {Qt::Key_Minus, 109},       {Qt::Key_Period, 110},
    {Qt::Key_Slash, 111},     {Qt::Key_Enter, kKeyEnter}, {Qt::Key_Up, kKeyUp},
    {Qt::Key_Home, kKeyHome},
};

TEST(KeyCodes, AreThoseThatWindowsReport) {
  for (const KeyCase& row : kKeyCases) EXPECT_EQ(qt::KeyCodeOf(row.key, {}), row.code) << row.key;
}

TEST(KeyCodes, OfTheNumberPadAreItsOwnWhereItHasThem) {
  for (const KeyCase& row : kPadCases) {
    EXPECT_EQ(qt::KeyCodeOf(row.key, Qt::KeypadModifier), row.code) << row.key;
  }
}

TEST(KeyCodes, AreZeroForKeysThatHaveNone) {
  EXPECT_EQ(qt::KeyCodeOf(Qt::Key_VolumeUp, {}), 0);
  EXPECT_EQ(qt::KeyCodeOf(Qt::Key_Eacute, {}), 0);
}

TEST(ShiftState, HasABitForEachKeyHeldDown) {
  EXPECT_EQ(qt::ShiftStateOf({}), 0);
  EXPECT_EQ(qt::ShiftStateOf(Qt::ShiftModifier), kShiftKey);
  EXPECT_EQ(qt::ShiftStateOf(Qt::ControlModifier), kControlKey);
  EXPECT_EQ(qt::ShiftStateOf(Qt::AltModifier), kAltKey);
  EXPECT_EQ(qt::ShiftStateOf(Qt::ShiftModifier | Qt::ControlModifier | Qt::KeypadModifier),
            kShiftKey | kControlKey);
}

char AccessLetter(int key, Qt::KeyboardModifiers modifiers) {
  return qt::AccessLetterOf(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

TEST(AccessLetters, AreLettersAndDigitsWithAlt) {
  EXPECT_EQ(AccessLetter(Qt::Key_P, Qt::AltModifier), 'p');
  EXPECT_EQ(AccessLetter(Qt::Key_P, Qt::AltModifier | Qt::ShiftModifier), 'p');
  EXPECT_EQ(AccessLetter(Qt::Key_7, Qt::AltModifier), '7');
  EXPECT_EQ(AccessLetter(Qt::Key_P, {}), 0);
  EXPECT_EQ(AccessLetter(Qt::Key_P, Qt::AltModifier | Qt::ControlModifier), 0);
  EXPECT_EQ(AccessLetter(Qt::Key_F4, Qt::AltModifier), 0);
}

// --- In a window --------------------------------------------------------------------------------

using testing::QtWindowsTest;

constexpr ControlDesign kControls[] = {
    {.name = "box", .kind = ControlKind::TextBox, .placement = {0, 0, 1500, 300}, .tabIndex = 0},
    {.name = "frame", .kind = ControlKind::Frame, .placement = {0, 600, 1500, 900}, .tabIndex = 1},
    {.name = "go",
     .kind = ControlKind::Button,
     .caption = "&Ga",
     .placement = {0, 300, 1200, 330},
     .container = "frame",
     .tabIndex = 2},
    {.name = "spin",
     .kind = ControlKind::ScrollBar,
     .placement = {1500, 0, 180, 288},
     .tabIndex = 3},
    {.name = "ok",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {1650, 600, 1200, 330},
     .tabIndex = 4,
     .role = ButtonRole::Default},
    {.name = "page",
     .kind = ControlKind::Surface,
     .placement = {1650, 1000, 1200, 450},
     .tabIndex = 5},
};
constexpr FormDesign kPreviewing{.caption = "Toetsen",
                                 .client = {.width = 3000, .height = 1500},
                                 .keyPreview = true,
                                 .controls = kControls};

class Keys : public QtWindowsTest {
 protected:
  Keys() {
    form->atKeyDown = [this](std::int16_t& code, std::int16_t shift) {
      seen.push_back(code);
      shifts.push_back(shift);
      if (code == consumed) code = 0;
    };
  }

  std::shared_ptr<testing::TestForm> form = MakeForm(kPreviewing);
  std::vector<std::int16_t> seen;
  std::vector<std::int16_t> shifts;
  std::int16_t consumed = 0;
};

TEST_F(Keys, GoToTheFormOnceAndThenToTheWidget) {
  Show(*form, [&](QWidget& window) {
    QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::ShiftModifier);
    EXPECT_EQ(Find<QLineEdit>(window, "box").text(), "a");
  });
  EXPECT_THAT(seen, ::testing::ElementsAre(16, 'A'));
  EXPECT_THAT(shifts, ::testing::ElementsAre(kShiftKey, kShiftKey));
}

TEST_F(Keys, ThatNoWidgetHasAUseForDoNotComeByAgain) {
  Show(*form, [&](QWidget& window) {
    form->Get("go").Focus();
    Press(window, Qt::Key_F5);
  });
  EXPECT_THAT(seen, ::testing::ElementsAre(116));
}

TEST_F(Keys, ThatTheFormConsumesNeverReachTheWidget) {
  consumed = 'A';
  Show(*form, [&](QWidget& window) {
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    EXPECT_EQ(Find<QLineEdit>(window, "box").text(), "");
  });
}

TEST_F(Keys, WithAltPressTheControlOfThatAccessKeyOnce) {
  int clicks = 0;
  form->Get("go").WhenClicked([&] { ++clicks; });
  Show(*form, [&](QWidget& window) {
    Press(window, Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(window.focusWidget(), &Find(window, "go"));
  });
  EXPECT_EQ(clicks, 1);
}

QImage PictureOf(QWidget& widget) {
  return widget.grab().toImage();
}

// Pixels that anybody can tell apart.
int ClearlyDifferent(const QImage& one, const QImage& other) {
  constexpr int kClear = 50;  // of 255
  int count = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const int change = one.pixelColor(x, y).lightness() - other.pixelColor(x, y).lightness();
      if (std::abs(change) >= kClear) ++count;
    }
  }
  return count;
}

QPalette DarkTheme() {
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  return dark;
}

class MarkedFocus : public Keys,
                    public ::testing::WithParamInterface<std::tuple<const char*, bool>> {
 protected:
  static std::string_view Marked() { return std::get<0>(GetParam()); }
  static QPalette Theme() { return std::get<1>(GetParam()) ? DarkTheme() : QPalette(); }
};

TEST_P(MarkedFocus, IsSeenFromTheFirstKeyOn) {
  constexpr int kLeast = 12;  // pixels
  Show(*form, [&](QWidget& window) {
    window.setPalette(Theme());
    QWidget& widget = Find(window, Marked());
    form->Get(Marked()).Focus();
    const QImage unmarked = PictureOf(widget);
    Press(window, Qt::Key_Shift);
    EXPECT_GE(ClearlyDifferent(PictureOf(widget), unmarked), kLeast);
    form->Get("box").Focus();
    EXPECT_EQ(PictureOf(widget), unmarked);
  });
}

INSTANTIATE_TEST_SUITE_P(Of, MarkedFocus,
                         ::testing::Combine(::testing::Values("go", "spin", "ok", "page"),
                                            ::testing::Bool()));

TEST_F(Keys, MarkTheFocusInWindowsThatTheyOpen) {
  const auto other = MakeForm(kPreviewing);
  const auto isMarked = [&] {
    bool marked = false;
    Show(*other, [&](QWidget& window) {
      other->Get("box").Focus();
      const QImage without = PictureOf(Find(window, "go"));
      other->Get("go").Focus();
      marked = PictureOf(Find(window, "go")) != without;
    });
    return marked;
  };
  Show(*form, [&](QWidget& window) {
    EXPECT_FALSE(isMarked());
    Press(window, Qt::Key_Shift);
    EXPECT_TRUE(isMarked());
  });
}

TEST_F(Keys, ThatHideTheFormDoNotReachItsWidgets) {
  form->atKeyDown = [&](std::int16_t&, std::int16_t) { form->Hide(); };
  Show(*form, [&](QWidget& window) {
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    EXPECT_EQ(Find<QLineEdit>(window, "box").text(), "");
    EXPECT_FALSE(window.isVisible());
  });
}

}  // namespace
}  // namespace pagivo
