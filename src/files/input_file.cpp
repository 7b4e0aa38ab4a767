#include "files/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

#include "files/descriptor.h"
#include "files/file_failures.h"

namespace pagivo {
namespace {

// Seconds: FAT counts in steps of two.
constexpr std::int64_t kCoarsestTime = 2;

void RequireRegularFile(const std::string& fileName, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) ThrowReadFailure(fileName, EISDIR);
  if (!S_ISREG(status.st_mode)) ThrowReadFailure(fileName, "dat is geen gewoon bestand");
}

FileIdentity IdentityIn(const struct stat& status) {
  return {status.st_dev,         status.st_ino,          static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_ctim.tv_sec,
          status.st_ctim.tv_nsec};
}

}  // namespace

FileIdentity IdentityOf(const std::string& fileName) {
  RequireReadableName(fileName);
  struct stat status {};
  if (stat(fileName.c_str(), &status) != 0) ThrowReadFailure(fileName, errno);
  RequireRegularFile(fileName, status);
  return IdentityIn(status);
}

bool ShowsChanges(const FileIdentity& file) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return std::max(file.modifiedSeconds, file.changedSeconds) + kCoarsestTime < now.tv_sec;
}

class InputFile::System {
 public:
  // Not blocking, for a pipe may have come by the name since it was looked at.
  explicit System(const std::string& fileName)
      : name_(fileName), file_(open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (!file_) ThrowReadFailure(name_, errno);
  }

  FileIdentity Identity() const {
    struct stat status {};
    if (fstat(file_.Number(), &status) != 0) ThrowReadFailure(name_, errno);
    RequireRegularFile(name_, status);
    return IdentityIn(status);
  }

  // Zero at the file's end.
  std::size_t Read(std::uint8_t* target, std::size_t count) const {
    for (;;) {
      const ssize_t got = read(file_.Number(), target, count);
      if (got >= 0) return static_cast<std::size_t>(got);
      if (errno != EINTR) ThrowReadFailure(name_, errno);
    }
  }

 private:
  std::string name_;
  Descriptor file_;
};

InputFile::InputFile(const std::string& fileName) {
  IdentityOf(fileName);  // opening a device may do something
  system_ = std::make_unique<System>(fileName);
  system_->Identity();
}

InputFile::~InputFile() = default;

FileIdentity InputFile::Identity() const {
  return system_->Identity();
}

std::vector<std::uint8_t> InputFile::Read() {
  std::vector<std::uint8_t> bytes(Identity().size);
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t got = system_->Read(&bytes[filled], bytes.size() - filled);
    if (got == 0) break;
    filled += got;
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace pagivo
