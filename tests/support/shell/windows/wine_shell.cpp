#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "support/read_file.h"
#include "support/scratch_folder.h"
#include "support/shell/shell.h"

namespace pagivo {
namespace {

constexpr ULONGLONG kPatience = 60'000;  // milliseconds
constexpr DWORD kBetweenLooks = 2;
constexpr std::string_view kDrive = "Z:/";

// The names that Linux has for the files of a line.
std::string OnLinux(std::string text) {
  for (std::size_t at = text.find(kDrive); at != std::string::npos; at = text.find(kDrive, at)) {
    text.erase(at, kDrive.size() - 1);
  }
  return text;
}

void Start(std::string command) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (CreateProcessA("Z:\\bin\\sh", command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) == FALSE) {
    throw std::runtime_error("no shell");
  }
}

}  // namespace

// Wine starts programs of Linux, but has no handles of theirs: the line says in a file how it
// ended.
ShellOutcome RunInShell(const std::string& line) {
  const ScratchFolder folder;
  const std::string output = folder.FileNamed("output");
  const std::string status = folder.FileNamed("status");
  if (!status.starts_with(kDrive)) throw std::runtime_error("Linux cannot find " + status);
  std::ofstream(folder.FileNamed("script"), std::ios::binary)
      << OnLinux("(" + line + "\n) >" + output + " 2>&1\n" + "echo $? >" + status + ".new\n" +
                 "mv " + status + ".new " + status + "\n");
  Start(OnLinux("/bin/sh " + folder.FileNamed("script")));
  const ULONGLONG begin = GetTickCount64();
  while (!std::filesystem::exists(status)) {
    if (GetTickCount64() - begin > kPatience) throw std::runtime_error("silent: " + line);
    Sleep(kBetweenLooks);
  }
  return {.status = std::atoi(ReadFile(status).c_str()), .output = ReadFile(output)};
}

}  // namespace pagivo
