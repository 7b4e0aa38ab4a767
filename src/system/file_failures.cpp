#include "system/file_failures.h"

#include <algorithm>
#include <array>
#include <new>
#include <string_view>

#include "pagivo/error.h"

namespace pagivo {
namespace {

// What the causes are called to a user who has a file read or written.
struct CauseText {
  FileCause cause;
  std::string_view ofReading;
  std::string_view ofWriting;

  constexpr CauseText(FileCause why, std::string_view reading, std::string_view writing)
      : cause(why), ofReading(reading), ofWriting(writing) {}
  constexpr CauseText(FileCause why, std::string_view both) : CauseText(why, both, both) {}
};

constexpr std::array kCauseTexts{
    CauseText(FileCause::NotFound, "het bestand bestaat niet", "de map bestaat niet"),
    CauseText(FileCause::BelowAFile, "het bestand bestaat niet",
              "een deel van het pad is geen map"),
    CauseText(FileCause::Folder, "het is een map", "er is al een map met die naam"),
    CauseText(FileCause::NotRegular, "dat is geen gewoon bestand"),
    CauseText(FileCause::NoRights, "u hebt daar geen leesrechten",
              "u hebt daar geen schrijfrechten"),
    CauseText(FileCause::InUse, "een ander programma heeft het bestand geopend"),
    CauseText(FileCause::ReadOnly, "het bestaande bestand is alleen-lezen"),
    CauseText(FileCause::ReadOnlyDisk, "het station kan alleen worden gelezen"),
    CauseText(FileCause::FullDisk, "de schijf is vol"),
    CauseText(FileCause::ReachedQuota, "uw schijfruimte is op"),
    CauseText(FileCause::TooLarge, "het bestand wordt te groot"),
    CauseText(FileCause::NothingTaken, "de schijf neemt niets meer aan"),
    CauseText(FileCause::DiskFault, "de schijf meldt een fout"),
    CauseText(FileCause::InvalidName, "dat is geen geldige bestandsnaam"),
    CauseText(FileCause::LongName, "de naam is te lang"),
    CauseText(FileCause::EndlessLink, "de koppeling verwijst naar zichzelf"),
    CauseText(FileCause::TooManyOpenFiles, "er zijn te veel bestanden open"),
    CauseText(FileCause::Moved, "het bestand is intussen verplaatst"),
    CauseText(FileCause::NotReady, "het station is niet gereed"),
    CauseText(FileCause::LostConnection, "de netwerkverbinding is verbroken"),
};

std::string TextOf(FileCause cause, std::string_view CauseText::*doing) {
  if (cause == FileCause::NoMemory) throw std::bad_alloc();
  return std::string((*std::ranges::find(kCauseTexts, cause, &CauseText::cause)).*doing);
}

std::string TextOf(SystemError error, std::string_view CauseText::*doing) {
  const auto meanings = ErrorMeanings();
  const auto meaning = std::ranges::find(meanings, error, &ErrorMeaning::error);
  if (meaning == meanings.end()) return "het systeem meldt fout " + std::to_string(error);
  return TextOf(meaning->cause, doing);
}

// What is done with a file.
constexpr const char* kRead = "gelezen";
constexpr const char* kWritten = "geschreven";

// A description ends at a null character, so the name must not hold one.
std::string Describe(const std::string& fileName, const char* done, const std::string& cause) {
  return "\"" + fileName.substr(0, fileName.find('\0')) + "\" kan niet worden " + done + ": " +
         cause;
}

[[noreturn]] void Fail(const std::string& description) {
  throw Error(ErrorNumber::FileAccess, description);
}

void RequireName(const std::string& fileName, const char* done) {
  if (fileName.empty()) {
    Fail(std::string("Het bestand kan niet worden ") + done +
         ": er is geen bestandsnaam opgegeven");
  }
  if (fileName.find('\0') != std::string::npos) {
    Fail(Describe(fileName, done, TextOf(FileCause::InvalidName, &CauseText::ofReading)));
  }
}

}  // namespace

std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause) {
  return Describe(fileName, kWritten, cause);
}

void ThrowReadFailure(const std::string& fileName, FileCause cause) {
  Fail(Describe(fileName, kRead, TextOf(cause, &CauseText::ofReading)));
}

void ThrowReadFailure(const std::string& fileName, SystemError error) {
  Fail(Describe(fileName, kRead, TextOf(error, &CauseText::ofReading)));
}

void ThrowWriteFailure(const std::string& fileName, FileCause cause) {
  Fail(Describe(fileName, kWritten, TextOf(cause, &CauseText::ofWriting)));
}

void ThrowWriteFailure(const std::string& fileName, SystemError error) {
  Fail(Describe(fileName, kWritten, TextOf(error, &CauseText::ofWriting)));
}

void RequireReadableName(const std::string& fileName) {
  RequireName(fileName, kRead);
}

void RequireWritableName(const std::string& fileName) {
  RequireName(fileName, kWritten);
}

}  // namespace pagivo
