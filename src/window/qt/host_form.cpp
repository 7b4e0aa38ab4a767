#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <array>
#include <memory>

#include "pagivo/error.h"
#include "pagivo/qt_windows.h"
#include "values/late_binding.h"
#include "window/form.h"
#include "window/qt/qt_conversions.h"

namespace pagivo {

namespace {

// Milliseconds that the window system gets to put a window on the screen.
constexpr int kLongestWait = 1000;

bool IsOnItsWay(const QPointer<QWidget>& window) {
  const QWindow* handle = window ? window->windowHandle() : nullptr;
  return handle != nullptr && window->isVisible() && !window->isMinimized() && !handle->isExposed();
}

void HandleEventsUntilShown(const QPointer<QWidget>& window) {
  const QDeadlineTimer deadline(kLongestWait);
  while (IsOnItsWay(window) && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(1);
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

class QtHostForm final : public Object {
 public:
  explicit QtHostForm(QWidget& widget) : widget_(&widget) {}

  Variant GetMember(std::string_view name) override;

  std::int16_t GetWindowState() { return static_cast<std::int16_t>(PresentState()); }
  float GetTop() { return qt::ToTwips(Window().frameGeometry().top()); }
  float GetLeft() { return qt::ToTwips(Window().frameGeometry().left()); }
  float GetHeight() { return qt::ToTwips(Window().frameGeometry().height()); }
  float GetWidth() { return qt::ToTwips(Window().frameGeometry().width()); }

 private:
  QWidget& Window();
  void AwaitPlace();
  WindowState PresentState();

  QPointer<QWidget> widget_;
  bool isOutOfSight_ = false;  // it was awaited and did not come
};

constexpr std::array kRows = {
    BindMember<&QtHostForm::GetWindowState>("WindowState", 1, MemberKind::Get),
    BindMember<&QtHostForm::GetTop>("Top", 2, MemberKind::Get),
    BindMember<&QtHostForm::GetLeft>("Left", 3, MemberKind::Get),
    BindMember<&QtHostForm::GetHeight>("Height", 4, MemberKind::Get),
    BindMember<&QtHostForm::GetWidth>("Width", 5, MemberKind::Get),
};
constexpr MemberTable<QtHostForm> kMembers(kRows);

Variant QtHostForm::GetMember(std::string_view name) {
  return kMembers.Get(*this, name);
}

// A window that has only just been shown has neither place nor frame.
void QtHostForm::AwaitPlace() {
  const QPointer<QWidget> window = widget_->window();
  if (IsOnItsWay(window) && !isOutOfSight_) HandleEventsUntilShown(window);
  isOutOfSight_ = IsOnItsWay(window);
}

QWidget& QtHostForm::Window() {
  if (widget_) AwaitPlace();
  if (!widget_) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het venster van het hoofdprogramma bestaat niet meer");
  }
  return *widget_->window();
}

WindowState QtHostForm::PresentState() {
  const QWidget& window = Window();
  if (window.isMinimized()) return WindowState::Minimised;
  return window.isMaximized() ? WindowState::Maximised : WindowState::Normal;
}

}  // namespace

ObjectRef MakeHostForm(QWidget& widget) {
  return std::make_shared<QtHostForm>(widget);
}

}  // namespace pagivo
