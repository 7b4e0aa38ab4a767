// All windows of the component as they look: every control named, every caption within its
// rectangle, nothing over anything else.
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QToolButton>
#include <filesystem>
#include <set>

#include "dialogs/frm_afdruk_pagina.h"
#include "dialogs/frm_afdruk_setup.h"
#include "engine/native/native_engine.h"
#include "platform/platform.h"
#include "preview/frm_ga_naar.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

constexpr std::int16_t kPages = 12;

// How a window of the component comes to the screen.
struct Opening {
  const char* name;
  void (*open)();
};

constexpr Opening kOpenings[] = {
    {"Afdrukvoorbeeld", [] { PreviewForm().ShowModal(); }},
    {"GaNaar", [] { GoToDialog(State().contents, State().GoToPageResult).ShowModal(); }},
    {"AfdrukPagina",
     [] {
       State().request.PrintLastPage = kPages;
       State().request.PrintRange = kPrintPageRange;
       PrintRangeDialog(State().request, PreviewEngine).ShowModal();
       ReleasePrintRangeDialog();
     }},
    {"AfdrukSetup", [] { PrinterSetupDialog(State().request, PreviewEngine).ShowModal(); }},
    {"PrinterInstelling", [] { PreviewEngine()->GetPrintDialog(0); }},
    {"PaginaInstelling", [] { PreviewEngine()->GetPrintDialog(1); }},
};

class OurForms : public testing::QtWindowsTest, public ::testing::WithParamInterface<Opening> {
 protected:
  OurForms() {
    Platform platform = NativePlatform();
    platform.windows = windows;
    UsePlatform(platform);
    State() = ModuleState{};
    State().request.PrintCopies = 1;
    const auto engine = PreviewEngine();
    engine->StartDoc();
    for (int page = 1; page <= kPages; ++page) engine->NewPage();
    engine->EndDoc();
  }
  ~OurForms() override {
    PreviewForm().Unload();
    ReleasePreviewForm();
    UsePlatform(NativePlatform());
  }

  // Opens the window, lets `look` see it and closes it.
  void Look(const std::function<void(QWidget& window)>& look) {
    bool seen = false;
    QTimer::singleShot(0, &testing::TheApplication(), [&] {
      const QPointer<QWidget> window = QApplication::activeModalWidget();
      if (window && QTest::qWaitForWindowActive(window)) {
        seen = true;
        look(*window);
      }
      if (window) window->windowHandle()->close();
    });
    GetParam().open();
    EXPECT_TRUE(seen);
  }
};

std::string Describe(const QWidget& widget) {
  return std::string(widget.metaObject()->className()) + " " + widget.objectName().toStdString();
}

bool IsOurs(const QWidget& widget) {
  return !widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_");
}

QString NameOf(QWidget& widget) {
  return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

// What a screen reader stops at.
bool NeedsName(const QWidget& widget) {
  if (widget.inherits("QLabel") || !IsOurs(widget)) return false;
  return widget.focusPolicy() != Qt::NoFocus;
}

TEST_P(OurForms, HaveANameForEveryControlThatTheUserReaches) {
  Look([](QWidget& window) {
    int named = 0;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (!NeedsName(*widget)) continue;
      const QString name = NameOf(*widget);
      EXPECT_FALSE(name.isEmpty()) << Describe(*widget);
      EXPECT_FALSE(name.contains('&') || name.endsWith(':')) << name.toStdString();
      ++named;
    }
    EXPECT_GE(named, 3);
  });
}

// What Tab, then F10 and the arrows come by.
std::set<const QWidget*> WalkByKeyboard(QWidget& window) {
  constexpr int kMoreThanControls = 40;
  std::set<const QWidget*> reached;
  const auto walk = [&](Qt::Key key) {
    for (int i = 0; i < kMoreThanControls; ++i) {
      reached.insert(window.focusWidget());
      QTest::sendKeyEvent(QTest::Click, window.windowHandle(), key, QString(), {});
    }
  };
  walk(Qt::Key_Tab);
  QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_F10, QString(), {});
  if (qobject_cast<QToolButton*>(window.focusWidget()) != nullptr) walk(Qt::Key_Right);
  return reached;
}

// Arrows go from the set option of a group to the others.
bool IsPassedOver(const QWidget& widget) {
  const auto* option = qobject_cast<const QRadioButton*>(&widget);
  return option != nullptr && !option->isChecked();
}

TEST_P(OurForms, AreReachedByTheKeyboardAllOver) {
  Look([](QWidget& window) {
    const std::set<const QWidget*> reached = WalkByKeyboard(window);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (!NeedsName(*widget) || !widget->isVisible() || !widget->isEnabled()) continue;
      EXPECT_TRUE(reached.contains(widget) || IsPassedOver(*widget)) << Describe(*widget);
    }
  });
}

// The width that a caption takes in its widget; 0 for a widget without one.
int CaptionWidth(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    const QString text = QString(label->text()).remove('&');
    return widget.height() < 2 * widget.fontMetrics().height()
               ? widget.fontMetrics().horizontalAdvance(text)
               : 0;
  }
  if (const auto* option = qobject_cast<const QRadioButton*>(&widget)) {
    const QStyle& style = *widget.style();
    return style.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, &widget) +
           style.pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, &widget) +
           widget.fontMetrics().horizontalAdvance(QString(option->text()).remove('&'));
  }
  if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
    return widget.fontMetrics().horizontalAdvance(QString(button->text()).remove('&')) + 8;
  }
  if (const auto* frame = qobject_cast<const QGroupBox*>(&widget)) {
    return widget.fontMetrics().horizontalAdvance(frame->title());
  }
  return 0;
}

TEST_P(OurForms, HaveRoomForTheirCaptions) {
  Look([](QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      EXPECT_LE(CaptionWidth(*widget), widget->width()) << Describe(*widget);
      const bool isLine = qobject_cast<const QLabel*>(widget) != nullptr ||
                          qobject_cast<const QRadioButton*>(widget) != nullptr;
      const int height = isLine ? widget->fontMetrics().height() : 0;
      EXPECT_LE(height, widget->height()) << Describe(*widget);
    }
  });
}

TEST_P(OurForms, KeepTheirControlsApartAndWithinTheirContainers) {
  Look([](QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (!IsOurs(*widget) || !widget->isVisible()) continue;
      const QWidget& parent = *widget->parentWidget();
      if (widget->inherits("QToolButton") || widget->objectName() == "tbAfdrukken") continue;
      EXPECT_TRUE(parent.rect().contains(widget->geometry())) << Describe(*widget);
      for (const QObject* other : parent.children()) {
        const auto* beside = qobject_cast<const QWidget*>(other);
        if (beside == nullptr || beside == widget || !IsOurs(*beside)) continue;
        const QRect common = beside->geometry() & widget->geometry();
        // The arrows touch the copies box.
        EXPECT_LE(std::min(common.width(), common.height()), 2)
            << Describe(*widget) << " and " << Describe(*beside);
      }
    }
  });
}

// To be looked at: every window as it is, beside the test program.
TEST_P(OurForms, ArePictured) {
  const std::filesystem::path folder = std::filesystem::current_path() / "windows";
  std::filesystem::create_directories(folder);
  Look([&](QWidget& window) {
    const std::filesystem::path file = folder / (std::string(GetParam().name) + ".png");
    ASSERT_TRUE(window.grab().save(QString::fromStdString(file.string())));
    EXPECT_GT(std::filesystem::file_size(file), 1000U);
  });
}

INSTANTIATE_TEST_SUITE_P(, OurForms, ::testing::ValuesIn(kOpenings),
                         [](const auto& opening) { return std::string(opening.param.name); });

}  // namespace
}  // namespace pagivo
