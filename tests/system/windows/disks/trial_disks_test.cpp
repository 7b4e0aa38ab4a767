// What users are told of disks that are full, only to be read or forbidden, and what stays there:
// in the folder that tests/support/windows/on_trial_disks.sh has prepared.
#include <cstdlib>
#include <map>

#include "system/host_files_test.h"

namespace pagivo {
namespace {

std::string OnDisk(const std::string& name) {
  const char* disks = std::getenv("PAGIVO_TRIAL_DISKS");
  if (disks == nullptr) throw std::runtime_error("there are no trial disks");
  return "Z:" + std::string(disks) + "/" + name;
}

// All files of the folder and what they hold.
std::map<std::string, std::string> Contents(const std::string& folder) {
  std::map<std::string, std::string> contents;
  for (const auto& entry : std::filesystem::directory_iterator(OnDisk(folder))) {
    contents[entry.path().filename().string()] = ReadFile(entry.path().string());
  }
  return contents;
}

const std::map<std::string, std::string> kOldFileAlone{{"oud.pdf", "oud"}};

// The file cannot be written, and nothing else is there afterwards.
void ExpectNoPlace(const std::string& name, const std::string& cause,
                   const std::string& contents = "nieuw") {
  const std::string path = OnDisk(name);
  EXPECT_EQ(FailureOf([&] { Replace(path, contents); }),
            "\"" + path + "\" kan niet worden geschreven: " + cause);
  EXPECT_EQ(Contents(name.substr(0, name.find('/'))), kOldFileAlone);
}

TEST(TrialDisk, ThatIsFullKeepsTheOldFileAndNothingOfTheNewOne) {
  const std::string much(100'000, 'x');
  ExpectNoPlace("small/oud.pdf", "de schijf is vol", much);
  ExpectNoPlace("small/nieuw.pdf", "de schijf is vol", much);
}

// As a document is written, in parts, and the last of them finds no place.
TEST(TrialDisk, ThatFillsMeanwhileKeepsTheOldFile) {
  const std::string path = OnDisk("small/oud.pdf");
  {
    FileReplacement file(path);
    const std::string part(20'000, 'x');
    file.Write(Bytes(part));
    EXPECT_EQ(FailureOf([&] {
                for (int i = 0; i < 5; ++i) file.Write(Bytes(part));
              }),
              "\"" + path + "\" kan niet worden geschreven: de schijf is vol");
  }
  EXPECT_EQ(Contents("small"), kOldFileAlone);
  Replace(path, std::string(20'000, 'x'));
  EXPECT_EQ(ReadFile(path).size(), 20'000U);
  Replace(path, "oud");
}

// Windows says so of the disk; Wine only that the user may not.
TEST(TrialDisk, ThatCanOnlyBeReadKeepsTheOldFile) {
  ExpectNoPlace("readonly/oud.pdf", "het bestaande bestand is alleen-lezen");
  ExpectNoPlace("readonly/nieuw.pdf", "u hebt daar geen schrijfrechten");
  EXPECT_EQ(InputFile(OnDisk("readonly/oud.pdf")).Read().size(), 3U);
}

TEST(TrialDisk, WhereTheUserMayNotWriteSaysSo) {
  ExpectNoPlace("forbidden/oud.pdf", "u hebt daar geen schrijfrechten");
  ExpectNoPlace("forbidden/nieuw.pdf", "u hebt daar geen schrijfrechten");
}

TEST(TrialDisk, WhereTheUserMayNotReadSaysSo) {
  const std::string path = OnDisk("secret/oud.pdf");
  ExpectRefused(path, "\"" + path + "\" kan niet worden gelezen: u hebt daar geen leesrechten");
}

TEST(TrialDisk, HasLinksThatAreFollowedAndStay) {
  Replace(OnDisk("links/file.pdf"), "een");
  EXPECT_EQ(Contents("links/folder"), (std::map<std::string, std::string>{{"oud.pdf", "een"}}));
  Replace(OnDisk("links/to_folder/oud.pdf"), "twee");
  EXPECT_EQ(ReadFile(OnDisk("links/file.pdf")), "twee");
  EXPECT_EQ(Contents("links/folder"), (std::map<std::string, std::string>{{"oud.pdf", "twee"}}));
}

TEST(TrialDisk, HasLinksToThemselvesThatAreRefused) {
  const std::string path = OnDisk("links/endless.pdf");
  EXPECT_EQ(FailureOf([&] { Replace(path, "nieuw"); }),
            "\"" + path + "\" kan niet worden geschreven: de koppeling verwijst naar zichzelf");
}

TEST(TrialDisk, OfAServerIsReadAndWritten) {
  for (const char* path : {R"(\\server\map\oud.pdf)", R"(\\?\UNC\server\map\oud.pdf)",
                           "//server/map/oud.pdf", R"(\\server\map\nieuw.pdf)"}) {
    Replace(path, path);
    EXPECT_EQ(InputFile(path).Read().size(), std::string_view(path).size());
  }
  const std::string path = R"(\\server\weg\oud.pdf)";
  EXPECT_EQ(FailureOf([&] { Replace(path, "nieuw"); }),
            "\"" + path + "\" kan niet worden geschreven: de map bestaat niet");
}

}  // namespace
}  // namespace pagivo
