// How much memory work takes at most.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace pagivo::bench {

// Does the work in a process of its own, and counts that process's largest memory as "peak_MB". A
// process begins at its parent's size: measure this before anything large.
void PeakMemory(benchmark::State& state, const std::function<void()>& work);

}  // namespace pagivo::bench
