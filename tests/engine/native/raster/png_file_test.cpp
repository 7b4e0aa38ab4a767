#include "engine/native/raster/png_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

using testing::HasSubstr;

const Bitmap kTwoPixels{2, 1, {0xFFFF0000, 0xFF0000FF}};

void ExpectFileAccessError(const std::string& path) {
  try {
    WritePng(kTwoPixels, path);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
    EXPECT_THAT(error.what(), HasSubstr("\"" + path + "\""));
  }
}

TEST(PngFile, HoldsThePixels) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("two_pixels.png");
  WritePng(kTwoPixels, path);
  const auto picture = LoadPictureFile(path);
  EXPECT_EQ(picture->GetPixels()->width, 2);
  EXPECT_EQ(picture->GetPixels()->data, (std::vector<std::uint8_t>{255, 0, 0, 0, 0, 255}));
}

TEST(PngFile, ThatCannotBeWrittenIsAnError) {
  ExpectFileAccessError(testing::TempDir() + "geen/map/a.png");
  ExpectFileAccessError(testing::TempDir());
}

TEST(PngFile, OnAFullDiskIsAnErrorAndLeavesTheDeviceAlone) {
  ExpectFileAccessError("/dev/full");
  EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST(PngFile, LeavesAReadOnlyFile) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("vast.png");
  std::ofstream(path) << "oud";
  chmod(path.c_str(), 0444);
  ExpectFileAccessError(path);
  EXPECT_EQ(ReadFile(path), "oud");
}

TEST(PngFile, IsNotWrittenIntoAPipeThatNobodyReads) {
  const ScratchFolder folder;
  const std::string pipe = folder.FileNamed("pijp.png");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  ExpectFileAccessError(pipe);
}

TEST(PngFile, TakesThePlaceOfAnOldOneThroughALink) {
  const ScratchFolder folder;
  std::ofstream(folder.FileNamed("oud.png")) << "oud";
  std::filesystem::create_symlink("oud.png", folder.FileNamed("link.png"));
  WritePng(kTwoPixels, folder.FileNamed("link.png"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.FileNamed("link.png")));
  EXPECT_TRUE(ReadFile(folder.FileNamed("oud.png")).starts_with("\x89PNG"));
}

}  // namespace
}  // namespace pagivo::native
