// A folder of a test's own: tests run side by side, each in a process of its own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace pagivo {

// Made empty, removed with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder() : path_((std::filesystem::temp_directory_path() / "pagivo_XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no scratch folder " + path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& Path() const noexcept { return path_; }
  std::string FileNamed(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

}  // namespace pagivo
