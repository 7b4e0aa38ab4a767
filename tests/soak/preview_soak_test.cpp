// A host that shows preview after preview takes no more and no more memory.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "pagivo/pg_print.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "support/trial_windows.h"

namespace pagivo::testing {
namespace {

// After this share of the previews every cache is as full as it becomes.
constexpr int kWarmUpShare = 5;
constexpr long kMostGrowth = 4 << 20;  // bytes, over all later previews

// As many as the back end can show in a minute, which CTest knows.
int PreviewCount() {
  const char* count = std::getenv("PAGIVO_PREVIEWS");
  return count == nullptr ? 0 : std::atoi(count);
}

long ResidentBytes() {
  long total = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

long OpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class PreviewSoak : public ::testing::Test {
 protected:
  PreviewSoak() {
    Platform platform = NativePlatform();
    platform.windows = windows;
    UsePlatform(std::move(platform));
  }
  ~PreviewSoak() override {
    print.VsPPEinde();
    UsePlatform(NativePlatform());
  }

  void Compose() {
    print.VsPPInit();
    print.VsPPStart(nullptr);
    print.VsPPWatermerkInit(1);
    for (int page = 1; page <= 3; ++page) {
      for (int line = 0; line < 30; ++line) {
        print.VsPPPrint("Regel " + std::to_string(line), 1440, 1440 + line * 400);
      }
      print.VsPPNewPage();
    }
    print.VsPPFinish("Rapport");
  }

  // Where no widget does it, the pages are drawn all the same.
  static void Draw() {
    SurfaceContent& content = *PreviewForm().PreviewSurface().Content();
    std::vector<std::uint32_t> pixels(400 * 300);
    content.PutArea({400, 300, 1});
    content.Draw({400, 300, pixels}, {});
  }

  // The user turns a page; every other document is discarded after it was seen.
  void ShowPreview(int number) {
    windows->AddScript([](Form&, FormUser& user) {
      Draw();
      user.ClickToolbar("tbAfdrukken", "Volgende");
      Draw();
      user.ClickToolbar("tbAfdrukken", "Zoom");
    });
    std::int16_t page = 1;
    print.VsPreviewFile(page);
    ASSERT_EQ(windows->ScriptsLeft(), 0U);
    if (number % 2 == 0) print.VsPPEinde();
    Compose();
  }

  std::shared_ptr<TrialWindows> windows = MakeTrialWindows();
  PgPrint print;
};

TEST_F(PreviewSoak, TakesNoMoreAndMore) {
  const int count = PreviewCount();
  ASSERT_GE(count, 100) << "PAGIVO_PREVIEWS";
  Compose();
  const int warmUp = count / kWarmUpShare;
  for (int number = 1; number <= warmUp; ++number) ShowPreview(number);
  const long memory = ResidentBytes();
  const long files = OpenFiles();
  const std::size_t shown = windows->Count();
  for (int number = warmUp + 1; number <= count; ++number) ShowPreview(number);
  EXPECT_LE(ResidentBytes() - memory, kMostGrowth);
  EXPECT_LE(OpenFiles(), files);
  EXPECT_LE(windows->Count(), shown + 1);
  RecordProperty("grown", static_cast<int>(ResidentBytes() - memory));
  std::cout << "grown by " << ResidentBytes() - memory << " bytes\n";
}

}  // namespace
}  // namespace pagivo::testing
