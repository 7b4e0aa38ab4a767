#include "system/file_failures.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <new>
#include <string_view>

#include "pagivo/error.h"

namespace pagivo {
namespace {

constexpr std::string_view kNoName = "dat is geen geldige bestandsnaam";
constexpr std::string_view kNotToRead = "u hebt daar geen leesrechten";
constexpr std::string_view kNotToWrite = "u hebt daar geen schrijfrechten";

// What the system's error numbers mean to a user who has a file read or written.
struct Cause {
  int systemError;
  std::string_view ofReading;
  std::string_view ofWriting;

  constexpr Cause(int error, std::string_view reading, std::string_view writing)
      : systemError(error), ofReading(reading), ofWriting(writing) {}
  constexpr Cause(int error, std::string_view both) : Cause(error, both, both) {}
};

constexpr std::array kCauses{
    Cause(ENOENT, "het bestand bestaat niet", "de map bestaat niet"),
    Cause(ENOTDIR, "het bestand bestaat niet", "een deel van het pad is geen map"),
    Cause(EISDIR, "het is een map", "er is al een map met die naam"),
    Cause(EACCES, kNotToRead, kNotToWrite),
    Cause(EPERM, kNotToRead, kNotToWrite),
    Cause(EROFS, "het station kan alleen worden gelezen"),
    Cause(ENOSPC, "de schijf is vol"),
    Cause(EDQUOT, "uw schijfruimte is op"),
    Cause(EFBIG, "het bestand wordt te groot"),
    Cause(ENAMETOOLONG, "de naam is te lang"),
    Cause(ELOOP, "de koppeling verwijst naar zichzelf"),
    Cause(EINVAL, kNoName),
    Cause(EIO, "de schijf meldt een fout"),
    Cause(EMFILE, "er zijn te veel bestanden open"),
    Cause(ENFILE, "er zijn te veel bestanden open"),
    Cause(ESTALE, "het bestand is intussen verplaatst"),
};

std::string TextOf(int systemError, std::string_view Cause::*doing) {
  if (systemError == ENOMEM) throw std::bad_alloc();
  const auto cause = std::ranges::find(kCauses, systemError, &Cause::systemError);
  if (cause == kCauses.end()) return "het systeem meldt fout " + std::to_string(systemError);
  return std::string((*cause).*doing);
}

// What is done with a file.
constexpr const char* kRead = "gelezen";
constexpr const char* kWritten = "geschreven";

// A description ends at a null character, so the name must not hold one.
std::string Describe(const std::string& fileName, const char* done, std::string_view cause) {
  return "\"" + fileName.substr(0, fileName.find('\0')) + "\" kan niet worden " + done + ": " +
         std::string(cause);
}

[[noreturn]] void Fail(const std::string& description) {
  throw Error(ErrorNumber::FileAccess, description);
}

void RequireName(const std::string& fileName, const char* done) {
  if (fileName.empty()) {
    Fail(std::string("Het bestand kan niet worden ") + done +
         ": er is geen bestandsnaam opgegeven");
  }
  if (fileName.find('\0') != std::string::npos) Fail(Describe(fileName, done, kNoName));
}

}  // namespace

std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause) {
  return Describe(fileName, kWritten, cause);
}

void ThrowReadFailure(const std::string& fileName, const std::string& cause) {
  Fail(Describe(fileName, kRead, cause));
}

void ThrowReadFailure(const std::string& fileName, int systemError) {
  ThrowReadFailure(fileName, TextOf(systemError, &Cause::ofReading));
}

void ThrowWriteFailure(const std::string& fileName, const std::string& cause) {
  Fail(Describe(fileName, kWritten, cause));
}

void ThrowWriteFailure(const std::string& fileName, int systemError) {
  ThrowWriteFailure(fileName, TextOf(systemError, &Cause::ofWriting));
}

void RequireReadableName(const std::string& fileName) {
  RequireName(fileName, kRead);
}

void RequireWritableName(const std::string& fileName) {
  RequireName(fileName, kWritten);
}

}  // namespace pagivo
