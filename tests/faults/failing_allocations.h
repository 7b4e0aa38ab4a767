// Allocations of C++ that fail on demand, for a program that links failing_allocations.cpp.
#pragma once

#include <iosfwd>

namespace pagivo::testing {

enum class Shortage {
  Once,     // one allocation fails, the next ones succeed
  Lasting,  // that one and all that follow
};

void PrintTo(Shortage shortage, std::ostream* stream);

// While there is one of these, the allocation of that number (from 1) fails.
class FailingAllocation {
 public:
  explicit FailingAllocation(long number, Shortage shortage = Shortage::Once);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  // How many there have been since it was made.
  long Count() const;
};

}  // namespace pagivo::testing
