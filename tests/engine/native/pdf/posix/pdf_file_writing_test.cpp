// A failed export leaves everything as it was, whatever fails, in the ways that POSIX systems have
// to fail.
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "engine/native/document/recorder.h"
#include "engine/native/pdf/pdf_readers.h"
#include "engine/native/pdf/pdf_writer.h"
#include "pagivo/error.h"

namespace pagivo::native::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr uid_t kNobody = 65534;

class WritePdfFileTest : public ::testing::Test {
 protected:
  WritePdfFileTest() {
    Recorder recorder(document_);
    for (int page = 0; page < 3; ++page) {
      recorder.BeginPage({11906, 16838});
      recorder.DrawText({720, 720}, "Bladzijde");
    }
  }

  // What the user is told; empty when the export succeeds.
  std::string FailureOf(const std::string& fileName, ErrorNumber number = ErrorNumber::FileAccess,
                        std::int32_t first = 1, std::int32_t last = 3) {
    try {
      WritePdfFile(document_, {.firstPage = first, .lastPage = last}, fileName);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number);
      EXPECT_THAT(error.what(), HasSubstr(fileName.substr(0, fileName.find('\0'))))
          << "names the file";
      return error.what();
    }
    return {};
  }

  std::vector<std::string> Entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  // Runs `body` in a child process without the superuser's rights and gives what it returns.
  static std::string AsNobody(const std::function<std::string()>& body) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
      close(ends[0]);
      std::string result = "cannot drop rights";
      if (getuid() != 0 || setuid(kNobody) == 0) result = body();
      const ssize_t written = write(ends[1], result.data(), result.size());
      _exit(written == static_cast<ssize_t>(result.size()) ? 0 : 1);
    }
    close(ends[1]);
    std::string result;
    char buffer[512];
    for (ssize_t count = 0; (count = read(ends[0], buffer, sizeof buffer)) > 0;) {
      result.append(buffer, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return result;
  }

  static mode_t PermissionsOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
  }

  ScratchFolder folder_;
  Document document_;
};

TEST_F(WritePdfFileTest, WritesANewFileAndNothingElse) {
  EXPECT_EQ(FailureOf(folder_.FileNamed("nieuw.pdf")), "");
  EXPECT_THAT(Entries(), UnorderedElementsAre("nieuw.pdf"));
  EXPECT_EQ(ReadFile(folder_.FileNamed("nieuw.pdf")), PdfBytes(document_));
}

TEST_F(WritePdfFileTest, ANewFileHasThePermissionsThatTheMaskLeaves) {
  const mode_t old = umask(027);
  EXPECT_EQ(FailureOf(folder_.FileNamed("nieuw.pdf")), "");
  umask(old);
  EXPECT_EQ(PermissionsOf(folder_.FileNamed("nieuw.pdf")), 0640U);
}

TEST_F(WritePdfFileTest, TheOldFileIsReplacedAndItsPermissionsKept) {
  const std::string path = folder_.FileNamed("oud.pdf");
  WriteFile(path, "oud");
  chmod(path.c_str(), 0604);
  EXPECT_EQ(FailureOf(path), "");
  EXPECT_EQ(PermissionsOf(path), 0604U);
  EXPECT_EQ(ReadFile(path), PdfBytes(document_));
}

TEST_F(WritePdfFileTest, FileNamesAreUtf8) {
  EXPECT_EQ(FailureOf(folder_.FileNamed("Verslag 3 \u2013 co\u00F6rdinaten.pdf")), "");
  EXPECT_THAT(Entries(), UnorderedElementsAre("Verslag 3 \u2013 co\u00F6rdinaten.pdf"));
}

TEST_F(WritePdfFileTest, ANameWithoutAFolderIsInTheCurrentOne) {
  const std::filesystem::path old = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path());
  EXPECT_EQ(FailureOf("hier.pdf"), "");
  std::filesystem::current_path(old);
  EXPECT_THAT(Entries(), UnorderedElementsAre("hier.pdf"));
}

TEST_F(WritePdfFileTest, ALinkIsFollowedAndStays) {
  WriteFile(folder_.FileNamed("echt.pdf"), "oud");
  std::filesystem::create_symlink("echt.pdf", folder_.FileNamed("link.pdf"));
  EXPECT_EQ(FailureOf(folder_.FileNamed("link.pdf")), "");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.FileNamed("link.pdf")));
  EXPECT_EQ(ReadFile(folder_.FileNamed("echt.pdf")), PdfBytes(document_));
}

TEST_F(WritePdfFileTest, ALinkToNothingYetMakesThatFile) {
  std::filesystem::create_symlink("straks.pdf", folder_.FileNamed("link.pdf"));
  EXPECT_EQ(FailureOf(folder_.FileNamed("link.pdf")), "");
  EXPECT_EQ(ReadFile(folder_.FileNamed("straks.pdf")), PdfBytes(document_));
}

TEST_F(WritePdfFileTest, ALinkToItselfIsRefused) {
  std::filesystem::create_symlink("link.pdf", folder_.FileNamed("link.pdf"));
  EXPECT_THAT(FailureOf(folder_.FileNamed("link.pdf")),
              EndsWith("kan niet worden geschreven: de koppeling verwijst naar zichzelf"));
}

TEST_F(WritePdfFileTest, AnUnnamedFileIsRefused) {
  EXPECT_EQ(FailureOf(""),
            "Het bestand kan niet worden geschreven: er is geen bestandsnaam opgegeven");
}

TEST_F(WritePdfFileTest, ANameWithANullCharacterIsRefused) {
  EXPECT_THAT(FailureOf(folder_.FileNamed(std::string("a\0b", 3))),
              EndsWith("dat is geen geldige bestandsnaam"));
}

TEST_F(WritePdfFileTest, AMissingFolderIsRefused) {
  EXPECT_EQ(
      FailureOf(folder_.FileNamed("weg/a.pdf")),
      "\"" + folder_.FileNamed("weg/a.pdf") + "\" kan niet worden geschreven: de map bestaat niet");
}

TEST_F(WritePdfFileTest, AFileInsteadOfAFolderIsRefused) {
  WriteFile(folder_.FileNamed("bestand"), "x");
  EXPECT_THAT(FailureOf(folder_.FileNamed("bestand/a.pdf")),
              EndsWith("een deel van het pad is geen map"));
}

TEST_F(WritePdfFileTest, ATargetThatIsAFolderIsRefused) {
  std::filesystem::create_directory(folder_.FileNamed("map.pdf"));
  EXPECT_THAT(FailureOf(folder_.FileNamed("map.pdf")), EndsWith("er is al een map met die naam"));
  EXPECT_THAT(FailureOf(folder_.FileNamed("map.pdf/")), EndsWith("er is al een map met die naam"));
  EXPECT_THAT(Entries(), UnorderedElementsAre("map.pdf"));
}

TEST_F(WritePdfFileTest, ADeviceIsRefused) {
  EXPECT_THAT(FailureOf("/dev/null"), EndsWith("dat is geen gewoon bestand"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(WritePdfFileTest, ATooLongNameIsRefused) {
  EXPECT_THAT(FailureOf(folder_.FileNamed(std::string(300, 'a'))), EndsWith("de naam is te lang"));
  std::string deep = folder_.FileNamed("");
  while (deep.size() < 5000) deep += "aaaaaaaaa/";
  EXPECT_THAT(FailureOf(deep + "a.pdf"), EndsWith("de naam is te lang"));
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(WritePdfFileTest, TheLongestNameIsTaken) {
  const std::string name(255, 'a');
  EXPECT_EQ(FailureOf(folder_.FileNamed(name)), "");
  EXPECT_THAT(Entries(), UnorderedElementsAre(name));
}

TEST_F(WritePdfFileTest, AReadOnlyOldFileIsRefusedEvenToTheSuperuser) {
  const std::string path = folder_.FileNamed("vast.pdf");
  WriteFile(path, "oud");
  chmod(path.c_str(), 0444);
  EXPECT_THAT(FailureOf(path), EndsWith("het bestaande bestand is alleen-lezen"));
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_THAT(Entries(), UnorderedElementsAre("vast.pdf"));
}

TEST_F(WritePdfFileTest, AFolderThatMayNotBeWrittenIsRefused) {
  chmod(folder_.Path().c_str(), 0555);
  EXPECT_THAT(AsNobody([this] { return FailureOf(folder_.FileNamed("a.pdf")); }),
              EndsWith("u hebt daar geen schrijfrechten"));
  chmod(folder_.Path().c_str(), 0755);
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(WritePdfFileTest, SomebodyElsesFileIsRefused) {
  const std::string path = folder_.FileNamed("vreemd.pdf");
  WriteFile(path, "oud");
  chmod(path.c_str(), getuid() == 0 ? 0644 : 0444);
  chmod(folder_.Path().c_str(), 0777);
  EXPECT_THAT(AsNobody([&] { return FailureOf(path); }),
              EndsWith("het bestaande bestand is alleen-lezen"));
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_THAT(Entries(), UnorderedElementsAre("vreemd.pdf"));
}

// A disk of one page of memory; where none can be mounted, a limit on the size of files. Gives the
// end of the description that belongs to it.
class FullDisk {
 public:
  explicit FullDisk(const std::string& folder) : folder_(folder) {
    mounted_ = mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=4k") == 0;
    if (mounted_) return;
    previous_ = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small{4096, limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    if (mounted_) {
      umount(folder_.c_str());
    } else {
      setrlimit(RLIMIT_FSIZE, &limit_);
      std::signal(SIGXFSZ, previous_);
    }
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

  std::string Cause() const { return mounted_ ? "de schijf is vol" : "het bestand wordt te groot"; }

 private:
  std::string folder_;
  bool mounted_ = false;
  rlimit limit_{};
  void (*previous_)(int) = nullptr;
};

TEST_F(WritePdfFileTest, AFullDiskLeavesTheOldFile) {
  const FullDisk disk(folder_.Path());
  const std::string path = folder_.FileNamed("vol.pdf");
  WriteFile(path, "oud");
  EXPECT_THAT(FailureOf(path), EndsWith(disk.Cause()));
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_THAT(Entries(), UnorderedElementsAre("vol.pdf"));
}

TEST_F(WritePdfFileTest, PagesThatDoNotExistAreRefused) {
  const std::string path = folder_.FileNamed("a.pdf");
  const std::pair<int, int> ranges[] = {{0, 1}, {1, 4}, {4, 4}, {3, 2}, {1, 0}, {-5, -1}};
  for (const auto& [first, last] : ranges) {
    EXPECT_EQ(FailureOf(path, ErrorNumber::PageOutOfRange, first, last),
              "\"" + path + "\" kan niet worden geschreven: pagina " + std::to_string(first) +
                  " tot en met " + std::to_string(last) +
                  " is geen deel van een document van 3 pagina's");
  }
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(WritePdfFileTest, ADocumentWithoutPagesIsRefused) {
  const Document empty;
  try {
    WritePdfFile(empty, {}, folder_.FileNamed("a.pdf"));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::PageOutOfRange);
    EXPECT_THAT(error.what(), EndsWith("het document heeft geen pagina's"));
  }
}

TEST_F(WritePdfFileTest, ASinkThatFailsEndsTheWriting) {
  const ByteSink sink = [](std::span<const std::uint8_t>) {
    throw Error(ErrorNumber::FileAccess, "vol");
  };
  EXPECT_THROW(WritePdf(document_, {.firstPage = 1, .lastPage = 3}, sink), Error);
}

}  // namespace
}  // namespace pagivo::native::testing
