#include "peak_memory.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "report_page.h"

namespace pagivo::bench {

// The picture must be this process's, for the other one leaves without tidying up.
void PeakMemory(benchmark::State& state, const std::function<void()>& work) {
  ReportPicturePath();
  rusage usage{};
  for (auto _ : state) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(0);
    }
    int status = 0;
    wait4(child, &status, 0, &usage);
    if (status != 0) state.SkipWithError("the child process failed");
  }
  state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace pagivo::bench
