#include <windows.h>

#include <algorithm>
#include <cstddef>

#include "system/file_failures.h"
#include "system/host_files.h"
#include "system/windows/open_file.h"
#include "system/windows/windows_names.h"

namespace pagivo {
namespace {

// Where an open file stands, links followed; empty on the few volumes that do not say.
std::wstring PathOf(HANDLE file) {
  constexpr DWORD kForm = FILE_NAME_NORMALIZED | VOLUME_NAME_DOS;
  std::wstring path(GetFinalPathNameByHandleW(file, nullptr, 0, kForm), L'\0');
  const auto room = static_cast<DWORD>(path.size());
  path.resize(std::min(GetFinalPathNameByHandleW(file, path.data(), room, kForm), room));
  return path;
}

// Whether a link has the path, whatever it leads to.
bool IsLink(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// Whether what should be a folder of the path is a file.
bool LeadsThroughFile(std::wstring path) {
  for (std::size_t end = path.rfind(L'\\'); end != path.npos && end > 0; end = path.rfind(L'\\')) {
    path.resize(end);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  }
  return false;
}

// Who may do what with the file, in the form in which the system gives it to another; empty if the
// user may not know.
std::vector<std::byte> AccessListOf(const std::wstring& path) {
  DWORD size = 0;
  GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<std::byte> list(size);
  const bool isKnown = size > 0 && GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION,
                                                    list.data(), size, &size) != 0;
  if (!isKnown) list.clear();
  return list;
}

// Has the system delete the file when it is closed, by whatever end of the process, or not.
bool SetVanishing(HANDLE file, bool vanishes) {
  FILE_DISPOSITION_INFO disposition{.DeleteFile = static_cast<BOOLEAN>(vanishes)};
  return SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition) !=
         0;
}

// Windows 10 has a renaming that takes the name from a file that others have open, if they let it
// be deleted. The headers know it only for the latest programs.
constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr BOOLEAN kReplace = 1;
constexpr BOOLEAN kReplaceOpen = kReplace | 2;

bool Rename(HANDLE file, const std::wstring& path, FILE_INFO_BY_HANDLE_CLASS kind, BOOLEAN how) {
  constexpr std::size_t kNameAt = offsetof(FILE_RENAME_INFO, FileName);
  const std::size_t nameSize = path.size() * sizeof(wchar_t);
  const std::size_t size = kNameAt + nameSize + sizeof(wchar_t);
  const auto bytes = std::make_unique<std::byte[]>(size);
  auto* const renaming = reinterpret_cast<FILE_RENAME_INFO*>(bytes.get());
  renaming->ReplaceIfExists = how;
  renaming->FileNameLength = static_cast<DWORD>(nameSize);
  std::ranges::copy(path, renaming->FileName);
  return SetFileInformationByHandle(file, kind, renaming, static_cast<DWORD>(size)) != 0;
}

}  // namespace

class FileReplacement::System {
 public:
  explicit System(const std::string& fileName) : name_(fileName) {}
  ~System();
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  void Open();
  void Write(std::span<const std::uint8_t> bytes);
  void Commit();

 private:
  Handle FindOldFile();
  Handle MakeEmptyFile();
  void TakeOver(HANDLE old);
  void RequireRight(DWORD access, FileCause ifDenied, bool mayBeInUse) const;
  void OpenTemporary();
  void TakeName();
  [[noreturn]] void Fail(DWORD error) const;

  std::string name_;                   // as the host gave it
  std::wstring target_;                // its path, links followed
  bool replaces_ = false;              // whether there is an old file
  bool madeEmptyFile_ = false;         // under the target's name
  DWORD attributes_ = 0;               // the old file's, as far as they are kept
  std::vector<std::byte> accessList_;  // the old file's
  Handle file_;                        // what is written; it vanishes when it is closed
};

void FileReplacement::System::Open() {
  RequireWritableName(name_);
  const ResolvedName resolved = ResolveName(name_);
  if (resolved.refusal) ThrowWriteFailure(name_, *resolved.refusal);
  target_ = resolved.path;
  if (EntryOf(target_).empty()) ThrowWriteFailure(name_, FileCause::Folder);
  if (const Handle old = FindOldFile()) TakeOver(old.get());
  OpenTemporary();
}

FileReplacement::System::~System() {
  file_.reset();
  if (madeEmptyFile_) DeleteFileW(target_.c_str());
}

void FileReplacement::System::Fail(DWORD error) const {
  if (error == ERROR_PATH_NOT_FOUND && LeadsThroughFile(target_)) {
    ThrowWriteFailure(name_, FileCause::BelowAFile);
  }
  ThrowWriteFailure(name_, error);
}

Handle FileReplacement::System::FindOldFile() {
  Handle old = OpenExisting(target_, kLook);
  if (old) return old;
  const DWORD error = GetLastError();
  if (error != ERROR_FILE_NOT_FOUND) Fail(error);
  return IsLink(target_) ? MakeEmptyFile() : Handle();
}

// Where a link leads to nothing yet.
Handle FileReplacement::System::MakeEmptyFile() {
  Handle file = Held(CreateFileW(target_.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) Fail(GetLastError());
  madeEmptyFile_ = GetLastError() != ERROR_ALREADY_EXISTS;
  return file;
}

// Renaming would do away with an old file that must not be written, and with whatever is no file.
void FileReplacement::System::TakeOver(HANDLE old) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ENCRYPTED |
                          FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  BY_HANDLE_FILE_INFORMATION found{};
  if (GetFileType(old) != FILE_TYPE_DISK) ThrowWriteFailure(name_, FileCause::NotRegular);
  if (GetFileInformationByHandle(old, &found) == 0) Fail(GetLastError());
  const DWORD attributes = found.dwFileAttributes;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) ThrowWriteFailure(name_, FileCause::Folder);
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) ThrowWriteFailure(name_, FileCause::ReadOnly);
  if (std::wstring path = PathOf(old); !path.empty()) target_ = std::move(path);
  RequireRight(FILE_WRITE_DATA, FileCause::ReadOnly, true);
  RequireRight(DELETE, FileCause::NoRights, false);
  attributes_ = attributes & kKept;
  accessList_ = AccessListOf(target_);
  replaces_ = true;
}

// Others who have the file open may keep it from being written, but not from losing its name.
void FileReplacement::System::RequireRight(DWORD access, FileCause ifDenied,
                                           bool mayBeInUse) const {
  if (OpenExisting(target_, access)) return;
  const DWORD error = GetLastError();
  if (error == ERROR_ACCESS_DENIED) ThrowWriteFailure(name_, ifDenied);
  if (error != ERROR_SHARING_VIOLATION || !mayBeInUse) Fail(error);
}

// Nobody else can open it, and its contents are never for more people than the old ones.
void FileReplacement::System::OpenTemporary() {
  static std::uint32_t made = 0;
  const std::wstring stem =
      FolderOf(target_) + L".pagivo-" + std::to_wstring(GetCurrentProcessId()) + L"-";
  SECURITY_ATTRIBUTES security{sizeof security, accessList_.empty() ? nullptr : accessList_.data(),
                               FALSE};
  while (!file_) {
    const std::wstring path = stem + std::to_wstring(made++);
    file_ = Held(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, &security, CREATE_NEW,
                             attributes_, nullptr));
    if (!file_ && GetLastError() != ERROR_FILE_EXISTS) Fail(GetLastError());
  }
  if (!SetVanishing(file_.get(), true)) Fail(GetLastError());
}

void FileReplacement::System::Write(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (WriteFile(file_.get(), bytes.data(), AtOnce(bytes.size()), &written, nullptr) == 0) {
      Fail(GetLastError());
    }
    if (written == 0) ThrowWriteFailure(name_, FileCause::NothingTaken);
    bytes = bytes.subspan(written);
  }
}

// The second time the file's name is brought to disk.
void FileReplacement::System::Commit() {
  if (FlushFileBuffers(file_.get()) == 0) Fail(GetLastError());
  if (!SetVanishing(file_.get(), false)) Fail(GetLastError());
  TakeName();
  madeEmptyFile_ = false;
  FlushFileBuffers(file_.get());
  file_.reset();
}

// That the user may replace the old file was found before. If the system denies it now, somebody
// else has the file open.
void FileReplacement::System::TakeName() {
  if (Rename(file_.get(), target_, kRenameInfoEx, kReplaceOpen) ||
      Rename(file_.get(), target_, FileRenameInfo, kReplace)) {
    return;
  }
  const DWORD error = GetLastError();
  SetVanishing(file_.get(), true);
  if (replaces_ && error == ERROR_ACCESS_DENIED) ThrowWriteFailure(name_, FileCause::InUse);
  Fail(error);
}

FileReplacement::FileReplacement(const std::string& fileName)
    : system_(std::make_unique<System>(fileName)) {
  system_->Open();
}

FileReplacement::~FileReplacement() = default;

void FileReplacement::Write(std::span<const std::uint8_t> bytes) {
  system_->Write(bytes);
}

void FileReplacement::Commit() {
  system_->Commit();
}

}  // namespace pagivo
