#include "window/qt/activation_watch.h"

#include <xcb/xcb.h>

#include <QCoreApplication>
#include <cstdint>
#include <utility>

namespace pagivo::qt {

namespace {

constexpr std::uint8_t kSentByAnother = 0x80;  // in an event's type

}  // namespace

ActivationWatch::ActivationWatch(WId present, std::function<void()> changed)
    : active_(present), changed_(std::move(changed)) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool ActivationWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  const int kind =
      static_cast<const xcb_generic_event_t*>(message)->response_type & ~kSentByAnother;
  if (kind != XCB_FOCUS_IN && kind != XCB_FOCUS_OUT) return false;
  const auto& focus = *static_cast<const xcb_focus_in_event_t*>(message);
  // A pointer that lies over a window does not give it the keyboard.
  if (focus.detail == XCB_NOTIFY_DETAIL_POINTER) return false;
  active_ = kind == XCB_FOCUS_IN ? focus.event : 0;
  changed_();
  return false;
}

}  // namespace pagivo::qt
