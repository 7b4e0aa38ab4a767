// What a test has taken of memory. Each system's folder has its source.
#pragma once

#include <cstdint>

namespace pagivo {

// The most memory, in bytes, that the process has held at one time.
std::uint64_t PeakMemory();

}  // namespace pagivo
