#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <stdexcept>

#include "support/shell/shell.h"

namespace pagivo {

ShellOutcome RunInShell(const std::string& line) {
  FILE* pipe = popen((line + " 2>&1").c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("no shell");
  ShellOutcome outcome;
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    outcome.output.append(buffer.data(), count);
  }
  outcome.status = WEXITSTATUS(pclose(pipe));
  return outcome;
}

}  // namespace pagivo
