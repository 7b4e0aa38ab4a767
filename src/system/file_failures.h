// What a user is told about a file that could not be read or written.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace pagivo {

// Why a file could not be read or written.
enum class FileCause : std::uint8_t {
  NotFound,  // the file to be read, the folder to be written in
  BelowAFile,
  Folder,
  NotRegular,
  NoRights,
  InUse,     // by another program
  ReadOnly,  // the file
  ReadOnlyDisk,
  FullDisk,
  ReachedQuota,
  TooLarge,
  NothingTaken,
  DiskFault,
  InvalidName,
  LongName,
  EndlessLink,
  TooManyOpenFiles,
  Moved,
  NotReady,
  LostConnection,
  NoMemory,
};

// The number by which the system says what went wrong: errno's or GetLastError's.
using SystemError = std::int64_t;

struct ErrorMeaning {
  SystemError error;
  FileCause cause;
};

// What such numbers mean on this system. A user is told the number of any other.
std::span<const ErrorMeaning> ErrorMeanings();

// "<name>" kan niet worden geschreven: <cause>
std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause);

// These raise ErrorNumber::FileAccess with a Dutch description of that form, which says "gelezen"
// of reading. Want of memory raises std::bad_alloc instead.
[[noreturn]] void ThrowReadFailure(const std::string& fileName, FileCause cause);
[[noreturn]] void ThrowReadFailure(const std::string& fileName, SystemError error);
[[noreturn]] void ThrowWriteFailure(const std::string& fileName, FileCause cause);
[[noreturn]] void ThrowWriteFailure(const std::string& fileName, SystemError error);

// These refuse a name that no file can have: an empty one, of which they say that there is no name,
// and one with a null character, at which the system would end it.
void RequireReadableName(const std::string& fileName);
void RequireWritableName(const std::string& fileName);

}  // namespace pagivo
