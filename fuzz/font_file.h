// A font file of the fuzzer's bytes.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "engine/native/fonts/face.h"
#include "pagivo/error.h"

namespace pagivo::fuzz {

// In memory, for faces are opened by their path.
class FontFile {
 public:
  FontFile(const std::uint8_t* data, std::size_t size) : file_(memfd_create("font", MFD_CLOEXEC)) {
    for (std::size_t written = 0; written < size;) {
      const ssize_t count = write(file_, data + written, size - written);
      if (count <= 0) break;
      written += static_cast<std::size_t>(count);
    }
  }
  ~FontFile() { close(file_); }
  FontFile(const FontFile&) = delete;
  FontFile& operator=(const FontFile&) = delete;

  // Nothing when the bytes are refused as a font.
  std::shared_ptr<native::Face> Open() const {
    try {
      return std::make_shared<native::Face>("/proc/self/fd/" + std::to_string(file_), 0);
    } catch (const Error&) {
      return nullptr;
    }
  }

 private:
  int file_;
};

}  // namespace pagivo::fuzz
