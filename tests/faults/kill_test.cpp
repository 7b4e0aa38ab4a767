// The process is killed at any moment of writing a file over another: one of them is there, whole.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <random>

#include "pagivo/page_image.h"
#include "pagivo/pg_print.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::testing {
namespace {

constexpr int kKills = 50;
constexpr useconds_t kLongestDelay = 30000;  // microseconds; a few files take that long

// Between two calls of the system's a complete file has another name: a kill may fall there. The
// files are large, so that this is seldom, on a machine with much else to do, too.
constexpr long kMostLeftBehind = 2;

class Kill : public ::testing::Test {
 protected:
  Kill() {
    print.VsPPInit();
    for (int page = 1; page <= 100; ++page) {
      for (int line = 0; line < 40; ++line) {
        print.VsPPPrint("Regel " + std::to_string(line * page), 1440, 1440 + line * 300);
      }
      print.VsPPNewPage();
    }
    print.VsPPFinish("Rapport");
  }
  ~Kill() override { print.VsPPEinde(); }

  // Kills a child that writes the file again and again, some time after it has written it once.
  void KillWhileWriting(const std::function<void()>& write) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      for (;;) {
        write();
        if (::write(ends[1], "1", 1) != 1) _exit(1);
      }
    }
    char written = 0;
    EXPECT_EQ(read(ends[0], &written, 1), 1);
    usleep(std::uniform_int_distribution<useconds_t>(0, kLongestDelay)(random));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
  }

  void ExpectWhole(const std::string& name, const std::function<void(const std::string&)>& write) {
    const std::string whole = other.FileNamed(name);
    write(whole);
    const std::string path = folder.FileNamed(name);
    for (int i = 0; i < kKills; ++i) {
      KillWhileWriting([&] { write(path); });
      EXPECT_TRUE(ReadFile(path) == ReadFile(whole)) << "torn by kill " << i;
    }
    ExpectHardlyAnythingElse(name, ReadFile(whole));
  }

  void ExpectHardlyAnythingElse(const std::string& name, const std::string& contents) const {
    long others = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
      if (entry.path().filename() == name) continue;
      ++others;
      EXPECT_EQ(ReadFile(entry.path()), contents) << entry.path() << " is torn";
    }
    EXPECT_LE(others, kMostLeftBehind);
  }

  ScratchFolder folder;
  ScratchFolder other;
  PgPrint print;
  std::minstd_rand random{20261121};
};

TEST_F(Kill, NeverTearsAPdf) {
  ExpectWhole("rapport.pdf", [this](const std::string& path) { print.VSPDF(path); });
}

TEST_F(Kill, NeverTearsAPng) {
  ExpectWhole("blad.png", [](const std::string& path) { WritePagePng(1, 72, path); });
}

}  // namespace
}  // namespace pagivo::testing
