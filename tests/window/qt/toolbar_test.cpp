#include "window/toolbar.h"

#include <QAction>
#include <QIcon>
#include <QLineEdit>
#include <QMenu>
#include <QPalette>
#include <QToolButton>
#include <cstdlib>

#include "preview/toolbar_design.h"
#include "window/key_codes.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::QtWindowsTest;
using testing::TestForm;

constexpr ControlDesign kControls[] = {
    {.name = "bar",
     .kind = ControlKind::Toolbar,
     .placement = {0, 0, 9000, 420},
     .buttons = kToolbarButtons,
     .images = &kImageList2},
    {.name = "page",
     .kind = ControlKind::TextBox,
     .placement = {1080, 60, 600, 330},
     .container = "bar",
     .tabIndex = 1},
    {.name = "below",
     .kind = ControlKind::TextBox,
     .placement = {0, 600, 1500, 330},
     .tabIndex = 0},
};
constexpr FormDesign kDesign{.caption = "Werkbalk",
                             .client = {.width = 9000, .height = 3000},
                             .keyPreview = true,
                             .controls = kControls};

class ToolbarShown : public QtWindowsTest {
 protected:
  ToolbarShown() {
    Bar().WhenButtonClicked([this](std::string_view key) { clicked.emplace_back(key); });
    Bar().WhenMenuClicked([this](std::string_view key) { chosen.emplace_back(key); });
  }

  Toolbar& Bar() { return form->Get<Toolbar>("bar"); }
  static QToolButton& ButtonOf(QWidget& window, std::string_view key) {
    return Find<QToolButton>(window, key);
  }

  std::shared_ptr<TestForm> form = MakeForm(kDesign);
  std::vector<std::string> clicked;
  std::vector<std::string> chosen;
};

TEST_F(ToolbarShown, HasAButtonWithImageAndToolTipForEachOfItsDesign) {
  Show(*form, [&](QWidget& window) {
    for (const std::string_view key : kImageKeys) {
      const QToolButton& shown = ButtonOf(window, key);
      EXPECT_EQ(shown.toolTip(), testing::Text(Bar().Button(key).toolTip)) << key;
      EXPECT_EQ(shown.accessibleName(), shown.toolTip()) << key;
      EXPECT_EQ(shown.iconSize(), QSize(16, 16)) << key;
      EXPECT_EQ(shown.icon().availableSizes(), (QList{QSize(16, 16), QSize(32, 32)})) << key;
      EXPECT_EQ(shown.text(), "") << key;
    }
  });
}

TEST_F(ToolbarShown, LoadsItsImagesOnceForAllForms) {
  qint64 first = 0;
  Show(*form, [&](QWidget& window) { first = ButtonOf(window, "Zoom").icon().cacheKey(); });
  const auto later = MakeForm(kDesign);
  Show(*later, [&](QWidget& window) {
    EXPECT_EQ(ButtonOf(window, "Zoom").icon().cacheKey(), first);
    EXPECT_NE(ButtonOf(window, "Eerste").icon().cacheKey(), first);
  });
}

TEST_F(ToolbarShown, PutsEachButtonWhereTheToolbarSaysInOneRow) {
  Show(*form, [&](QWidget& window) {
    int end = 0;
    for (const std::string_view key : kImageKeys) {
      const QRect place = ButtonOf(window, key).geometry();
      EXPECT_EQ(place.left(), qt::ToPixels(Bar().LeftOf(key))) << key;
      EXPECT_EQ(place.width(), qt::ToPixels(Toolbar::WidthOf(Bar().Button(key)))) << key;
      EXPECT_GE(place.left(), end) << key;
      EXPECT_GE(place.top(), 0) << key;
      EXPECT_LE(place.bottom(), Find(window, "bar").height()) << key;
      end = place.left() + place.width();
    }
  });
}

TEST_F(ToolbarShown, LeavesThePlaceholdersRoomForThePageBox) {
  Show(*form, [&](QWidget& window) {
    const QRect box = Find(window, "page").geometry();
    const QRect before = ButtonOf(window, "Vorige").geometry();
    const QRect after = ButtonOf(window, "Volgende").geometry();
    EXPECT_EQ(box.left(), before.left() + before.width());
    EXPECT_EQ(box.left() + box.width(), after.left());
    EXPECT_EQ(window.childAt(box.center()), &Find(window, "page"));
  });
}

TEST_F(ToolbarShown, ShowsAButtonsChangesAtRefresh) {
  Show(*form, [&](QWidget& window) {
    const QToolButton& zoom = ButtonOf(window, "Zoom");
    const int before = zoom.x();
    Bar().Button("Eerste").visible = false;
    Bar().Button("Laatste").enabled = false;
    Bar().Button("Zoom").toolTip = "Vergroten";
    EXPECT_TRUE(ButtonOf(window, "Eerste").isVisible());
    Bar().Refresh();
    EXPECT_FALSE(ButtonOf(window, "Eerste").isVisible());
    EXPECT_FALSE(ButtonOf(window, "Laatste").isEnabled());
    EXPECT_EQ(zoom.toolTip(), "Vergroten");
    EXPECT_EQ(zoom.x(), before - 22);
    EXPECT_EQ(zoom.x(), qt::ToPixels(Bar().LeftOf("Zoom")));
  });
}

TEST_F(ToolbarShown, ReportsClicksByKey) {
  Show(*form, [&](QWidget& window) {
    QTest::mouseClick(&ButtonOf(window, "Vorige"), Qt::LeftButton);
    // Left of its arrow a drop-down button is a button.
    QTest::mouseClick(&ButtonOf(window, "Zoom"), Qt::LeftButton, {}, QPoint(8, 11));
  });
  EXPECT_THAT(clicked, ElementsAre("Vorige", "Zoom"));
  EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(ToolbarShown, HasTheDesignsMenuUnderTheArrow) {
  Show(*form, [&](QWidget& window) {
    QToolButton& zoom = ButtonOf(window, "Zoom");
    const auto entries = zoom.menu()->actions();
    ASSERT_EQ(static_cast<std::size_t>(entries.size()), kZoomMenu.size());
    for (std::size_t i = 0; i < kZoomMenu.size(); ++i) {
      const QAction& entry = *entries[static_cast<qsizetype>(i)];
      EXPECT_EQ(entry.isVisible(), kZoomMenu[i].visible);
      EXPECT_EQ(entry.isSeparator(), kZoomMenu[i].text == "-");
      if (entry.isSeparator()) continue;
      EXPECT_EQ(entry.text(), testing::Text(kZoomMenu[i].text));
    }
    QTimer::singleShot(0, [&] {
      EXPECT_TRUE(zoom.menu()->isVisible());
      QTest::keyClick(zoom.menu(), Qt::Key_7);
    });
    QTest::mouseClick(&zoom, Qt::LeftButton, {}, QPoint(zoom.width() - 4, 11));
  });
  EXPECT_THAT(chosen, ElementsAre("P75"));
  EXPECT_THAT(clicked, IsEmpty());
}

// --- The keyboard

TEST_F(ToolbarShown, TakesTheKeyboardWithF10OrF6AndLeavesItWithThoseOrTab) {
  Show(*form, [&](QWidget& window) {
    for (const Qt::Key enter : {Qt::Key_F10, Qt::Key_F6}) {
      for (const Qt::Key leave : {Qt::Key_Tab, Qt::Key_F10, Qt::Key_F6}) {
        Press(window, enter);
        EXPECT_EQ(window.focusWidget(), &ButtonOf(window, "Sluiten"));
        Press(window, leave);
        EXPECT_EQ(window.focusWidget(), &Find(window, "below"));
      }
    }
  });
}

TEST_F(ToolbarShown, MarksTheButtonWithTheKeyboardInADarkThemeToo) {
  Show(*form, [&](QWidget& window) {
    for (const QColor ground : {QColor(239, 239, 239), QColor(53, 53, 53)}) {
      window.setPalette(QPalette(ground));
      QWidget& button = ButtonOf(window, "Sluiten");
      const QImage without = button.grab().toImage();
      Press(window, Qt::Key_F10);
      const QImage with = button.grab().toImage();
      Press(window, Qt::Key_F10);
      int clear = 0;
      for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
          const int change =
              with.pixelColor(x, y).lightness() - without.pixelColor(x, y).lightness();
          if (std::abs(change) >= 100) ++clear;
        }
      }
      EXPECT_GE(clear, 20);
    }
  });
}

TEST_F(ToolbarShown, LeavesEscToTheFormAndGivesTheKeyboardBack) {
  int escapes = 0;
  form->atKeyDown = [&](std::int16_t& code, std::int16_t) {
    escapes += code == kKeyEscape ? 1 : 0;
  };
  Show(*form, [&](QWidget& window) {
    Press(window, Qt::Key_F10);
    Press(window, Qt::Key_Escape);
    EXPECT_EQ(window.focusWidget(), &Find(window, "below"));
  });
  EXPECT_EQ(escapes, 1);
}

TEST_F(ToolbarShown, GoesWithAFormThatUnloadsAtEsc) {
  form->atKeyDown = [&](std::int16_t& code, std::int16_t) {
    if (code == kKeyEscape) form->Unload();
  };
  Show(*form, [&](QWidget& window) {
    Press(window, Qt::Key_F10);
    Press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(ToolbarShown, IsWalkedWithArrowsRoundTheEndsPastWhatCannotBePressed) {
  Bar().Button("Eerste").enabled = false;
  Bar().Button("Vorige").visible = false;
  Bar().Refresh();
  Show(*form, [&](QWidget& window) {
    Press(window, Qt::Key_F10);
    Press(window, Qt::Key_Right);
    EXPECT_EQ(window.focusWidget(), &ButtonOf(window, "Volgende"));
    Press(window, Qt::Key_End);
    EXPECT_EQ(window.focusWidget(), &ButtonOf(window, "Afdrukken"));
    Press(window, Qt::Key_Right);
    EXPECT_EQ(window.focusWidget(), &ButtonOf(window, "Sluiten"));
    Press(window, Qt::Key_Left);
    EXPECT_EQ(window.focusWidget(), &ButtonOf(window, "Afdrukken"));
    Press(window, Qt::Key_Home);
    EXPECT_EQ(window.focusWidget(), &ButtonOf(window, "Sluiten"));
  });
}

TEST_F(ToolbarShown, IsPressedWithEnterAndSpaceAndThenGivesTheKeyboardBack) {
  Show(*form, [&](QWidget& window) {
    for (const Qt::Key press : {Qt::Key_Return, Qt::Key_Space}) {
      Press(window, Qt::Key_F10);
      Press(window, Qt::Key_Right);
      Press(window, press);
      EXPECT_EQ(window.focusWidget(), &Find(window, "below"));
    }
  });
  EXPECT_THAT(clicked, ElementsAre("Eerste", "Eerste"));
}

TEST_F(ToolbarShown, OpensAMenuWithArrowDown) {
  Show(*form, [&](QWidget& window) {
    QToolButton& zoom = ButtonOf(window, "Zoom");
    zoom.setFocus();
    QTimer::singleShot(0, [&] { QTest::keyClick(zoom.menu(), Qt::Key_H); });
    Press(window, Qt::Key_Down);
    EXPECT_EQ(window.focusWidget(), &Find(window, "below"));
  });
  EXPECT_THAT(chosen, ElementsAre("Heel"));
}

}  // namespace
}  // namespace pagivo
