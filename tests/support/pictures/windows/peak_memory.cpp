#include "support/pictures/peak_memory.h"

// The second header wants the first one before it.
// clang-format off
#include <windows.h>
#include <psapi.h>
// clang-format on

namespace pagivo {

std::uint64_t PeakMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PeakPagefileUsage;
}

}  // namespace pagivo
