// What becomes of names, attributes, and files that other programs have open.
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "system/host_files_test.h"
#include "system/windows/wide_text.h"

namespace pagivo {
namespace {

class WindowsInputFile : public FilesOfAHost {};
class WindowsReplacement : public FilesOfAHost {};

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// A file that another program has open, for the length of a test.
class OpenElsewhere {
 public:
  OpenElsewhere(const std::string& path, DWORD share, DWORD access = GENERIC_READ)
      : file_(
            CreateFileW(ToWide(path).c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE) << GetLastError();
  }
  ~OpenElsewhere() { CloseHandle(file_); }
  OpenElsewhere(const OpenElsewhere&) = delete;
  OpenElsewhere& operator=(const OpenElsewhere&) = delete;

 private:
  HANDLE file_;
};

std::string WriteFailure(const std::string& path) {
  return FailureOf([&] { Replace(path, "nieuw"); });
}

std::string NotWritten(const std::string& path, const std::string& cause) {
  return "\"" + path + "\" kan niet worden geschreven: " + cause;
}

std::string NotRead(const std::string& path, const std::string& cause) {
  return "\"" + path + "\" kan niet worden gelezen: " + cause;
}

// --- Names ---------------------------------------------------------------------------------------

struct RefusedName {
  std::string name;  // in the test's folder
  const char* cause;
};

constexpr const char* kNotRegular = "dat is geen gewoon bestand";
constexpr const char* kInvalid = "dat is geen geldige bestandsnaam";
constexpr const char* kLong = "de naam is te lang";

const RefusedName kRefusedNames[] = {
    {"NUL", kNotRegular},
    {"nul.pdf", kNotRegular},
    {"CON", kNotRegular},
    {"con .txt", kNotRegular},
    {"PRN", kNotRegular},
    {"aux.", kNotRegular},
    {"CONOUT$", kNotRegular},
    {"COM1", kNotRegular},
    {"LPT1.pdf", kNotRegular},
    {"lpt9.tar.gz", kNotRegular},
    {"COM\u00B2", kNotRegular},
    {"a*.pdf", kInvalid},
    {"a?.pdf", kInvalid},
    {"a|b", kInvalid},
    {"a<b>", kInvalid},
    {"a\"b", kInvalid},
    {"a\tb", kInvalid},
    {"a.pdf:stroom", kInvalid},
    {"a.pdf::$DATA", kInvalid},
    {"caf\xE9.pdf", kInvalid},
    {std::string(256, 'n'), kLong},
    {std::string(300, 'n') + ".pdf", kLong},
    {std::string(40'000, 'n'), kLong},
};

TEST_F(WindowsReplacement, RefusesNamesThatNoFileCanHave) {
  for (const auto& [name, cause] : kRefusedNames) {
    const std::string path = folder.FileNamed(name);
    EXPECT_EQ(WriteFailure(path), NotWritten(path, cause));
    EXPECT_EQ(Entries(), 0) << name;
  }
}

TEST_F(WindowsInputFile, RefusesNamesThatNoFileCanHave) {
  for (const auto& [name, cause] : kRefusedNames) {
    const std::string path = folder.FileNamed(name);
    ExpectRefused(path, NotRead(path, cause));
  }
}

TEST_F(WindowsReplacement, RefusesDevicesAndPipesByWhateverName) {
  for (const char* name :
       {"NUL", "C:NUL", R"(\\.\NUL)", "//./C:", R"(\\.\pipe\pagivo)", R"(\\server\pipe\pagivo)",
        R"(\\?\UNC\server\PIPE\pagivo)", R"(\\server\mailslot\a)", R"(\\?\GLOBALROOT\Device\Null)",
        R"(\\?\NUL)"}) {
    EXPECT_EQ(WriteFailure(name), NotWritten(name, kNotRegular));
  }
}

TEST_F(WindowsReplacement, DoesNotCountBlanksAndPointsAtTheEndOfAName) {
  Replace(folder.FileNamed("a.pdf. . "), "nieuw");
  EXPECT_EQ(ReadFile(folder.FileNamed("a.pdf")), "nieuw");
}

TEST_F(WindowsReplacement, TakesNamesInEveryLanguageAndBothKindsOfSlashes) {
  for (const char8_t* name : {u8"caf\u00E9 \u20AC.pdf", u8"\u6587\u4EF6.pdf", u8"\U0001F4C4.pdf"}) {
    const auto* const text = reinterpret_cast<const char*>(name);
    std::string path = folder.FileNamed(text);
    Replace(path, "oud");
    std::ranges::replace(path, '/', '\\');
    Replace(path, "nieuw");
    const std::vector<std::uint8_t> bytes = InputFile(folder.FileNamed(text)).Read();
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "nieuw");
  }
}

// A path of 400 characters and more, whose folders exist.
std::string DeepPath(const std::string& folder) {
  std::string path = folder;
  for (int i = 0; i < 8; ++i) {
    path += "/" + std::string(50, 'd');
    std::filesystem::create_directory(R"(\\?\)" +
                                      std::filesystem::path(path).make_preferred().string());
  }
  return path + "/diep.pdf";
}

TEST_F(WindowsReplacement, TakesPathsOfMoreThan260Characters) {
  const std::string path = DeepPath(folder.Path());
  Replace(path, "oud");
  Replace(path, "nieuw");
  Replace(R"(\\?\)" + std::filesystem::path(path).make_preferred().string(), "nieuwer");
  EXPECT_EQ(IdentityOf(path).size, 7U);
  EXPECT_EQ(InputFile(path).Read().size(), 7U);
}

// --- What is in the way --------------------------------------------------------------------------

TEST_F(WindowsReplacement, SaysWhyThereIsNoPlaceForIt) {
  const std::string file = Old();
  const std::string map = folder.FileNamed("map");
  std::filesystem::create_directory(map);
  const std::pair<std::string, const char*> places[] = {
      {map, "er is al een map met die naam"},
      {map + "/", "er is al een map met die naam"},
      {folder.FileNamed("weg/a.pdf"), "de map bestaat niet"},
      {file + "/a.pdf", "een deel van het pad is geen map"},
      {file + "/b/a.pdf", "een deel van het pad is geen map"},
      {"Q:\\a.pdf", "de map bestaat niet"},
      {R"(\\geen.server.invalid\map\a.pdf)", "de map bestaat niet"},
  };
  for (const auto& [path, cause] : places) {
    EXPECT_EQ(WriteFailure(path), NotWritten(path, cause));
  }
  EXPECT_EQ(Entries(), 2);
}

TEST_F(WindowsReplacement, RefusesAReadOnlyFile) {
  const std::string path = Old();
  SetFileAttributesW(ToWide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(WriteFailure(path), NotWritten(path, "het bestaande bestand is alleen-lezen"));
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_EQ(Entries(), 1);
  SetFileAttributesW(ToWide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsReplacement, LeavesAFileThatOthersHaveOpenAsItIs) {
  const std::string path = Old();
  for (const DWORD share :
       {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
    const OpenElsewhere elsewhere(path, share);
    EXPECT_EQ(WriteFailure(path),
              NotWritten(path, "een ander programma heeft het bestand geopend"));
  }
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_EQ(Entries(), 1);
}

// Those who let a file be deleted let it be replaced where the system can do that; where it cannot,
// they have it open.
TEST_F(WindowsReplacement, ReplacesAFileThatOthersLetBeDeletedOrSaysThatTheyHaveItOpen) {
  const std::string path = Old();
  std::string failure;
  {
    const OpenElsewhere elsewhere(path, kShareAll);
    failure = WriteFailure(path);
  }
  if (failure.empty()) {
    EXPECT_EQ(ReadFile(path), "nieuw");
  } else {
    EXPECT_EQ(failure, NotWritten(path, "een ander programma heeft het bestand geopend"));
    EXPECT_EQ(ReadFile(path), "oud");
  }
  EXPECT_EQ(Entries(), 1);
}

TEST_F(WindowsReplacement, LeavesTheOldFileWhereAnotherProgramOpensItMeanwhile) {
  const std::string path = Old();
  {
    FileReplacement file(path);
    file.Write(Bytes("nieuw"));
    const OpenElsewhere elsewhere(path, FILE_SHARE_READ);
    EXPECT_EQ(FailureOf([&] { file.Commit(); }),
              NotWritten(path, "een ander programma heeft het bestand geopend"));
  }
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(WindowsInputFile, IsReadWhileOthersHaveItOpenUnlessTheyForbidIt) {
  const std::string path = Old();
  {
    const OpenElsewhere reader(path, FILE_SHARE_READ);
    EXPECT_EQ(InputFile(path).Read().size(), 3U);
  }
  {
    const OpenElsewhere writer(path, kShareAll, GENERIC_READ | GENERIC_WRITE);
    EXPECT_EQ(InputFile(path).Read().size(), 3U);
  }
  const OpenElsewhere jealous(path, 0);
  EXPECT_EQ(IdentityOf(path).size, 3U);
  EXPECT_EQ(FailureOf([&] { InputFile file(path); }),
            NotRead(path, "een ander programma heeft het bestand geopend"));
}

// --- What is kept --------------------------------------------------------------------------------

TEST_F(WindowsReplacement, KeepsAHiddenFileHiddenAndASystemFileOne) {
  const std::string path = Old();
  constexpr DWORD kBoth = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  for (const DWORD kept : {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM}, kBoth}) {
    SetFileAttributesW(ToWide(path).c_str(), kept);
    const DWORD before = GetFileAttributesW(ToWide(path).c_str());
    Replace(path, "nieuw");
    EXPECT_EQ(GetFileAttributesW(ToWide(path).c_str()) & kBoth, before & kBoth);
  }
}

std::vector<std::byte> AccessListOf(const std::string& path) {
  DWORD size = 0;
  GetFileSecurityW(ToWide(path).c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> list(size);
  EXPECT_NE(
      GetFileSecurityW(ToWide(path).c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size),
      0);
  return list;
}

TEST_F(WindowsReplacement, KeepsWhoMayDoWhatWithTheFile) {
  const std::string path = Old();
  const std::string other = folder.FileNamed("nieuw.pdf");
  std::array<char, 256> bytes{};
  SECURITY_DESCRIPTOR rights{};
  auto* const list = reinterpret_cast<ACL*>(bytes.data());
  std::array<char, SECURITY_MAX_SID_SIZE> user{};
  DWORD size = sizeof user;
  ASSERT_TRUE(CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, user.data(), &size));
  ASSERT_TRUE(InitializeAcl(list, sizeof bytes, ACL_REVISION));
  ASSERT_TRUE(AddAccessAllowedAce(list, ACL_REVISION, GENERIC_ALL, user.data()));
  ASSERT_TRUE(InitializeSecurityDescriptor(&rights, SECURITY_DESCRIPTOR_REVISION));
  ASSERT_TRUE(SetSecurityDescriptorDacl(&rights, TRUE, list, FALSE));
  ASSERT_TRUE(SetFileSecurityW(ToWide(path).c_str(), DACL_SECURITY_INFORMATION, &rights));
  const std::vector<std::byte> before = AccessListOf(path);
  Replace(path, "nieuw");
  Replace(other, "nieuw");
  EXPECT_EQ(AccessListOf(path), before);
  EXPECT_NE(AccessListOf(other), before);
}

// --- A process that ends -------------------------------------------------------------------------

constexpr const char* kPathOfVictim = "PAGIVO_PATH_OF_VICTIM";

// What the process that is killed does.
void WriteUntilKilled(const std::string& path) {
  FileReplacement file(path);
  file.Write(Bytes(std::string(100'000, 'x')));
  std::ofstream(path + ".begonnen") << "ja";
  std::this_thread::sleep_for(std::chrono::minutes(1));
}

// Starts this program again, for the one test.
HANDLE StartVictim(const std::string& test, const std::string& path) {
  std::array<wchar_t, MAX_PATH> program{};
  GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
  std::wstring command =
      L"\"" + std::wstring(program.data()) + L"\" --gtest_filter=" + ToWide(test);
  SetEnvironmentVariableA(kPathOfVictim, path.c_str());
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &startup, &process));
  SetEnvironmentVariableA(kPathOfVictim, nullptr);
  CloseHandle(process.hThread);
  return process.hProcess;
}

TEST_F(WindowsReplacement, OfAProcessThatIsKilledLeavesTheOldFileAndNothingElse) {
  if (const char* path = std::getenv(kPathOfVictim)) return WriteUntilKilled(path);
  const std::string path = Old();
  const HANDLE victim =
      StartVictim("WindowsReplacement.OfAProcessThatIsKilledLeavesTheOldFileAndNothingElse", path);
  for (int i = 0; i < 600 && !std::filesystem::exists(path + ".begonnen"); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  EXPECT_EQ(Entries(), 3) << "the old file, the new one under its own name, and the sign";
  TerminateProcess(victim, 1);
  WaitForSingleObject(victim, INFINITE);
  CloseHandle(victim);
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_EQ(Entries(), 2);
}

}  // namespace
}  // namespace pagivo
