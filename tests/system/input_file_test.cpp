#include "system/host_files_test.h"

namespace pagivo {
namespace {

class InputFileTest : public FilesOfAHost {
 protected:
  std::string Write(const std::string& name, const std::string& contents) const {
    std::string path = folder.FileNamed(name);
    std::ofstream(path) << contents;
    return path;
  }
};

TEST_F(InputFileTest, GivesAllBytes) {
  const std::vector<std::uint8_t> bytes = InputFile(Write("a", "abc")).Read();
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "abc");
}

TEST_F(InputFileTest, HasTheIdentityOfItsName) {
  const std::string path = Write("a", "abc");
  EXPECT_EQ(InputFile(path).Identity(), IdentityOf(path));
  EXPECT_EQ(IdentityOf(path).size, 3U);
}

TEST_F(InputFileTest, ShowsChangesOnceItsTimesAreSomeSecondsOld) {
  FileIdentity file = IdentityOf(Write("a", "abc"));
  EXPECT_FALSE(ShowsChanges(file));
  file.modifiedSeconds -= 10;
  EXPECT_FALSE(ShowsChanges(file)) << "its contents may have got an older time";
  file.changedSeconds -= 10;
  EXPECT_TRUE(ShowsChanges(file));
}

TEST_F(InputFileTest, StaysTheFileThatWasOpened) {
  const std::string path = Write("a", "abc");
  InputFile file(path);
  const FileIdentity opened = file.Identity();
  std::filesystem::rename(path, folder.FileNamed("c"));
  std::filesystem::rename(Write("b", "later"), path);
  EXPECT_EQ(file.Identity().number, opened.number);
  EXPECT_NE(IdentityOf(path), opened);
  EXPECT_EQ(file.Read().size(), 3U);
}

TEST_F(InputFileTest, TellsThatItWasWrittenMeanwhile) {
  const std::string path = Write("a", "abc");
  const InputFile file(path);
  const FileIdentity opened = file.Identity();
  Write("a", "abcd");
  EXPECT_NE(file.Identity(), opened);
}

TEST_F(InputFileTest, ThatIsMissingIsRefused) {
  const std::string path = folder.FileNamed("weg");
  ExpectRefused(path, "\"" + path + "\" kan niet worden gelezen: het bestand bestaat niet");
}

TEST_F(InputFileTest, MayNotBeAFolder) {
  ExpectRefused(folder.Path(), "\"" + folder.Path() + "\" kan niet worden gelezen: het is een map");
}

TEST_F(InputFileTest, MayNotHaveANullCharacterInItsName) {
  const std::string path = Write("a", "abc");
  ExpectRefused(path + std::string("\0.png", 5),
                "\"" + path + "\" kan niet worden gelezen: dat is geen geldige bestandsnaam");
}

TEST_F(InputFileTest, MustHaveAName) {
  ExpectRefused("", "Het bestand kan niet worden gelezen: er is geen bestandsnaam opgegeven");
}

}  // namespace
}  // namespace pagivo
