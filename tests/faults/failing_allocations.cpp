#include "faults/failing_allocations.h"

#include <cstdlib>
#include <new>
#include <ostream>

namespace {

bool counting = false;
bool lasting = false;
long failing = 0;
long made = 0;

bool Fails() {
  if (!counting) return false;
  ++made;
  return lasting ? made >= failing : made == failing;
}

}  // namespace

void* operator new(std::size_t size) {
  if (Fails()) throw std::bad_alloc();
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace pagivo::testing {

void PrintTo(Shortage shortage, std::ostream* stream) {
  *stream << (shortage == Shortage::Once ? "once" : "lasting");
}

FailingAllocation::FailingAllocation(long number, Shortage shortage) {
  lasting = shortage == Shortage::Lasting;
  failing = number;
  made = 0;
  counting = true;
}

FailingAllocation::~FailingAllocation() {
  counting = false;
}

long FailingAllocation::Count() const {
  return made;
}

}  // namespace pagivo::testing
