// A file that takes the place of another when it is complete.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace pagivo::native {

// Written under another name in the target's folder. Unless Commit succeeds, what was under the
// target's name stays as it was and nothing else is left behind. A symbolic link is followed; the
// new file gets the permissions of the old one.
//
// Everything here raises ErrorNumber::FileAccess with a Dutch description that names the file and
// the cause. A target that is no regular file or that nobody may write is refused.
class FileReplacement {
 public:
  explicit FileReplacement(const std::string& fileName);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  void Write(std::span<const std::uint8_t> bytes);

  // Returns when the file is on disk under its name.
  void Commit();

 private:
  void CheckOldFile();
  void OpenTemporary();
  void TakeOverPermissions();
  void SyncFolder() const;
  [[noreturn]] void Fail(int error) const;

  std::string name_;       // as the host gave it
  std::string target_;     // links followed
  std::string folder_;     // of the target, with a slash at its end
  std::string temporary_;  // empty once there is none
  int file_ = -1;
};

// "<name> kan niet worden geschreven: <cause>"
std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause);

}  // namespace pagivo::native
