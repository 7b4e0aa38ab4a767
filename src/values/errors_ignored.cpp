#include "values/errors_ignored.h"

#include <new>

#include "pagivo/error.h"

namespace pagivo {
namespace {

std::uint32_t lostForWantOfMemory = 0;

}  // namespace

std::uint32_t LostForWantOfMemory() noexcept {
  return lostForWantOfMemory;
}

void CountLostStatement() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    ++lostForWantOfMemory;
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::OutOfMemory) ++lostForWantOfMemory;
  } catch (...) {  // NOLINT(bugprone-empty-catch): losing it is the rule
  }
}

}  // namespace pagivo
