// What the tests of the Qt windows share: an application object, and showings that a test attends.
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "window/form.h"
#include "window/qt/qt_windows.h"

namespace pagivo::testing {

// A form whose handlers are the test's.
class TestForm : public Form {
 public:
  TestForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design)
      : Form(std::move(windows), design) {}

  std::function<void()> atResize = [] {};
  std::function<void()> atPaint = [] {};
  std::function<void(std::int16_t& keyCode, std::int16_t shift)> atKeyDown = [](auto&, auto) {};
  std::function<void(bool& cancel, UnloadMode mode)> atQueryUnload = [](auto&, auto) {};
  std::function<void()> atShowingFailed = [] {};

 private:
  void OnResize() override { atResize(); }
  void OnPaint() override { atPaint(); }
  void OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override { atKeyDown(keyCode, shift); }
  void OnQueryUnload(bool& cancel, UnloadMode mode) override { atQueryUnload(cancel, mode); }
  void OnShowingFailed() override { atShowingFailed(); }
};

// Without a display of its own choice the program draws into memory.
inline QApplication& TheApplication() {
  static QApplication& application = []() -> QApplication& {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "pagivo_tests_qt";
    static char* arguments[] = {name, nullptr};
    return *new QApplication(count, arguments);
  }();
  return application;
}

inline QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

class QtWindowsTest : public ::testing::Test {
 protected:
  QtWindowsTest() { TheApplication(); }

  std::shared_ptr<TestForm> MakeForm(const FormDesign& design) {
    return std::make_shared<TestForm>(windows, design);
  }

  // Shows the form and runs `attend` with its window once that is on the screen and active; then
  // the window is closed if need be. What either raises is passed on.
  void Show(Form& form, const std::function<void(QWidget& window)>& attend) {
    std::exception_ptr failure;
    QTimer::singleShot(0, &TheApplication(), [&] {
      const QPointer<QWidget> window = QApplication::activeModalWidget();
      try {
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        QCoreApplication::processEvents();
        if (window) attend(*window);
      } catch (...) {
        failure = std::current_exception();
      }
      if (window && window->isVisible()) form.Hide();
    });
    form.ShowModal();
    if (failure) std::rethrow_exception(failure);
  }

  template <typename Widget = QWidget>
  static Widget& Find(QWidget& window, std::string_view name) {
    auto* widget = window.findChild<Widget*>(Text(name));
    if (widget == nullptr) throw std::logic_error("no widget " + std::string(name));
    return *widget;
  }

  static void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::sendKeyEvent(QTest::Click, window.windowHandle(), key, QString(), modifiers);
  }

  std::shared_ptr<QtWindows> windows = std::make_shared<QtWindows>();
};

}  // namespace pagivo::testing
