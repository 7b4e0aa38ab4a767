// Reading picture files from disk.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pagivo::native {

// What tells a file and its contents from others, without reading it.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  std::int64_t modifiedSeconds = 0;
  std::int64_t modifiedNanoseconds = 0;
  std::int64_t changedSeconds = 0;
  std::int64_t changedNanoseconds = 0;
  auto operator<=>(const FileIdentity&) const = default;
};

// Raises ErrorNumber::FileAccess when there is no ordinary file under that path.
FileIdentity IdentityOf(const std::string& path);

// The file's bytes. Raises ErrorNumber::FileAccess when it cannot be read, DecodeFailure when it is
// larger than any picture of kMaximumPixels needs to be.
std::vector<std::uint8_t> ReadPictureFile(const std::string& path);

}  // namespace pagivo::native
