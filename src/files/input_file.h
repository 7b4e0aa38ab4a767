// Reading files whose names come from a host.
//
// A link is followed. Everything here raises ErrorNumber::FileAccess with a Dutch description that
// names the file and the cause; a name that is empty or holds a null character is refused, and so
// is what is no regular file: a folder, a device or a pipe is never opened, so none of them can
// hold the host up.
#pragma once

#include <cstdint>
#include <memory>
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

// The file that has the name now. It is not opened.
FileIdentity IdentityOf(const std::string& fileName);

// Whether a change of the file from now on gives it another identity. It need not as long as the
// file's last change is so recent that its file system may count both as the same time.
bool ShowsChanges(const FileIdentity& file);

// A file open for reading. What is asked of it is asked of the file that was opened, whatever gets
// its name meanwhile.
class InputFile {
 public:
  explicit InputFile(const std::string& fileName);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // As it is now: asked again after reading, it tells whether somebody wrote meanwhile.
  FileIdentity Identity() const;

  // All bytes, as many as Identity() announces when reading begins. Look at that size first: room
  // is made for it. Fewer when the file is made shorter meanwhile.
  std::vector<std::uint8_t> Read();

 private:
  class System;  // what this system needs for it

  std::unique_ptr<System> system_;
};

}  // namespace pagivo
