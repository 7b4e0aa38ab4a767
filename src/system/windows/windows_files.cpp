#include <windows.h>

#include <array>

#include "pagivo/error.h"
#include "system/file_failures.h"
#include "system/host_files.h"
#include "system/windows/open_file.h"
#include "system/windows/windows_names.h"

namespace pagivo {

// --- Failures ------------------------------------------------------------------------------------

std::span<const ErrorMeaning> ErrorMeanings() {
  constexpr SystemError kDiskQuotaExceeded = 1295;  // unknown to the headers
  static constexpr std::array kMeanings{
      ErrorMeaning{ERROR_FILE_NOT_FOUND, FileCause::NotFound},
      ErrorMeaning{ERROR_PATH_NOT_FOUND, FileCause::NotFound},
      ErrorMeaning{ERROR_INVALID_DRIVE, FileCause::NotFound},
      ErrorMeaning{ERROR_BAD_NETPATH, FileCause::NotFound},
      ErrorMeaning{ERROR_BAD_NET_NAME, FileCause::NotFound},
      ErrorMeaning{ERROR_DIRECTORY, FileCause::BelowAFile},
      ErrorMeaning{ERROR_ACCESS_DENIED, FileCause::NoRights},
      ErrorMeaning{ERROR_NETWORK_ACCESS_DENIED, FileCause::NoRights},
      ErrorMeaning{ERROR_SHARING_VIOLATION, FileCause::InUse},
      ErrorMeaning{ERROR_LOCK_VIOLATION, FileCause::InUse},
      ErrorMeaning{ERROR_USER_MAPPED_FILE, FileCause::InUse},
      ErrorMeaning{ERROR_DELETE_PENDING, FileCause::InUse},
      ErrorMeaning{ERROR_WRITE_PROTECT, FileCause::ReadOnlyDisk},
      ErrorMeaning{ERROR_DISK_FULL, FileCause::FullDisk},
      ErrorMeaning{ERROR_HANDLE_DISK_FULL, FileCause::FullDisk},
      ErrorMeaning{kDiskQuotaExceeded, FileCause::ReachedQuota},
      ErrorMeaning{ERROR_FILE_TOO_LARGE, FileCause::TooLarge},
      ErrorMeaning{ERROR_CRC, FileCause::DiskFault},
      ErrorMeaning{ERROR_WRITE_FAULT, FileCause::DiskFault},
      ErrorMeaning{ERROR_READ_FAULT, FileCause::DiskFault},
      ErrorMeaning{ERROR_IO_DEVICE, FileCause::DiskFault},
      ErrorMeaning{ERROR_FILE_CORRUPT, FileCause::DiskFault},
      ErrorMeaning{ERROR_DISK_CORRUPT, FileCause::DiskFault},
      ErrorMeaning{ERROR_INVALID_NAME, FileCause::InvalidName},
      ErrorMeaning{ERROR_BAD_PATHNAME, FileCause::InvalidName},
      ErrorMeaning{ERROR_FILENAME_EXCED_RANGE, FileCause::LongName},
      ErrorMeaning{ERROR_BUFFER_OVERFLOW, FileCause::LongName},
      ErrorMeaning{ERROR_CANT_RESOLVE_FILENAME, FileCause::EndlessLink},
      ErrorMeaning{ERROR_TOO_MANY_OPEN_FILES, FileCause::TooManyOpenFiles},
      ErrorMeaning{ERROR_NOT_READY, FileCause::NotReady},
      ErrorMeaning{ERROR_DEV_NOT_EXIST, FileCause::LostConnection},
      ErrorMeaning{ERROR_UNEXP_NET_ERR, FileCause::LostConnection},
      ErrorMeaning{ERROR_NETNAME_DELETED, FileCause::LostConnection},
      ErrorMeaning{ERROR_NETWORK_UNREACHABLE, FileCause::LostConnection},
      ErrorMeaning{ERROR_HOST_UNREACHABLE, FileCause::LostConnection},
      ErrorMeaning{ERROR_NOT_ENOUGH_MEMORY, FileCause::NoMemory},
      ErrorMeaning{ERROR_OUTOFMEMORY, FileCause::NoMemory},
      ErrorMeaning{ERROR_NO_SYSTEM_RESOURCES, FileCause::NoMemory},
      ErrorMeaning{ERROR_COMMITMENT_LIMIT, FileCause::NoMemory},
  };
  return kMeanings;
}

// --- Reading -------------------------------------------------------------------------------------

namespace {

Handle OpenToRead(const std::string& fileName, DWORD access) {
  RequireReadableName(fileName);
  const ResolvedName name = ResolveName(fileName);
  if (name.refusal) ThrowReadFailure(fileName, *name.refusal);
  Handle file = OpenExisting(name.path, access);
  if (!file) ThrowReadFailure(fileName, GetLastError());
  return file;
}

// The system counts tenths of microseconds from the year 1601 on.
constexpr std::int64_t kTicksOfSecond = 10'000'000;

std::int64_t SecondsSince1970(const LARGE_INTEGER& time) {
  constexpr std::int64_t k1970 = 11'644'473'600;
  return time.QuadPart / kTicksOfSecond - k1970;
}

std::int64_t Nanoseconds(const LARGE_INTEGER& time) {
  constexpr std::int64_t kNanosecondsOfTick = 100;
  return time.QuadPart % kTicksOfSecond * kNanosecondsOfTick;
}

std::uint64_t Joined(DWORD high, DWORD low) {
  return std::uint64_t{high} << 32 | low;
}

FileIdentity IdentityIn(const std::string& fileName, HANDLE file) {
  if (GetFileType(file) != FILE_TYPE_DISK) ThrowReadFailure(fileName, FileCause::NotRegular);
  BY_HANDLE_FILE_INFORMATION found{};
  FILE_BASIC_INFO times{};
  if (GetFileInformationByHandle(file, &found) == 0 ||
      GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times) == 0) {
    ThrowReadFailure(fileName, GetLastError());
  }
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    ThrowReadFailure(fileName, FileCause::Folder);
  }
  return {.volume = found.dwVolumeSerialNumber,
          .number = Joined(found.nFileIndexHigh, found.nFileIndexLow),
          .size = Joined(found.nFileSizeHigh, found.nFileSizeLow),
          .modifiedSeconds = SecondsSince1970(times.LastWriteTime),
          .modifiedNanoseconds = Nanoseconds(times.LastWriteTime),
          .changedSeconds = SecondsSince1970(times.ChangeTime),
          .changedNanoseconds = Nanoseconds(times.ChangeTime)};
}

}  // namespace

FileIdentity IdentityOf(const std::string& fileName) {
  return IdentityIn(fileName, OpenToRead(fileName, kLook).get());
}

class InputFile::System {
 public:
  explicit System(const std::string& fileName)
      : name_(fileName), file_(OpenToRead(fileName, GENERIC_READ)) {
    Identity();
  }

  FileIdentity Identity() const { return IdentityIn(name_, file_.get()); }

  std::size_t Read(std::uint8_t* target, std::size_t count) const {
    DWORD got = 0;
    if (ReadFile(file_.get(), target, AtOnce(count), &got, nullptr) == 0) {
      ThrowReadFailure(name_, GetLastError());
    }
    return got;
  }

 private:
  std::string name_;
  Handle file_;
};

// A folder that may not be read is called a folder, too.
InputFile::InputFile(const std::string& fileName) try
    : system_(std::make_unique<System>(fileName)) {
} catch (const Error&) {
  IdentityOf(fileName);
  throw;
}

InputFile::~InputFile() = default;

FileIdentity InputFile::Identity() const {
  return system_->Identity();
}

std::size_t InputFile::ReadSome(std::uint8_t* target, std::size_t count) {
  return system_->Read(target, count);
}

}  // namespace pagivo
