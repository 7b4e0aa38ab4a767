// Other programs that tests ask: readers of PDF files and pictures.
#pragma once

#include <string>

namespace pagivo {

struct ShellOutcome {
  int status = 0;      // that the line ended with; 0 is success
  std::string output;  // all that it said, complaints included
};

// Runs a line of the Unix shell; under Wine too, where names of files that begin with the drive of
// the whole system, "Z:/", are understood. Raises std::runtime_error when there is no shell.
ShellOutcome RunInShell(const std::string& line);

}  // namespace pagivo
