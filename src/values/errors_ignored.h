// "Errors ignored": a failing statement is lost alone, and execution goes on with the next one.
//
// Each statement that may fail stands alone in IgnoringErrors; a condition that may fail is tested
// by TrueOnError and continues in its true branch when the test itself fails.
#pragma once

#include <exception>
#include <utility>

namespace pagivo {

template <typename Statement>
void IgnoringErrors(Statement&& statement) noexcept {
  try {
    std::forward<Statement>(statement)();
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): losing it is the rule
  }
}

template <typename Condition>
bool TrueOnError(Condition&& condition) noexcept {
  try {
    return std::forward<Condition>(condition)();
  } catch (const std::exception&) {
    return true;
  }
}

}  // namespace pagivo
