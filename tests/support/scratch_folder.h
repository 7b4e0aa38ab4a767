// A folder of a test's own: tests run side by side, each in a process of its own.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace pagivo {

// Made empty, removed with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device number;
    do path_ = (std::filesystem::temp_directory_path() / Name(number())).generic_string();
    while (!std::filesystem::create_directory(path_));
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
  static std::string Name(unsigned number) { return "pagivo_" + std::to_string(number); }

  std::string path_;
};

}  // namespace pagivo
