// Memory runs out at every possible moment of a session. What reports errors reports that one and
// no other exception gets out; what is written is what would have been written otherwise.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "engine/native/pictures/picture_loader.h"
#include "faults/failing_allocations.h"
#include "faults/short_session.h"
#include "support/data/test_data.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::testing {
namespace {

// How many moments of the first session of a process are tried, and of a later one: so that each
// test takes seconds. They are spread evenly, all if there are no more.
constexpr long kFirstSessions = 60;
constexpr long kLaterSessions = 300;

class MemoryShortage : public ::testing::TestWithParam<Shortage> {
 protected:
  // Of a session that nothing disturbs; makes the files that the others are compared with.
  long CountAllocations() const {
    ShortSession session(undisturbed.Path());
    const FailingAllocation none(-1);
    session.Run();
    return none.Count();
  }

  // What is wrong with the session in which that allocation fails; empty when nothing is.
  std::string FaultOf(long number) const {
    const ScratchFolder folder;
    ShortSession session(folder.Path());
    SessionOutcome outcome;
    {
      const FailingAllocation failing(number, GetParam());
      outcome = session.Run();
    }
    if (outcome.foreignExceptions > 0) return "another exception than Error gets out";
    if (Differs(outcome.isPdfWritten, folder, "sessie.pdf")) return "the PDF is not whole";
    if (Differs(outcome.isPngWritten, folder, "sessie.png")) return "the PNG is not whole";
    return {};
  }

  // A file that is written is whole, and one that is not leaves nothing.
  bool Differs(bool isWritten, const ScratchFolder& folder, const std::string& name) const {
    const std::string path = folder.FileNamed(name);
    if (!isWritten) return std::filesystem::exists(path);
    return ReadFile(path) != ReadFile(undisturbed.FileNamed(name));
  }

  // What `body` gives in a process of its own, which is as new as this one; -1 when that ends
  // otherwise.
  static long InChild(const std::function<long()>& body) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
      long result = -1;
      try {
        result = body();
      } catch (...) {
        _exit(1);
      }
      _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(ends[1]);
    long result = -1;
    const bool isWhole = read(ends[0], &result, sizeof result) == sizeof result;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return isWhole && status == 0 ? result : -1;
  }

  ScratchFolder undisturbed;
};

TEST_P(MemoryShortage, InALaterSessionLosesNothingSilently) {
  CountAllocations();
  const long count = CountAllocations();
  const long step = std::max(1L, count / kLaterSessions);
  for (long number = 1; number <= count; number += step) {
    EXPECT_EQ(FaultOf(number), "") << "allocation " << number << " of " << count;
  }
  EXPECT_EQ(FaultOf(-1), "") << "afterwards";
}

TEST_P(MemoryShortage, InTheFirstSessionLosesNothingSilently) {
  const long count = InChild([this] { return CountAllocations(); });
  ASSERT_GT(count, 0);
  const long step = std::max(1L, count / kFirstSessions);
  for (long number = 1; number <= count; number += step) {
    const long result = InChild([&] {
      const std::string fault = FaultOf(number);
      const std::string later = FaultOf(-1);
      if (!fault.empty()) std::cerr << fault << '\n';
      if (!later.empty()) std::cerr << "in the next session " << later << '\n';
      return fault.empty() && later.empty() ? 0 : 1;
    });
    EXPECT_EQ(result, 0) << "allocation " << number << " of " << count;
  }
}

// A row that is not read for want of memory must not pass for a damaged one, which is white.
TEST_P(MemoryShortage, LeavesNoRowOfAStoredPictureOut) {
  const std::string text = ReadFile(TestDataPath("pictures/true_color.png"));
  const std::vector<std::uint8_t> file(text.begin(), text.end());
  const auto whole = native::DecodePicture(file);
  ASSERT_NE(whole->Stored(), nullptr);
  long number = 1;
  for (bool failed = true; failed; ++number) {
    const auto picture = native::DecodePicture(file);
    native::PictureImage::PixelsRef pixels;
    {
      const FailingAllocation failing(number, GetParam());
      try {
        pixels = picture->GetPixels();
      } catch (const std::bad_alloc&) {
      }
      failed = failing.Count() >= number;
    }
    if (pixels == nullptr) continue;
    EXPECT_EQ(pixels->data, whole->GetPixels()->data) << "allocation " << number;
  }
  EXPECT_GT(number, 10);
}

INSTANTIATE_TEST_SUITE_P(Once, MemoryShortage, ::testing::Values(Shortage::Once));
INSTANTIATE_TEST_SUITE_P(Lasting, MemoryShortage, ::testing::Values(Shortage::Lasting));

}  // namespace
}  // namespace pagivo::testing
