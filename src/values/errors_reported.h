// "Errors reported": whatever fails in a call reaches the host as an Error.
#pragma once

#include <utility>

namespace pagivo {

// Raises the exception that is being handled: as it is if it is an Error, for want of memory as
// ErrorNumber::OutOfMemory, any other as ErrorNumber::InvalidArgument with its own description.
[[noreturn]] void RaiseAsError();

template <typename Call>
decltype(auto) ReportingErrors(Call&& call) {
  try {
    return std::forward<Call>(call)();
  } catch (...) {
    RaiseAsError();
  }
}

}  // namespace pagivo
