#include "engine/native/spool/cups/waiting.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace pagivo::native {

void Waiting::Begin(std::chrono::milliseconds patience, KeepWaiting keepWaiting) {
  deadline_ = Clock::now() + patience;
  keepWaiting_ = std::move(keepWaiting);
}

bool Waiting::GoesOn() {
  if (keepWaiting_ && !keepWaiting_()) wasCancelled_ = true;
  if (Clock::now() >= deadline_) wasSilent_ = true;
  return !wasCancelled_ && !wasSilent_;
}

bool Waiting::Await(int file, short events) {
  pollfd wanted{.fd = file, .events = events, .revents = 0};
  while (GoesOn()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now());
    const auto slice = std::clamp(left, std::chrono::milliseconds(0), kSlice);
    if (poll(&wanted, 1, static_cast<int>(slice.count())) > 0) return true;
  }
  return false;
}

}  // namespace pagivo::native
