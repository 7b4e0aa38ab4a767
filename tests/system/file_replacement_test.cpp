#include "system/host_files_test.h"

namespace pagivo {
namespace {

class FileReplacementTest : public FilesOfAHost {};

TEST_F(FileReplacementTest, TakesThePlaceOfTheOldFile) {
  const std::string path = Old();
  Replace(path, "nieuw");
  EXPECT_EQ(ReadFile(path), "nieuw");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(FileReplacementTest, ThatIsNotCommittedLeavesNothing) {
  const std::string path = Old();
  FileReplacement(path).Write(Bytes("nieuw"));
  FileReplacement(folder.FileNamed("ander.pdf")).Write(Bytes("nieuw"));
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(FileReplacementTest, TwoAtOnceDoNotDisturbEachOther) {
  const std::string path = folder.FileNamed("a");
  FileReplacement first(path);
  FileReplacement second(path);
  first.Write(Bytes("1"));
  second.Write(Bytes("2"));
  first.Commit();
  second.Commit();
  EXPECT_EQ(ReadFile(path), "2");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(FileReplacementTest, WorksWhereTheCurrentFolderChangesMeanwhile) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  FileReplacement file("hier.pdf");
  std::filesystem::current_path(before);
  file.Write(Bytes("nieuw"));
  file.Commit();
  EXPECT_EQ(ReadFile(folder.FileNamed("hier.pdf")), "nieuw");
}

TEST_F(FileReplacementTest, RefusesANameWithANullCharacter) {
  const std::string path = Old();
  EXPECT_EQ(FailureOf([&] { FileReplacement file(path + std::string(1, '\0') + ".pdf"); }),
            "\"" + path + "\" kan niet worden geschreven: dat is geen geldige bestandsnaam");
  EXPECT_EQ(ReadFile(path), "oud");
}

TEST_F(FileReplacementTest, RefusesToBeNameless) {
  EXPECT_EQ(FailureOf([] { FileReplacement file(""); }),
            "Het bestand kan niet worden geschreven: er is geen bestandsnaam opgegeven");
}

}  // namespace
}  // namespace pagivo
