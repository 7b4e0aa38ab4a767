#include "engine/native/pdf/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

constexpr int kMostLinks = 40;

std::string CauseOf(int error) {
  switch (error) {
    case ENOENT:
      return "de map bestaat niet";
    case ENOTDIR:
      return "een deel van het pad is geen map";
    case EISDIR:
      return "er is al een map met die naam";
    case EACCES:
    case EPERM:
      return "u hebt daar geen schrijfrechten";
    case EROFS:
      return "het station kan alleen worden gelezen";
    case ENOSPC:
      return "de schijf is vol";
    case EDQUOT:
      return "uw schijfruimte is op";
    case EFBIG:
      return "het bestand wordt te groot";
    case ENAMETOOLONG:
      return "de naam is te lang";
    case ELOOP:
      return "de koppeling verwijst naar zichzelf";
    case EINVAL:
      return "dat is geen geldige bestandsnaam";
    case EIO:
      return "de schijf meldt een fout";
    case EMFILE:
    case ENFILE:
      return "er zijn te veel bestanden open";
    default:
      return "het systeem meldt fout " + std::to_string(error);
  }
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

// Where a link at the end of the path leads, which need not exist.
std::string FollowLinks(std::string path) {
  std::string link(PATH_MAX, '\0');
  for (int i = 0; i < kMostLinks; ++i) {
    const ssize_t length = readlink(path.c_str(), link.data(), link.size());
    if (length <= 0) return path;
    const std::string destination = link.substr(0, static_cast<std::size_t>(length));
    path = destination.front() == '/' ? destination : FolderOf(path) + destination;
  }
  errno = ELOOP;
  return {};
}

}  // namespace

std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause) {
  // A description ends at a null character, so the name must not hold one.
  return "\"" + fileName.substr(0, fileName.find('\0')) + "\" kan niet worden geschreven: " + cause;
}

void FileReplacement::Fail(int error) const {
  throw Error(ErrorNumber::FileAccess, DescribeWriteFailure(name_, CauseOf(error)));
}

FileReplacement::FileReplacement(const std::string& fileName) : name_(fileName) {
  if (name_.empty()) {
    throw Error(ErrorNumber::FileAccess,
                "Het PDF-bestand kan niet worden geschreven: er is geen bestandsnaam opgegeven");
  }
  if (name_.find('\0') != std::string::npos) Fail(EINVAL);
  target_ = FollowLinks(name_);
  if (target_.empty()) Fail(errno);
  folder_ = FolderOf(target_);
  CheckOldFile();
  OpenTemporary();
}

FileReplacement::~FileReplacement() {
  if (file_ >= 0) close(file_);
  if (!temporary_.empty()) unlink(temporary_.c_str());
}

// Renaming would do away with an old file that must not be written, and with whatever is no file.
void FileReplacement::CheckOldFile() {
  if (target_.back() == '/') Fail(EISDIR);
  struct stat old {};
  if (stat(target_.c_str(), &old) != 0) {
    if (errno == ENOENT) return;
    Fail(errno);
  }
  if (S_ISDIR(old.st_mode)) Fail(EISDIR);
  if (!S_ISREG(old.st_mode)) {
    throw Error(ErrorNumber::FileAccess, DescribeWriteFailure(name_, "dat is geen gewoon bestand"));
  }
  const bool nobodyMayWrite = (old.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
  if (nobodyMayWrite || faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) {
    throw Error(ErrorNumber::FileAccess,
                DescribeWriteFailure(name_, "het bestaande bestand is alleen-lezen"));
  }
}

// A new file has the permissions that the user's mask leaves.
void FileReplacement::OpenTemporary() {
  const std::string stem = folder_ + ".pagivo-" + std::to_string(getpid()) + "-";
  for (int i = 0;; ++i) {
    const std::string name = stem + std::to_string(i);
    file_ = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file_ >= 0) {
      temporary_ = name;
      return;
    }
    if (errno != EEXIST) Fail(errno);
  }
}

void FileReplacement::Write(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) Fail(errno);
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

// The owner can be taken over by the superuser only, and goes before the permissions, which a
// change of owner takes away in part.
void FileReplacement::TakeOverPermissions() {
  struct stat old {};
  if (stat(target_.c_str(), &old) != 0) return;
  const bool ownerKept = fchown(file_, old.st_uid, old.st_gid) == 0;
  const mode_t permissions = old.st_mode & (ownerKept ? 07777 : 0777);
  if (fchmod(file_, permissions) != 0) Fail(errno);
}

void FileReplacement::Commit() {
  TakeOverPermissions();
  if (fsync(file_) != 0) Fail(errno);
  const int result = close(file_);
  file_ = -1;
  if (result != 0) Fail(errno);
  if (rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
  temporary_.clear();
  SyncFolder();
}

// The file is in place; not every file system can say that the folder's entry is on disk, too.
void FileReplacement::SyncFolder() const {
  const int folder = open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

}  // namespace pagivo::native
