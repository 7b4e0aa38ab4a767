#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>

#include "system/file_failures.h"
#include "system/host_files.h"
#include "system/posix/descriptor.h"

namespace pagivo {

// --- Failures ------------------------------------------------------------------------------------

std::span<const ErrorMeaning> ErrorMeanings() {
  static constexpr std::array kMeanings{
      ErrorMeaning{ENOENT, FileCause::NotFound},
      ErrorMeaning{ENOTDIR, FileCause::BelowAFile},
      ErrorMeaning{EISDIR, FileCause::Folder},
      ErrorMeaning{EACCES, FileCause::NoRights},
      ErrorMeaning{EPERM, FileCause::NoRights},
      ErrorMeaning{EROFS, FileCause::ReadOnlyDisk},
      ErrorMeaning{ENOSPC, FileCause::FullDisk},
      ErrorMeaning{EDQUOT, FileCause::ReachedQuota},
      ErrorMeaning{EFBIG, FileCause::TooLarge},
      ErrorMeaning{EIO, FileCause::DiskFault},
      ErrorMeaning{EINVAL, FileCause::InvalidName},
      ErrorMeaning{ENAMETOOLONG, FileCause::LongName},
      ErrorMeaning{ELOOP, FileCause::EndlessLink},
      ErrorMeaning{EMFILE, FileCause::TooManyOpenFiles},
      ErrorMeaning{ENFILE, FileCause::TooManyOpenFiles},
      ErrorMeaning{ESTALE, FileCause::Moved},
      ErrorMeaning{ENOMEM, FileCause::NoMemory},
  };
  return kMeanings;
}

// --- Reading -------------------------------------------------------------------------------------

namespace {

void RequireRegularFile(const std::string& fileName, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) ThrowReadFailure(fileName, FileCause::Folder);
  if (!S_ISREG(status.st_mode)) ThrowReadFailure(fileName, FileCause::NotRegular);
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

std::size_t InputFile::ReadSome(std::uint8_t* target, std::size_t count) {
  return system_->Read(target, count);
}

// --- Replacing -----------------------------------------------------------------------------------

namespace {

constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t kReadAndWrite = 0666;  // less what the user's mask takes

// The file itself, neither read nor written.
Descriptor Locate(const std::string& name, int flags = 0) {
  return Descriptor(open(name.c_str(), O_PATH | O_CLOEXEC | flags));
}

bool IsLink(const std::string& name) {
  struct stat status {};
  return lstat(name.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool IsWritableByAnybody(const struct stat& status) {
  return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
}

// The name under which the system lists an open file, whether it has another or not.
std::string ListedName(const Descriptor& file) {
  return "/proc/self/fd/" + std::to_string(file.Number());
}

// Beyond the size that a process may give its files, the system does not only refuse to write but
// ends the process with this signal, too. The refusal is enough.
class FileSizeSignalHeld {
 public:
  FileSizeSignalHeld() noexcept {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  ~FileSizeSignalHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  FileSizeSignalHeld(const FileSizeSignalHeld&) = delete;
  FileSizeSignalHeld& operator=(const FileSizeSignalHeld&) = delete;

  // Takes the signal that came with a refusal.
  void Take() const noexcept {
    constexpr timespec kNow{};
    sigtimedwait(&signal_, nullptr, &kNow);
  }

 private:
  sigset_t signal_{};
  sigset_t before_{};
};

}  // namespace

class FileReplacement::System {
 public:
  explicit System(const std::string& fileName) : name_(fileName) {}
  ~System();
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  void Open();
  void Write(std::span<const std::uint8_t> bytes);
  void Commit();

 private:
  std::string FindTarget();
  void MakeEmptyFile();
  void OpenFolder(const std::string& path);
  void CheckOldFile() const;
  bool StandsInFolder(const Descriptor& file) const;
  void OpenUnnamed();
  void OpenNamed();
  void GiveName();
  template <typename Make>
  void MakeTemporary(Make&& make);
  void TakeOverPermissions();
  void SyncFolder() const;
  struct stat StatusOf(const Descriptor& file) const;
  [[noreturn]] void Fail(int error) const { ThrowWriteFailure(name_, error); }

  std::string name_;       // as the host gave it
  Descriptor old_;         // what is replaced, if there is anything
  Descriptor folder_;      // of the target
  std::string entry_;      // the target in that folder
  Descriptor file_;        // what is written
  std::string temporary_;  // its name in that folder, while it has one
  bool madeEmptyFile_ = false;
};

void FileReplacement::System::Open() {
  RequireWritableName(name_);
  OpenFolder(FindTarget());
  if (old_) CheckOldFile();
  OpenUnnamed();
  if (!file_) OpenNamed();
}

FileReplacement::System::~System() {
  if (!temporary_.empty()) unlinkat(folder_.Number(), temporary_.c_str(), 0);
  if (madeEmptyFile_ && StandsInFolder(old_)) unlinkat(folder_.Number(), entry_.c_str(), 0);
}

// The target's path. The system alone follows links, for it refuses those that somebody else may
// have laid as a trap: it opens the file, and is then asked where that file stands.
std::string FileReplacement::System::FindTarget() {
  old_ = Locate(name_);
  if (!old_ && errno != ENOENT) Fail(errno);
  if (!IsLink(name_)) return name_;
  if (!old_) MakeEmptyFile();
  std::array<char, PATH_MAX> path{};
  const ssize_t length = readlink(ListedName(old_).c_str(), path.data(), path.size());
  if (length <= 0) Fail(errno);
  return {path.data(), static_cast<std::size_t>(length)};
}

// Where a link leads to nothing yet.
void FileReplacement::System::MakeEmptyFile() {
  constexpr int kNew = O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  old_ = Descriptor(open(name_.c_str(), kNew, kReadAndWrite));
  if (!old_) Fail(errno);
  madeEmptyFile_ = StatusOf(old_).st_size == 0;
}

void FileReplacement::System::OpenFolder(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const bool isHere = slash == std::string::npos;
  entry_ = isHere ? path : path.substr(slash + 1);
  if (entry_.empty()) Fail(EISDIR);
  folder_ = Locate(isHere ? "." : path.substr(0, slash + 1), O_DIRECTORY);
  if (!folder_) Fail(errno);
}

// Renaming would do away with an old file that must not be written, and with whatever is no file.
void FileReplacement::System::CheckOldFile() const {
  const struct stat old = StatusOf(old_);
  if (S_ISDIR(old.st_mode)) Fail(EISDIR);
  if (!S_ISREG(old.st_mode)) ThrowWriteFailure(name_, FileCause::NotRegular);
  if (!StandsInFolder(old_)) Fail(ESTALE);
  const bool mayWrite = faccessat(folder_.Number(), entry_.c_str(), W_OK, AT_EACCESS) == 0;
  if (!mayWrite && errno == EROFS) Fail(EROFS);
  if (!mayWrite || !IsWritableByAnybody(old)) {
    ThrowWriteFailure(name_, FileCause::ReadOnly);
  }
}

// A file may move after it was opened.
bool FileReplacement::System::StandsInFolder(const Descriptor& file) const {
  struct stat opened {};
  struct stat found {};
  return fstat(file.Number(), &opened) == 0 &&
         fstatat(folder_.Number(), entry_.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
         opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

struct stat FileReplacement::System::StatusOf(const Descriptor& file) const {
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) Fail(errno);
  return status;
}

// A file that has no name until it is complete: whatever ends the process, nothing of it stays.
// Opens nothing where the file system has no such files, or where the system does not list open
// files and so could not name it later.
void FileReplacement::System::OpenUnnamed() {
  const mode_t permissions = old_ ? StatusOf(old_).st_mode & S_IRWXU : kReadAndWrite;
  constexpr int kUnnamed = O_TMPFILE | O_WRONLY | O_CLOEXEC;
  Descriptor file(openat(folder_.Number(), ".", kUnnamed, permissions));
  if (file && access(ListedName(file).c_str(), F_OK) == 0) file_ = std::move(file);
}

void FileReplacement::System::OpenNamed() {
  const mode_t permissions = old_ ? StatusOf(old_).st_mode & S_IRWXU : kReadAndWrite;
  constexpr int kNew = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
  MakeTemporary([&](const char* name) {
    file_ = Descriptor(openat(folder_.Number(), name, kNew, permissions));
    return static_cast<bool>(file_);
  });
}

// A name can be linked only where there is none: the file gets a temporary one first, and takes the
// target's from there.
void FileReplacement::System::GiveName() {
  const std::string listed = ListedName(file_);
  MakeTemporary([&](const char* name) {
    return linkat(AT_FDCWD, listed.c_str(), folder_.Number(), name, AT_SYMLINK_FOLLOW) == 0;
  });
}

// `make` makes a file of that name; where there is one, another name is tried.
template <typename Make>
void FileReplacement::System::MakeTemporary(Make&& make) {
  const std::string stem = ".pagivo-" + std::to_string(getpid()) + "-";
  for (int i = 0;; ++i) {
    std::string name = stem + std::to_string(i);
    if (make(name.c_str())) {
      temporary_ = std::move(name);
      return;
    }
    if (errno != EEXIST) Fail(errno);
  }
}

void FileReplacement::System::Write(std::span<const std::uint8_t> bytes) {
  const FileSizeSignalHeld signal;
  while (!bytes.empty()) {
    const ssize_t written = write(file_.Number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0 && errno == EFBIG) signal.Take();
    if (written < 0) Fail(errno);
    if (written == 0) ThrowWriteFailure(name_, FileCause::NothingTaken);
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

// Owner and group can be taken over by few users, and go before the permissions. Where the group
// stays another, it gets no more than everybody: the old group's permissions were not meant for it.
// What lets a program run in its owner's name is never taken over.
void FileReplacement::System::TakeOverPermissions() {
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  const struct stat old = StatusOf(old_);
  const bool isGroupKept = fchown(file_.Number(), old.st_uid, old.st_gid) == 0 ||
                           fchown(file_.Number(), kSameOwner, old.st_gid) == 0;
  mode_t permissions = old.st_mode & kPermissions;
  if (!isGroupKept) permissions &= S_IRWXU | S_IRWXO | (old.st_mode & S_IRWXO) << 3;
  if (fchmod(file_.Number(), permissions) != 0) Fail(errno);
}

void FileReplacement::System::Commit() {
  if (old_) TakeOverPermissions();
  if (fsync(file_.Number()) != 0) Fail(errno);
  if (temporary_.empty()) GiveName();
  const int folder = folder_.Number();
  if (renameat(folder, temporary_.c_str(), folder, entry_.c_str()) != 0) Fail(errno);
  temporary_.clear();
  madeEmptyFile_ = false;
  SyncFolder();
}

// The file is in place; not every file system can say that the folder's entry is on disk, too.
void FileReplacement::System::SyncFolder() const {
  const Descriptor folder(openat(folder_.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) fsync(folder.Number());
}

FileReplacement::FileReplacement(const std::string& fileName)
    : system_(std::make_unique<System>(fileName)) {
  system_->Open();
}

FileReplacement::~FileReplacement() = default;

void FileReplacement::Write(std::span<const std::uint8_t> bytes) {
  system_->Write(bytes);
}

void FileReplacement::Commit() {
  system_->Commit();
}

}  // namespace pagivo
