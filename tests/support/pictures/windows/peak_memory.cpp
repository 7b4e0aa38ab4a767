#include "support/pictures/peak_memory.h"

#include <psapi.h>
#include <windows.h>

namespace pagivo {

std::uint64_t PeakMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PeakPagefileUsage;
}

}  // namespace pagivo
