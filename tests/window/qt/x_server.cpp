#include "window/qt/x_server.h"

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

extern char** environ;

namespace pagivo::testing {

namespace {

constexpr int kDisplayDescriptor = 3;
constexpr int kPatience = 20000;  // milliseconds

pid_t Start(const std::string& screen, int displayPipe) {
  std::array<const char*, 9> arguments = {PAGIVO_XVFB,    "-displayfd", "3",   "-screen", "0",
                                          screen.c_str(), "-nolisten",  "tcp", nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, displayPipe, kDisplayDescriptor);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", 1 /* O_WRONLY */, 0);
  pid_t process = 0;
  const int failure = posix_spawn(&process, PAGIVO_XVFB, &actions, nullptr,
                                  const_cast<char**>(arguments.data()), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) throw std::runtime_error("no X server");
  return process;
}

// The server writes its number and a line break as soon as it answers.
std::string ReadDisplay(int pipe) {
  std::string number;
  pollfd readable{.fd = pipe, .events = POLLIN, .revents = 0};
  char letter = 0;
  while (poll(&readable, 1, kPatience) == 1 && read(pipe, &letter, 1) == 1 && letter != '\n') {
    number += letter;
  }
  if (letter != '\n') throw std::runtime_error("the X server does not answer");
  return ":" + number;
}

}  // namespace

XServer::XServer(int depth) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  process_ = Start("640x480x" + std::to_string(depth), ends[1]);
  close(ends[1]);
  display_ = ReadDisplay(ends[0]);
  close(ends[0]);
}

XServer::~XServer() {
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
}

}  // namespace pagivo::testing
