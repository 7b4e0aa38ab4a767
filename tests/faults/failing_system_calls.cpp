#include "faults/failing_system_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

namespace {

std::string_view failingCall;
int failingNumber = 0;
int failingError = 0;
int calls = 0;

// Sets errno when this call is to fail.
bool Fails(std::string_view call) {
  if (call != failingCall) return false;
  ++calls;
  if (failingNumber != 0 && calls != failingNumber) return false;
  errno = failingError;
  return true;
}

// The system's function of that name.
template <typename Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int openat(int folder, const char* name, int flags, ...) {
  if (Fails("openat")) return -1;
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  return Real(&openat, "openat")(folder, name, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t count) {
  if (Fails("write")) return failingError == 0 ? 0 : -1;
  return Real(&write, "write")(file, bytes, count);
}

int fsync(int file) {
  return Fails("fsync") ? -1 : Real(&fsync, "fsync")(file);
}

int fstat(int file, struct stat* status) noexcept {
  return Fails("fstat") ? -1 : Real(&fstat, "fstat")(file, status);
}

int fstatat(int folder, const char* name, struct stat* status, int flags) noexcept {
  return Fails("fstatat") ? -1 : Real(&fstatat, "fstatat")(folder, name, status, flags);
}

int faccessat(int folder, const char* name, int mode, int flags) noexcept {
  return Fails("faccessat") ? -1 : Real(&faccessat, "faccessat")(folder, name, mode, flags);
}

int fchmod(int file, mode_t mode) noexcept {
  return Fails("fchmod") ? -1 : Real(&fchmod, "fchmod")(file, mode);
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
  return Fails("fchown") ? -1 : Real(&fchown, "fchown")(file, owner, group);
}

int linkat(int from, const char* name, int to, const char* newName, int flags) noexcept {
  return Fails("linkat") ? -1 : Real(&linkat, "linkat")(from, name, to, newName, flags);
}

int renameat(int from, const char* name, int to, const char* newName) noexcept {
  return Fails("renameat") ? -1 : Real(&renameat, "renameat")(from, name, to, newName);
}

// Not of what the system lists itself.
ssize_t readlink(const char* name, char* target, size_t size) noexcept {
  const bool isListed = std::string_view(name).starts_with("/proc/");
  if (!isListed && Fails("readlink")) return -1;
  return Real(&readlink, "readlink")(name, target, size);
}
}

namespace pagivo::testing {

FailingCall::FailingCall(std::string_view call, int number, int error) {
  calls = 0;
  failingNumber = number;
  failingError = error;
  failingCall = call;
}

FailingCall::~FailingCall() {
  failingCall = {};
}

int FailingCall::Count() const {
  return calls;
}

}  // namespace pagivo::testing
