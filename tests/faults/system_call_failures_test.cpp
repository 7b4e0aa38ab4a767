// Each call of the system's that replaces a file fails in its turn.
#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <optional>

#include "faults/failing_system_calls.h"
#include "pagivo/error.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"
#include "system/host_files.h"

namespace pagivo::testing {
namespace {

constexpr std::string_view kNew = "het nieuwe bestand";

class SystemCallFailure : public ::testing::Test {
 protected:
  std::string Old() const {
    std::string path = folder.FileNamed("oud");
    std::ofstream(path) << "oud";
    return path;
  }

  // What the user is told; empty on success.
  static std::string FailureOf(const std::string& path) {
    try {
      FileReplacement file(path);
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(kNew.data());
      file.Write({bytes, kNew.size() / 2});
      file.Write({bytes + kNew.size() / 2, kNew.size() - kNew.size() / 2});
      file.Commit();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
      return error.what();
    }
    return {};
  }

  static std::string FailureOf(const std::string& path, std::string_view call, int number,
                               int error) {
    const FailingCall failing(call, number, error);
    return FailureOf(path);
  }

  long Entries() const {
    return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
  }

  ScratchFolder folder;
};

TEST_F(SystemCallFailure, LeavesTheOldFileOrTheNewOneAndNothingElse) {
  for (const std::string_view call : {"openat", "write", "fsync", "fstat", "fstatat", "faccessat",
                                      "fchmod", "fchown", "linkat", "renameat", "readlink"}) {
    for (int number = 1; number <= 8; ++number) {
      const std::string path = Old();
      const bool fails = !FailureOf(path, call, number, EIO).empty();
      EXPECT_EQ(ReadFile(path), fails ? "oud" : kNew) << call << ' ' << number;
      EXPECT_EQ(Entries(), 1) << call << ' ' << number;
    }
  }
}

TEST_F(SystemCallFailure, OfWhatBringsTheFileToDiskIsToldTheUser) {
  for (const std::string_view call : {"write", "fsync", "linkat", "renameat"}) {
    const std::string path = Old();
    EXPECT_EQ(FailureOf(path, call, 1, EIO),
              "\"" + path + "\" kan niet worden geschreven: de schijf meldt een fout")
        << call;
  }
}

TEST_F(SystemCallFailure, AWriteThatTakesNothingIsOne) {
  const std::string path = Old();
  EXPECT_EQ(FailureOf(path, "write", 2, 0),
            "\"" + path + "\" kan niet worden geschreven: de schijf neemt niets meer aan");
  EXPECT_EQ(ReadFile(path), "oud");
}

TEST_F(SystemCallFailure, AnInterruptedWriteIsNone) {
  const std::string path = Old();
  EXPECT_EQ(FailureOf(path, "write", 1, EINTR), "");
  EXPECT_EQ(ReadFile(path), kNew);
}

TEST_F(SystemCallFailure, AFileSystemWithoutNamelessFilesIsNone) {
  for (const int error : {EOPNOTSUPP, EISDIR, EINVAL}) {
    const std::string path = Old();
    EXPECT_EQ(FailureOf(path, "openat", 1, error), "");
    EXPECT_EQ(ReadFile(path), kNew);
    EXPECT_EQ(Entries(), 1);
  }
}

TEST_F(SystemCallFailure, AFullDiskUnderATemporaryNameLeavesNothing) {
  const std::string path = Old();
  std::string failure;
  {
    const FailingCall unnamed("openat", 1, EOPNOTSUPP);
    std::optional<FileReplacement> file(std::in_place, path);
    const FailingCall full("write", 1, ENOSPC);
    try {
      file->Write({reinterpret_cast<const std::uint8_t*>(kNew.data()), kNew.size()});
    } catch (const Error& error) {
      failure = error.what();
    }
    EXPECT_EQ(Entries(), 2);
  }
  EXPECT_EQ(failure, "\"" + path + "\" kan niet worden geschreven: de schijf is vol");
  EXPECT_EQ(Entries(), 1);
}

// The system refuses links that others have laid in shared folders; reading them ourselves would go
// around that.
TEST_F(SystemCallFailure, LinksAreFollowedByTheSystemAlone) {
  const std::string path = Old();
  const std::string link = folder.FileNamed("link");
  std::filesystem::create_symlink("oud", link);
  EXPECT_EQ(FailureOf(link, "readlink", 0, EACCES), "");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(ReadFile(path), kNew);
}

}  // namespace
}  // namespace pagivo::testing
