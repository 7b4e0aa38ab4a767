// A script that the system's script host runs.
#include <string_view>

#include "automation_test.h"
#include "support/shell/shell.h"

namespace pagivo::automation::testing {
namespace {

std::string ReadAll(HANDLE pipe) {
  std::string text;
  char bytes[4096];
  DWORD count = 0;
  while (ReadFile(pipe, bytes, sizeof bytes, &count, nullptr) && count > 0) {
    text.append(bytes, count);
  }
  return text;
}

// What the script writes.
std::string OutputOf(std::wstring commandLine) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  CreatePipe(&read, &write, &inherited, 0);
  SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = write;
  PROCESS_INFORMATION process{};
  const BOOL isStarted = CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0,
                                        nullptr, nullptr, &startup, &process);
  CloseHandle(write);
  EXPECT_TRUE(isStarted);
  std::string text = isStarted ? ReadAll(read) : std::string();
  CloseHandle(read);
  if (isStarted) {
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
  }
  return text;
}

// What a script writes that makes script.pdf.
std::string OutputOfScript(std::string_view script) {
  return OutputOf(L"cscript.exe //nologo \"Z:" + std::wstring(script.begin(), script.end()) +
                  L"\" script.pdf");
}

TEST(Script, CallsEveryMethod) {
  EXPECT_EQ(OutputOfScript(PAGIVO_EVERY_METHOD), "73 methoden\r\n");
  EXPECT_TRUE(DeleteFileW(L"script.pdf"));
}

TEST(Script, MakesAFirstDocument) {
  EXPECT_EQ(OutputOfScript(PAGIVO_FIRST_DOCUMENT), "");
  EXPECT_EQ(RunInShell("pdftotext script.pdf -").output, "Goedemorgen\n\n\f");
  EXPECT_TRUE(DeleteFileW(L"script.pdf"));
}

}  // namespace
}  // namespace pagivo::automation::testing
