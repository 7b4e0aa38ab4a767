#include "engine/native/raster/png_file.h"

#include <gmock/gmock.h>

#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"
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

}  // namespace
}  // namespace pagivo::native
