// A file that takes the place of another when it is complete.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace pagivo {

// Written without a name, or under one of its own, in the target's folder. Unless Commit succeeds,
// what was under the target's name stays as it was and nothing else is left behind. A symbolic
// link is followed; the new file gets the permissions of the old one, and never has wider ones.
//
// Everything here raises ErrorNumber::FileAccess with a Dutch description that names the file and
// the cause. Refused are a name that is empty or holds a null character, a target that is no
// regular file (a pipe or device is not even opened, so it cannot hold the host up) and one that
// nobody, or not this user, may write.
class FileReplacement {
 public:
  explicit FileReplacement(const std::string& fileName);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // Chunks of some ten thousand bytes are best: each goes to the system at once.
  void Write(std::span<const std::uint8_t> bytes);

  // Returns when the file is on disk under its name.
  void Commit();

 private:
  class System;  // what this system needs for it

  std::unique_ptr<System> system_;
};

}  // namespace pagivo
