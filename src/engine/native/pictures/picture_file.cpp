#include "engine/native/pictures/picture_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

// Four bytes a pixel and room for what stands beside them.
constexpr off_t kMaximumFileBytes = 4 * kMaximumPixels + (1 << 20);

std::string Reason(int errorCode) {
  switch (errorCode) {
    case ENOENT:
    case ENOTDIR:
      return "het bestand bestaat niet";
    case EACCES:
    case EPERM:
      return "geen toegang";
    case EISDIR:
      return "het is een map";
    case EINVAL:
      return "het is geen gewoon bestand";
    default:
      return "fout " + std::to_string(errorCode);
  }
}

[[noreturn]] void ThrowFileAccess(const std::string& path, int errorCode) {
  throw Error(ErrorNumber::FileAccess,
              "De afbeelding \"" + path + "\" kan niet worden gelezen: " + Reason(errorCode));
}

void RequireOrdinaryFile(const std::string& path, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) ThrowFileAccess(path, EISDIR);
  if (!S_ISREG(status.st_mode)) ThrowFileAccess(path, EINVAL);
}

class OpenFile {
 public:
  // Not blocking, or a named pipe that nobody writes to would hold the host up.
  explicit OpenFile(const std::string& path)
      : path_(path), descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ < 0) ThrowFileAccess(path, errno);
  }
  ~OpenFile() { close(descriptor_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  off_t Size() const {
    struct stat status {};
    if (fstat(descriptor_, &status) != 0) ThrowFileAccess(path_, errno);
    RequireOrdinaryFile(path_, status);
    return status.st_size;
  }

  // Zero at the file's end.
  std::size_t Read(std::uint8_t* target, std::size_t count) const {
    for (;;) {
      const ssize_t got = read(descriptor_, target, count);
      if (got >= 0) return static_cast<std::size_t>(got);
      if (errno != EINTR) ThrowFileAccess(path_, errno);
    }
  }

 private:
  const std::string& path_;
  int descriptor_;
};

}  // namespace

FileIdentity IdentityOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) ThrowFileAccess(path, errno);
  RequireOrdinaryFile(path, status);
  return {status.st_dev,         status.st_ino,          static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec,
          status.st_ctim.tv_nsec};
}

std::vector<std::uint8_t> ReadPictureFile(const std::string& path) {
  const OpenFile file(path);
  const off_t size = file.Size();
  if (size > kMaximumFileBytes) RefuseTooLarge();
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t got = file.Read(&bytes[filled], bytes.size() - filled);
    if (got == 0) break;  // the file has become shorter meanwhile
    filled += got;
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace pagivo::native
