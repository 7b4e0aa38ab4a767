#include "system/host_files.h"

#include <algorithm>
#include <chrono>
#include <new>

namespace pagivo {
namespace {

// FAT counts in steps of two.
constexpr std::chrono::seconds kCoarsestTime{2};

}  // namespace

bool ShowsChanges(const FileIdentity& file) {
  const std::chrono::seconds lastChange(std::max(file.modifiedSeconds, file.changedSeconds));
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return lastChange + kCoarsestTime < std::chrono::floor<std::chrono::seconds>(now);
}

std::vector<std::uint8_t> InputFile::Read() {
  const std::uint64_t size = Identity().size;
  std::vector<std::uint8_t> bytes;
  if (size > bytes.max_size()) throw std::bad_alloc();  // more than can be addressed
  bytes.resize(static_cast<std::size_t>(size));
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t got = ReadSome(&bytes[filled], bytes.size() - filled);
    if (got == 0) break;
    filled += got;
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace pagivo
