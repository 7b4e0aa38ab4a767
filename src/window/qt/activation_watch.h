// The window of the program that the user has turned to.
#pragma once

#include <qwindowdefs.h>

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <functional>

namespace pagivo::qt {

// Tells, as long as it lives, of every window of the program that the window system gives the
// keyboard: also of those that a modal window keeps from use, of which Qt itself says nothing. On
// an X server; elsewhere it tells of none.
class ActivationWatch final : public QAbstractNativeEventFilter {
 public:
  // `present` has the keyboard now; 0 when none of the program's windows has.
  ActivationWatch(WId present, std::function<void()> changed);

  // The window with the keyboard, or 0.
  WId Active() const noexcept { return active_; }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  WId active_;
  std::function<void()> changed_;
};

}  // namespace pagivo::qt
