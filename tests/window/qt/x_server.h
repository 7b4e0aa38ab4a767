// An X server of a test's own, without a screen that anybody sees.
#pragma once

#include <sys/types.h>

#include <string>

namespace pagivo::testing {

// On a display that was free; ends with this object, and by itself when its last client has left.
class XServer {
 public:
  // Bits a pixel of the screen's colours: 16 or 24.
  explicit XServer(int depth);
  ~XServer();
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  const std::string& Display() const noexcept { return display_; }

 private:
  pid_t process_ = 0;
  std::string display_;
};

}  // namespace pagivo::testing
