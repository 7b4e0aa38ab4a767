// The bounds of raster files: what would take too long or too much memory is refused before it is
// decoded, and what no output can show is not kept.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"
#include "support/pictures/picture_files.h"

namespace pagivo::native {
namespace {

testing::AssertionResult IsRefusedFor(const Bytes& bytes, const std::string& reason) {
  try {
    DecodePicture(bytes);
  } catch (const Error& error) {
    if (std::string(error.what()).ends_with(reason)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << error.what();
  }
  return testing::AssertionFailure() << "it was decoded";
}

constexpr const char* kTooLarge = "de afmetingen zijn te groot";
constexpr const char* kIncomplete = "de inhoud is beschadigd of onvolledig";

// A grey baseline JPEG whose every block is a two-bit code.
Bytes GreyJpeg(std::size_t width, std::size_t height) {
  Bytes bytes{0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0};
  bytes.insert(bytes.end(), 64, 1);
  const auto high = [](std::size_t side) { return static_cast<std::uint8_t>(side >> 8); };
  const auto low = [](std::size_t side) { return static_cast<std::uint8_t>(side); };
  for (const std::uint8_t byte :
       {std::uint8_t{0xFF}, std::uint8_t{0xC0}, std::uint8_t{0}, std::uint8_t{11}, std::uint8_t{8},
        high(height), low(height), high(width), low(width), std::uint8_t{1}, std::uint8_t{1},
        std::uint8_t{0x11}, std::uint8_t{0}}) {
    bytes.push_back(byte);
  }
  for (const std::uint8_t table : {std::uint8_t{0}, std::uint8_t{0x10}}) {
    const Bytes header{0xFF, 0xC4, 0, 20, table, 1};  // one code, of one bit, for the number 0
    bytes.insert(bytes.end(), header.begin(), header.end());
    bytes.insert(bytes.end(), 16, 0);
  }
  const Bytes scan{0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0};
  bytes.insert(bytes.end(), scan.begin(), scan.end());
  bytes.insert(bytes.end(), ((width + 7) / 8) * ((height + 7) / 8) / 4 + 1, 0);
  bytes.push_back(0xFF);
  bytes.push_back(0xD9);
  return bytes;
}

// A black BMP of one bit a pixel.
Bytes BlackBmp(std::uint32_t width, std::uint32_t height) {
  Bytes bytes(62 + (width + 31) / 32 * 4 * height);
  const auto put = [&bytes](std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
      bytes.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
    }
  };
  bytes[0] = 'B';
  bytes[1] = 'M';
  put(2, static_cast<std::uint32_t>(bytes.size()));
  put(10, 62);
  put(14, 40);
  put(18, width);
  put(22, height);
  put(26, 1 | 1 << 16);  // planes, bits
  put(58, 0xFFFFFF);
  return bytes;
}

TEST(PictureBounds, RefuseAGifOfMorePixelsThanItsBytesCanStandFor) {
  Bytes bytes = GifOfSize(8192, 1);
  bytes.resize(800);
  EXPECT_TRUE(IsRefusedFor(bytes, kIncomplete));
}

TEST(PictureBounds, RefuseAPngThatUnpacksToTooMuch) {
  Bytes bytes = PngOfSize(16384, 8192);
  bytes.at(24) = 16;  // bits a sample
  bytes.at(25) = 6;   // red, green, blue and alpha
  bytes.resize(4 << 20);
  EXPECT_TRUE(IsRefusedFor(bytes, kTooLarge));
}

TEST(PictureBounds, RefuseAPngThatItsBytesCannotUnpackTo) {
  EXPECT_TRUE(IsRefusedFor(PngOfSize(8000, 8000), kIncomplete));
}

TEST(PictureBounds, RefuseAJpegWhoseScansTakeTooMuchMemory) {
  Bytes bytes = PictureFile("progressive.jpg");
  const auto frame = std::find(bytes.begin() + 3, bytes.end(), 0xC2);
  std::fill_n(frame + 4, 4, std::uint8_t{0x3E});  // 15934 x 15934
  EXPECT_TRUE(IsRefusedFor(bytes, kTooLarge));
}

TEST(PictureBounds, RefuseATiffOfTooManySamples) {
  Bytes bytes = TiffOfSize(8000, 8000);
  bytes.at(10 + 12 * 6 + 8) = 100;  // a pixel
  EXPECT_TRUE(IsRefusedFor(bytes, kTooLarge));
}

TEST(PictureBounds, RefuseABmpThatTakesTooMuchMemory) {
  EXPECT_TRUE(IsRefusedFor(BlackBmp(16384, 4097), kTooLarge));
}

TEST(PictureBounds, RefuseALargeFileWithoutReadingIt) {
  const ScratchFolder scratch;
  const std::string path = WriteInto(scratch, "gat.png", PictureFile("colors.png"));
  std::filesystem::resize_file(path, kMaximumPictureFileBytes + 1);  // a hole, no disk space
  EXPECT_THROW(LoadPictureFile(path), Error);
}

TEST(PictureBounds, KeepNoMorePixelsThanOutputsShow) {
  const auto picture = DecodePicture(BlackBmp(5120, 4916));
  EXPECT_EQ(picture->GetPixels()->width, 2560);
  EXPECT_EQ(picture->GetPixels()->height, 2458);
  EXPECT_EQ(picture->GetPixels()->data.front(), 0);
}

TEST(PictureBounds, KeepTheFileOfAJpegThatIsDecodedSmaller) {
  const Bytes bytes = GreyJpeg(5120, 4920);
  const auto picture = DecodePicture(bytes);
  EXPECT_EQ(picture->GetPixels()->width, 2560);
  EXPECT_EQ(picture->GetPixels()->height, 2460);
  EXPECT_EQ(picture->GetPixels()->data.front(), 128);
  ASSERT_NE(picture->Stored(), nullptr);
  EXPECT_EQ(picture->Stored()->file, bytes);
  EXPECT_EQ(picture->Stored()->width, 5120);
  EXPECT_EQ(picture->Width(), 2560);
  EXPECT_EQ(picture->Height(), 2460);
}

TEST(PixelReduction, IsTheLeastThatFits) {
  EXPECT_EQ(ReductionFor(10, 10, 100), 1);
  EXPECT_EQ(ReductionFor(10, 10, 99), 2);
  EXPECT_EQ(ReductionFor(11, 11, 36), 2);
  EXPECT_EQ(ReductionFor(11, 11, 35), 3);
}

TEST(PixelReduction, TakesTheMeanOfWhatAPixelCovers) {
  const PictureImage::Pixels pixels{3, 1, false, {10, 20, 30, 30, 40, 50, 7, 8, 9}};
  const PictureImage::Pixels reduced = Reduced(pixels, 2);
  EXPECT_EQ(reduced.width, 2);
  EXPECT_EQ(reduced.height, 1);
  EXPECT_EQ(reduced.data, (Bytes{20, 30, 40, 7, 8, 9}));
}

TEST(PixelReduction, LetsTransparentPixelsHaveNoColor) {
  const PictureImage::Pixels pixels{2, 1, true, {200, 100, 0, 255, 9, 9, 9, 0}};
  EXPECT_EQ(Reduced(pixels, 1).data, (Bytes{200, 100, 0, 128}));
}

}  // namespace
}  // namespace pagivo::native
