// Files whose names come from a host: reading them, and replacing them when the new one is
// complete.
//
// A symbolic link is followed. Everything here raises ErrorNumber::FileAccess with a Dutch
// description that names the file and the cause, and std::bad_alloc when the system has no memory
// for it. Names are UTF-8. One that is empty or holds a null character is refused, and so is what
// is no regular file: a device or a pipe is never opened, so none of them can hold the host up.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace pagivo {

// What tells a file and its contents from others, without reading it.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;  // on its volume
  std::uint64_t size = 0;    // bytes
  std::int64_t modifiedSeconds = 0;
  std::int64_t modifiedNanoseconds = 0;
  std::int64_t changedSeconds = 0;
  std::int64_t changedNanoseconds = 0;
  auto operator<=>(const FileIdentity&) const = default;
};

// The identity of the file that has the name now. The file is not opened.
FileIdentity IdentityOf(const std::string& fileName);

// Whether a change of the file from now on gives it another identity. A change may not, as long as
// the file's last change is so recent that its file system counts both as the same time.
bool ShowsChanges(const FileIdentity& file);

// A file open for reading. What is asked of it is asked of the file that was opened, whatever gets
// its name meanwhile.
class InputFile {
 public:
  explicit InputFile(const std::string& fileName);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // The file's identity now. Asked again after reading, it tells whether somebody wrote meanwhile.
  FileIdentity Identity() const;

  // Reads all bytes, as many as Identity() announces when reading begins. Look at that size first,
  // for room is made for it. They are fewer when the file is made shorter meanwhile.
  std::vector<std::uint8_t> Read();

 private:
  class System;  // what this system needs for it

  // As many bytes as the system gives at once; none at the file's end.
  std::size_t ReadSome(std::uint8_t* target, std::size_t count);

  std::unique_ptr<System> system_;
};

// A file that takes the place of another when it is complete. It is written without a name, or
// under one of its own, in the target's folder. Unless Commit succeeds, what was under the target's
// name stays as it was and nothing else is left behind. The new file gets the permissions of the
// old one, and never has wider ones. A target is also refused when nobody, or not this user, may
// write it.
class FileReplacement {
 public:
  explicit FileReplacement(const std::string& fileName);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // Chunks of some ten thousand bytes are best, for each goes to the system at once.
  void Write(std::span<const std::uint8_t> bytes);

  // Returns when the file is on disk under its name.
  void Commit();

 private:
  class System;  // what this system needs for it

  std::unique_ptr<System> system_;
};

}  // namespace pagivo
