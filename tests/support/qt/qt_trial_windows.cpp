// The trial windows of programs with real widgets.
#include <gtest/gtest.h>

#include <QApplication>
#include <QObject>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include "support/qt/qt_user.h"
#include "support/qt/shown_form.h"
#include "support/trial_windows.h"
#include "window/qt/qt_windows.h"

namespace pagivo::testing {

namespace {

// A modal showing and the script that stands in for its user.
class Attendance {
 public:
  Attendance(Form& form, TrialWindows::Script script) : form_(form), script_(std::move(script)) {}

  void Run(const std::function<void()>& showing) {
    // Runs the script as the first thing that happens in the window's event loop.
    QObject begin;
    QTimer::singleShot(0, &begin, [this] { Attend(); });
    showing();
    EXPECT_FALSE(window_ && window_->isVisible()) << "a window stays open";
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  // Nothing may be thrown through the event loop.
  void Attend() {
    try {
      window_ = QApplication::activeModalWidget();
      if (script_) Play(*window_);
      Leave();
    } catch (...) {
      failure_ = std::current_exception();
      form_.Hide();
    }
  }

  void Play(QWidget& window) {
    QtUser user(form_, window);
    // What the window system has to tell of the showing comes before the user.
    QCoreApplication::processEvents();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    ExpectShown(form_, window);
    script_(form_, user);
    if (form_.Visible()) ExpectShown(form_, window);
  }

  void Leave() {
    if (form_.Visible() && window_) QtUser(form_, *window_).Close();
    form_.Hide();
  }

  Form& form_;
  TrialWindows::Script script_;
  QPointer<QWidget> window_;
  std::exception_ptr failure_;
};

// Lives until the process ends, like that of a host.
void MakeApplication() {
  static int count = 1;
  static char name[] = "pagivo_tests";
  static char* arguments[] = {name, nullptr};
  static QApplication& application = *new QApplication(count, arguments);
  // Scripts are quicker than people: no two clicks of theirs are one.
  application.setDoubleClickInterval(0);
}

class QtTrialWindows : public TrialWindows {
 public:
  QtTrialWindows() : TrialWindows(std::make_shared<QtWindows>()) {}

  std::size_t Count() const override {
    // What Qt has put off deleting.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return static_cast<std::size_t>(QApplication::topLevelWidgets().size());
  }

 protected:
  void Attend(Form& form, const Showing& showing, Script script) override {
    Attendance(form, std::move(script)).Run(showing);
  }
};

}  // namespace

std::shared_ptr<TrialWindows> MakeTrialWindows() {
  MakeApplication();
  return std::make_shared<QtTrialWindows>();
}

}  // namespace pagivo::testing
