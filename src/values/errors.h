// What becomes of errors: the two rules by which a call lets them through or loses them.
//
// "Errors ignored": a failing statement is lost alone, and execution goes on with the next one.
// Each statement that may fail stands alone in IgnoringErrors; a condition that may fail is tested
// by TrueOnError and continues in its true branch when the test itself fails.
//
// "Errors reported": whatever fails in a call reaches the host as an Error.
#pragma once

#include <cstdint>
#include <utility>

namespace pagivo {

// How many statements and conditions were lost because memory had run out. What is made by many of
// them lacks something when the number has changed since it was begun.
std::uint32_t LostForWantOfMemory() noexcept;

// Counts the failure that is being handled if it is one for want of memory.
void CountLostStatement() noexcept;

// Whatever is thrown is lost: host objects may throw what they like.
template <typename Statement>
void IgnoringErrors(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (...) {
    CountLostStatement();
  }
}

template <typename Condition>
bool TrueOnError(Condition&& condition) {
  try {
    return std::forward<Condition>(condition)();
  } catch (...) {
    CountLostStatement();
    return true;
  }
}

// What is thrown goes on to the caller: a statement whose arguments there is no memory for is as
// lost as one that cannot be carried out.
template <typename Statement>
decltype(auto) CountingLosses(Statement&& statement) {
  try {
    return std::forward<Statement>(statement)();
  } catch (...) {
    CountLostStatement();
    throw;
  }
}

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
