// PNG files on what POSIX systems have besides files: rights, links, pipes and devices.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "engine/native/raster/png_file.h"
#include "pagivo/error.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

const Bitmap kOnePixel{1, 1, {0xFFFF0000}};

void ExpectRefused(const std::string& path) {
  try {
    WritePng(kOnePixel, path);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
    EXPECT_NE(std::string(error.what()).find("\"" + path + "\""), std::string::npos);
  }
}

TEST(PngFile, OnAFullDiskIsAnErrorAndLeavesTheDeviceAlone) {
  ExpectRefused("/dev/full");
  EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST(PngFile, LeavesAReadOnlyFile) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("vast.png");
  std::ofstream(path) << "oud";
  chmod(path.c_str(), 0444);
  ExpectRefused(path);
  EXPECT_EQ(ReadFile(path), "oud");
}

TEST(PngFile, IsNotWrittenIntoAPipeThatNobodyReads) {
  const ScratchFolder folder;
  const std::string pipe = folder.FileNamed("pijp.png");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  ExpectRefused(pipe);
}

TEST(PngFile, TakesThePlaceOfAnOldOneThroughALink) {
  const ScratchFolder folder;
  std::ofstream(folder.FileNamed("oud.png")) << "oud";
  std::filesystem::create_symlink("oud.png", folder.FileNamed("link.png"));
  WritePng(kOnePixel, folder.FileNamed("link.png"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.FileNamed("link.png")));
  EXPECT_TRUE(ReadFile(folder.FileNamed("oud.png")).starts_with("\x89PNG"));
}

}  // namespace
}  // namespace pagivo::native
