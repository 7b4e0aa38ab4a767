#include "files/file_failures.h"

#include <cerrno>

#include "pagivo/error.h"

namespace pagivo {
namespace {

constexpr const char* kNoName = "dat is geen geldige bestandsnaam";

// Causes that are the same whatever is done with the file.
std::string CommonCause(int systemError) {
  switch (systemError) {
    case ENAMETOOLONG:
      return "de naam is te lang";
    case ELOOP:
      return "de koppeling verwijst naar zichzelf";
    case EINVAL:
      return kNoName;
    case EIO:
      return "de schijf meldt een fout";
    case EMFILE:
    case ENFILE:
      return "er zijn te veel bestanden open";
    case ESTALE:
      return "het bestand is intussen verplaatst";
    default:
      return "het systeem meldt fout " + std::to_string(systemError);
  }
}

std::string ReadCause(int systemError) {
  switch (systemError) {
    case ENOENT:
    case ENOTDIR:
      return "het bestand bestaat niet";
    case EISDIR:
      return "het is een map";
    case EACCES:
    case EPERM:
      return "u hebt daar geen leesrechten";
    default:
      return CommonCause(systemError);
  }
}

std::string WriteCause(int systemError) {
  switch (systemError) {
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
    default:
      return CommonCause(systemError);
  }
}

// A description ends at a null character, so the name must not hold one.
std::string Describe(const std::string& fileName, const std::string& failure) {
  return "\"" + fileName.substr(0, fileName.find('\0')) + "\" kan niet worden " + failure;
}

bool HoldsNull(const std::string& fileName) {
  return fileName.find('\0') != std::string::npos;
}

}  // namespace

std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause) {
  return Describe(fileName, "geschreven: " + cause);
}

void ThrowReadFailure(const std::string& fileName, const std::string& cause) {
  throw Error(ErrorNumber::FileAccess, Describe(fileName, "gelezen: " + cause));
}

void ThrowReadFailure(const std::string& fileName, int systemError) {
  if (systemError == ENOMEM) ThrowOutOfMemory();
  ThrowReadFailure(fileName, ReadCause(systemError));
}

void ThrowWriteFailure(const std::string& fileName, const std::string& cause) {
  throw Error(ErrorNumber::FileAccess, DescribeWriteFailure(fileName, cause));
}

void ThrowWriteFailure(const std::string& fileName, int systemError) {
  if (systemError == ENOMEM) ThrowOutOfMemory();
  ThrowWriteFailure(fileName, WriteCause(systemError));
}

void RequireReadableName(const std::string& fileName) {
  if (fileName.empty()) {
    throw Error(ErrorNumber::FileAccess,
                "Het bestand kan niet worden gelezen: er is geen bestandsnaam opgegeven");
  }
  if (HoldsNull(fileName)) ThrowReadFailure(fileName, kNoName);
}

void RequireWritableName(const std::string& fileName) {
  if (fileName.empty()) {
    throw Error(ErrorNumber::FileAccess,
                "Het bestand kan niet worden geschreven: er is geen bestandsnaam opgegeven");
  }
  if (HoldsNull(fileName)) ThrowWriteFailure(fileName, kNoName);
}

}  // namespace pagivo
