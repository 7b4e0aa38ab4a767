// A folder that servers write in.
#pragma once

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "support/scratch_folder.h"

namespace pagivo {

// A scratch folder that is also removed when the test program is killed, with its servers.
class GuardedFolder {
 public:
  GuardedFolder();

  const std::string& Path() const noexcept { return folder_.Path(); }
  std::string FileNamed(const std::string& name) const { return folder_.FileNamed(name); }

 private:
  struct Closer {
    void operator()(std::FILE* pipe) const noexcept { pclose(pipe); }
  };

  ScratchFolder folder_;
  std::unique_ptr<std::FILE, Closer> guard_;  // a process that waits for the end of its input
};

inline void WriteText(const std::string& file, const std::string& text) {
  std::ofstream(file) << text;
}

}  // namespace pagivo
