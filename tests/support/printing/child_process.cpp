#include "support/printing/child_process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "support/read_file.h"

namespace pagivo {
namespace {

// Servers and their tools lie where a plain user's PATH does not look.
std::string SearchPath() {
  const char* path = std::getenv("PATH");
  return std::string(path == nullptr ? "/usr/bin:/bin" : path) + ":/usr/sbin:/sbin";
}

[[noreturn]] void Become(const std::vector<std::string>& command, const std::string& logFile,
                         const std::vector<std::string>& variables) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  const int log = open(logFile.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  dup2(log, STDOUT_FILENO);
  dup2(log, STDERR_FILENO);
  setenv("PATH", SearchPath().c_str(), 1);
  for (const std::string& variable : variables) putenv(const_cast<char*>(variable.c_str()));
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, const std::string& logFile,
                           const std::vector<std::string>& variables)
    : pid_(fork()) {
  if (pid_ < 0) throw std::runtime_error("cannot start " + command.front());
  if (pid_ == 0) Become(command, logFile, variables);
}

ChildProcess::~ChildProcess() {
  Stop();
}

bool ChildProcess::Collect(int options) {
  int status = 0;
  if (hasEnded_ || waitpid(pid_, &status, options) != pid_) return hasEnded_;
  hasEnded_ = true;
  exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return true;
}

bool ChildProcess::IsRunning() {
  return !Collect(WNOHANG);
}

void ChildProcess::Send(int signal) {
  if (IsRunning()) kill(pid_, signal);
}

void ChildProcess::Stop() {
  if (!IsRunning()) return;
  kill(pid_, SIGTERM);
  for (int wait = 0; wait < 300 && IsRunning(); ++wait) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  if (IsRunning()) kill(pid_, SIGKILL);
  Collect(0);
}

int ChildProcess::Wait() {
  Collect(0);
  return exitCode_;
}

void RunProgram(const std::vector<std::string>& command, const std::string& logFile) {
  if (ChildProcess(command, logFile).Wait() == 0) return;
  throw std::runtime_error(command.front() + " failed: " + ReadFile(logFile));
}

}  // namespace pagivo
