// Waiting for the print server, never longer than was said.
#pragma once

#include <chrono>

#include "engine/native/spool/print_server.h"

namespace pagivo::native {

using Clock = std::chrono::steady_clock;

// One deadline for all the waiting from Begin on, however often something arrives meanwhile.
class Waiting {
 public:
  // How often the one who waits is asked whether to wait on.
  static constexpr std::chrono::milliseconds kSlice{50};

  // Until the deadline `keepWaiting` is asked now and then; it may be empty.
  void Begin(std::chrono::milliseconds patience, KeepWaiting keepWaiting = {});

  // Until the file is ready for the poll events. False when there is no time left, or the one who
  // waits has had enough.
  bool Await(int file, short events);
  // Whether there is time left.
  bool GoesOn();

  // What ended the waiting.
  bool WasSilent() const noexcept { return wasSilent_; }
  bool WasCancelled() const noexcept { return wasCancelled_; }

 private:
  KeepWaiting keepWaiting_;
  Clock::time_point deadline_;
  bool wasSilent_ = false;
  bool wasCancelled_ = false;
};

}  // namespace pagivo::native
