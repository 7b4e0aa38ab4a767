// What becomes of permissions, links and what is no file.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "system/host_files_test.h"

namespace pagivo {
namespace {

class PosixInputFile : public FilesOfAHost {};
class PosixReplacement : public FilesOfAHost {};

// The code with which a child process ends that runs `body`; the signal's negative if one ends it.
int OutcomeInChild(const std::function<bool()>& body) {
  const pid_t child = fork();
  if (child == 0) _exit(body() ? 0 : 1);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

mode_t PermissionsOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

TEST_F(PosixInputFile, MayNotBeAPipeOrADevice) {
  const std::string pipe = folder.FileNamed("pijp");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {pipe, std::string("/dev/zero")}) {
    ExpectRefused(path, "\"" + path + "\" kan niet worden gelezen: dat is geen gewoon bestand");
  }
}

TEST_F(PosixReplacement, HasNoNameWhileItIsWritten) {
  FileReplacement file(folder.FileNamed("nieuw.pdf"));
  file.Write(Bytes("nieuw"));
  EXPECT_EQ(Entries(), 0);
}

TEST_F(PosixReplacement, KeepsPermissionsButNotTheRightToRunInTheOwnersName) {
  const std::string path = Old();
  chmod(path.c_str(), 06755);
  Replace(path, "nieuw");
  EXPECT_EQ(PermissionsOf(path), 0755U);
}

TEST_F(PosixReplacement, HasThePermissionsThatTheMaskLeavesWhenItIsNew) {
  const mode_t old = umask(027);
  Replace(folder.FileNamed("nieuw.pdf"), "nieuw");
  umask(old);
  EXPECT_EQ(PermissionsOf(folder.FileNamed("nieuw.pdf")), 0640U);
}

TEST_F(PosixReplacement, IsNotWiderThanItsTargetWhileItIsWritten) {
  const std::string path = Old();
  chmod(path.c_str(), 0644);
  const FileReplacement file(path);
  int unnamed = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    struct stat status {};
    if (stat(entry.path().c_str(), &status) != 0 || status.st_nlink != 0) continue;
    if (!S_ISREG(status.st_mode)) continue;
    ++unnamed;
    EXPECT_EQ(status.st_mode & 0777, 0600U);
  }
  EXPECT_EQ(unnamed, 1);
}

TEST_F(PosixReplacement, FollowsALinkWhichStays) {
  const std::string path = Old();
  const std::string link = folder.FileNamed("link.pdf");
  std::filesystem::create_symlink("oud.pdf", link);
  Replace(link, "nieuw");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(ReadFile(path), "nieuw");
}

TEST_F(PosixReplacement, MakesTheFileThatALinkLeadsTo) {
  std::filesystem::create_directory(folder.FileNamed("map"));
  std::filesystem::create_symlink("map/straks.pdf", folder.FileNamed("link.pdf"));
  Replace(folder.FileNamed("link.pdf"), "nieuw");
  EXPECT_EQ(ReadFile(folder.FileNamed("map/straks.pdf")), "nieuw");
}

TEST_F(PosixReplacement, ThatIsNotCommittedLeavesALinkLeadingToNothing) {
  std::filesystem::create_symlink("straks.pdf", folder.FileNamed("link.pdf"));
  FileReplacement(folder.FileNamed("link.pdf")).Write(Bytes("nieuw"));
  EXPECT_FALSE(std::filesystem::exists(folder.FileNamed("link.pdf")));
  EXPECT_EQ(Entries(), 1);
}

TEST_F(PosixReplacement, RefusesAPipeWithoutWaitingForAReader) {
  const std::string pipe = folder.FileNamed("pijp");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(FailureOf([&] { FileReplacement file(pipe); }),
            "\"" + pipe + "\" kan niet worden geschreven: dat is geen gewoon bestand");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(PosixReplacement, RefusesADevice) {
  EXPECT_EQ(FailureOf([] { FileReplacement file("/dev/full"); }),
            "\"/dev/full\" kan niet worden geschreven: dat is geen gewoon bestand");
}

TEST_F(PosixReplacement, RefusesAReadOnlyFileEvenToTheSuperuser) {
  const std::string path = Old();
  chmod(path.c_str(), 0444);
  EXPECT_EQ(FailureOf([&] { FileReplacement file(path); }),
            "\"" + path + "\" kan niet worden geschreven: het bestaande bestand is alleen-lezen");
}

// The system's answer to a file that grows too large is to end the process.
TEST_F(PosixReplacement, ThatGrowsTooLargeIsAnErrorAndNotTheHostsEnd) {
  const std::string path = Old();
  const int outcome = OutcomeInChild([&] {
    const rlimit small{4096, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string failure = FailureOf([&] { Replace(path, std::string(10000, 'x')); });
    sigset_t waiting{};
    sigpending(&waiting);
    return failure.ends_with("het bestand wordt te groot") && sigismember(&waiting, SIGXFSZ) == 0;
  });
  EXPECT_EQ(outcome, 0);
  EXPECT_EQ(ReadFile(path), "oud");
  EXPECT_EQ(Entries(), 1);
}

// Who may write a file may not always give it to its old group.
TEST_F(PosixReplacement, GivesAnotherGroupNoMoreThanEverybody) {
  const std::string path = Old();
  constexpr uid_t kNobody = 65534;
  if (getuid() == 0 && chown(path.c_str(), kNobody, 12345) != 0) FAIL() << "no owner";
  chmod(path.c_str(), 0664);
  chmod(folder.Path().c_str(), 0777);
  const int outcome = OutcomeInChild([&] {
    if (getuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) return false;
    return FailureOf([&] { Replace(path, "nieuw"); }).empty();
  });
  EXPECT_EQ(outcome, 0);
  EXPECT_EQ(ReadFile(path), "nieuw");
  EXPECT_EQ(PermissionsOf(path), getuid() == 0 ? 0644U : 0664U);
}

}  // namespace
}  // namespace pagivo
