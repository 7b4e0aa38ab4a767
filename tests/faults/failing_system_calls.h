// System calls on files that fail on demand, for a program that links failing_system_calls.cpp: its
// functions stand in front of the system's own.
#pragma once

#include <string_view>

namespace pagivo::testing {

// The calls that can fail: openat, write, fsync, fstat, fstatat, faccessat, fchmod, fchown, linkat,
// renameat, readlink.
//
// While there is one of these, the call of that number (from 1) fails with `error`; 0 lets a write
// take nothing. One whose number is 0 lets every one of them fail.
class FailingCall {
 public:
  FailingCall(std::string_view call, int number, int error);
  ~FailingCall();
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  // How many there have been.
  int Count() const;
};

}  // namespace pagivo::testing
