// Programs that a test starts, and stops whatever happens.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace pagivo {

// A program in the background. It gets the environment and the variables "NAME=value" on top of it;
// what it says goes into a file. It ends with this object, and also when the test program dies.
class ChildProcess {
 public:
  ChildProcess(const std::vector<std::string>& command, const std::string& logFile,
               const std::vector<std::string>& variables = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool IsRunning();
  void Send(int signal);
  // Asks it to end, and after three seconds ends it.
  void Stop();
  // Its exit code, once it has ended; -1 when a signal ended it.
  int Wait();

 private:
  bool Collect(int options);

  pid_t pid_;
  bool hasEnded_ = false;
  int exitCode_ = -1;
};

// Runs a program to its end and raises std::runtime_error with what it said when that is not 0.
void RunProgram(const std::vector<std::string>& command, const std::string& logFile);

}  // namespace pagivo
