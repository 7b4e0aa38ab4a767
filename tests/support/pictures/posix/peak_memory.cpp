#include "support/pictures/peak_memory.h"

#include <sys/resource.h>

namespace pagivo {

std::uint64_t PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
}

}  // namespace pagivo
