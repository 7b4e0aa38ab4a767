#include "pagivo/page_image.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <new>

#include "pagivo/pg_print.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"
#include "values/errors.h"

namespace pagivo {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kRed = 0xFFFF0000;

// A red square of an inch, an inch from the left and two from the top of page 1; page 2 turned.
class PageImageTest : public testing::Test {
 protected:
  PageImageTest() {
    print.VsPPInit();
    print.VsPPSetScaleMode(5);
    print.VsPPLine(1.0, 2.0, 2.0, 3.0, true, true, std::int32_t{0x0000FF}, std::int32_t{0},
                   std::int32_t{5});
    print.VsPPSetOrientation(std::int16_t{2});
    print.VsPPNewPage();
    print.VsPPFinish("Plaatje");
  }
  ~PageImageTest() override { print.VsPPEinde(); }

  PgPrint print;
  ScratchFolder folder;
};

std::uint32_t PixelAt(const PageImage& image, int x, int y) {
  return image.pixels[static_cast<std::size_t>(y * image.width + x)];
}

void ExpectError(ErrorNumber number, const std::function<void()>& statement) {
  try {
    statement();
    ADD_FAILURE() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number) << error.what();
  }
}

TEST_F(PageImageTest, ShowsWhatThePageShows) {
  const PageImage image = DrawPageImage(1, 72);
  EXPECT_EQ(PixelAt(image, 108, 180), kRed);
  for (const auto& [x, y] : {std::pair{70, 180}, {146, 180}, {108, 142}, {108, 218}}) {
    EXPECT_EQ(PixelAt(image, x, y), kWhite) << x << ' ' << y;
  }
}

TEST_F(PageImageTest, IsAsLargeAsThePaperAtThatResolution) {
  for (const double dotsPerInch : {36.0, 96.0, 144.0}) {
    const PageImage image = DrawPageImage(1, dotsPerInch);
    EXPECT_NEAR(image.width, 11906 * dotsPerInch / 1440, 1);
    EXPECT_NEAR(image.height, 16838 * dotsPerInch / 1440, 1);
    EXPECT_EQ(image.pixels.size(), static_cast<std::size_t>(image.width * image.height));
  }
}

TEST_F(PageImageTest, EveryPageHasItsOwnPaper) {
  const PageImage image = DrawPageImage(2, 96);
  EXPECT_GT(image.width, image.height);
  EXPECT_THAT(image.pixels, testing::Each(kWhite));
}

TEST_F(PageImageTest, AnImageThatIsKeptServesForPageAfterPage) {
  PageImage kept = DrawPageImage(1, 96);
  const std::uint32_t* const memory = kept.pixels.data();
  DrawPageImage(2, 96, kept);
  EXPECT_EQ(kept.pixels, DrawPageImage(2, 96).pixels);
  EXPECT_GT(kept.width, kept.height);
  DrawPageImage(1, 72, kept);
  EXPECT_EQ(kept.pixels, DrawPageImage(1, 72).pixels);
  EXPECT_EQ(kept.pixels.data(), memory);
}

TEST_F(PageImageTest, AnImageThatIsKeptIsEmptyAfterAnError) {
  PageImage kept = DrawPageImage(1, 72);
  ExpectError(ErrorNumber::PageOutOfRange, [&] { DrawPageImage(3, 96, kept); });
  EXPECT_EQ(kept.width, 0);
  EXPECT_EQ(kept.height, 0);
  EXPECT_TRUE(kept.pixels.empty());
}

TEST_F(PageImageTest, PagesThatTheDocumentDoesNotHaveAreErrors) {
  for (const std::int32_t page : {-1, 0, 3, 100000}) {
    ExpectError(ErrorNumber::PageOutOfRange, [&] { DrawPageImage(page, 96); });
  }
}

TEST_F(PageImageTest, WithoutADocumentThereIsNoPage) {
  print.VsPPEinde();
  ExpectError(ErrorNumber::PageOutOfRange, [] { DrawPageImage(1, 96); });
}

TEST_F(PageImageTest, ResolutionsOutsideTheLimitsAreErrors) {
  for (const double dotsPerInch : {0.0, -96.0, 0.5, 5000.0, std::nan(""), 1e300}) {
    ExpectError(ErrorNumber::InvalidArgument, [&] { DrawPageImage(1, dotsPerInch); });
  }
}

TEST_F(PageImageTest, APictureOfTooManyPixelsIsAnError) {
  ExpectError(ErrorNumber::InvalidArgument, [] { DrawPageImage(1, kMaximumDotsPerInch); });
}

TEST_F(PageImageTest, IsWrittenAsPng) {
  const std::string path = folder.FileNamed("blad.png");
  WritePagePng(1, 72, path);
  EXPECT_TRUE(ReadFile(path).starts_with("\x89PNG\r\n\x1A\n"));
}

TEST_F(PageImageTest, AFileThatCannotBeWrittenIsAnError) {
  ExpectError(ErrorNumber::FileAccess,
              [&] { WritePagePng(1, 72, folder.FileNamed("geen map/blad.png")); });
  ExpectError(ErrorNumber::PageOutOfRange,
              [&] { WritePagePng(9, 72, folder.FileNamed("blad.png")); });
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(PageImageTest, OfADocumentThatLacksSomethingForWantOfMemoryIsAnError) {
  print.VsPPInit();
  IgnoringErrors([] { throw std::bad_alloc(); });
  ExpectError(ErrorNumber::OutOfMemory, [] { DrawPageImage(1, 72); });
  print.VsPPFinish("Plaatje");
  ExpectError(ErrorNumber::OutOfMemory, [&] { WritePagePng(1, 72, folder.FileNamed("blad.png")); });
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(PageImageTest, ShowsADocumentThatIsStillBeingComposed) {
  print.VsPPInit();
  print.VsPPSetScaleMode(5);
  print.VsPPLine(1.0, 1.0, 2.0, 2.0, true, true, std::int32_t{0x0000FF});
  EXPECT_EQ(PixelAt(DrawPageImage(1, 72), 108, 108), kRed);
}

}  // namespace
}  // namespace pagivo
