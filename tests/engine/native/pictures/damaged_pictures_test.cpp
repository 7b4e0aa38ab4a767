// Files that are cut off, damaged, or announce more than they hold. Whatever stands in a file, the
// answer is a whole picture or the error InvalidPicture, soon and in little memory. PNG files whose
// checksums are right all the same are in damaged_png_test.cpp.
#include "support/pictures/damaged_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "support/pictures/picture_files.h"

namespace pagivo::native {
namespace {

class EveryPicture : public testing::TestWithParam<std::string> {};

TEST_P(EveryPicture, CutOffAnywhereIsRefusedOrStillWhole) {
  ExpectRefusedOrWholeWhereverCut(PictureFile(GetParam()));
}

TEST_P(EveryPicture, CutToAThirdIsRefused) {
  ExpectRefusedWhenCutToAThird(PictureFile(GetParam()));
}

TEST_P(EveryPicture, WithAByteChangedIsDecodedOrRefused) {
  ExpectDecodedOrRefusedWithAByteChanged(PictureFile(GetParam()));
}

TEST_P(EveryPicture, WithRandomBytesBehindItsSignatureIsDecodedOrRefused) {
  ExpectDecodedOrRefusedWithRandomBytesBehindItsSignature(PictureFile(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Damaged, EveryPicture, testing::ValuesIn(AllRasterPictureNames()),
                         [](const auto& instance) { return TestNameOf(instance.param); });

TEST(RandomBytes, AreNoPicture) {
  std::minstd_rand random(3);
  for (std::size_t size = 1; size < 2000; size += 37) {
    Bytes bytes(size);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
    EXPECT_EQ(DecodeOrRefuse(bytes), nullptr);
  }
}

TEST(Bomb, PngOfTooManyPixelsIsRefused) {
  ExpectRefusedInLittleMemory(PngOfSize(30000, 30000), "te groot");
  ExpectRefusedInLittleMemory(PngOfSize(16385, 16384), "te groot");
  ExpectRefusedInLittleMemory(PngOfSize(0xFFFFFFFF, 0xFFFFFFFF), "te groot");
}

TEST(Bomb, PngThatHoldsFewerRowsThanItAnnouncesIsRefused) {
  ExpectRefusedInLittleMemory(PngOfSize(16384, 8192), "onvolledig");
  ExpectRefusedInLittleMemory(PngOfSize(16, 9), "onvolledig");
}

TEST(Bomb, GifOfTooManyPixelsIsRefused) {
  ExpectRefusedInLittleMemory(GifOfSize(65535, 1), "te groot");
  ExpectRefusedInLittleMemory(GifOfSize(1, 65535), "te groot");
}

TEST(Bomb, BmpOfTooManyPixelsIsRefused) {
  ExpectRefusedInLittleMemory(BmpOfSize(30000, 30000), "te groot");
  ExpectRefusedInLittleMemory(BmpOfSize(30000, INT32_MIN), "te groot");
}

TEST(Bomb, BmpOfMoreColorsThanItHasBytesIsRefused) {
  Bytes bytes = PictureFile("colors.bmp");
  bytes.at(49) = 0xEF;  // the highest byte of the number of colours
  ExpectRefusedInLittleMemory(bytes, "onvolledig");
}

TEST(Bomb, BmpWhoseHeaderIsLongerThanItselfIsRefused) {
  Bytes bytes = PictureFile("colors.bmp");
  bytes.at(17) = 0xEF;  // the highest byte of the header's length
  ExpectRefusedInLittleMemory(bytes, "onvolledig");
}

TEST(Bomb, BmpThatHoldsFewerRowsThanItAnnouncesIsRefused) {
  ExpectRefusedInLittleMemory(BmpOfSize(10000, 10000), "onvolledig");
}

TEST(Bomb, BmpOfNegativeWidthIsRefused) {
  ExpectRefusedInLittleMemory(BmpOfSize(-16, 8), "beschadigd");
}

TEST(Bomb, JpegOfTooManyPixelsIsRefused) {
  ExpectRefusedInLittleMemory(JpegOfSize(65500, 65500), "te groot");
}

TEST(Bomb, JpegThatHoldsFewerBlocksThanItAnnouncesIsRefused) {
  ExpectRefusedInLittleMemory(JpegOfSize(65500, 2048), "onvolledig");
}

TEST(Bomb, JpegOfEndlessScansIsRefused) {
  Bytes bytes = PictureFile("progressive.jpg");
  const auto lastScan = static_cast<std::size_t>(
      std::find_end(bytes.begin(), bytes.end(), "\xFF\xDA", "\xFF\xDA" + 2,
                    [](std::uint8_t byte, char wanted) { return byte == std::uint8_t(wanted); }) -
      bytes.begin());
  const Bytes scan(bytes.begin() + std::ptrdiff_t(lastScan), bytes.end() - 2);
  const auto frame =
      static_cast<std::size_t>(std::find(bytes.begin() + 3, bytes.end(), 0xC2) - bytes.begin());
  bytes.at(frame + 4) = 0x0F;  // 4000 x 4000
  bytes.at(frame + 5) = 0xA0;
  bytes.at(frame + 6) = 0x0F;
  bytes.at(frame + 7) = 0xA0;
  for (int copy = 0; copy < 1000; ++copy) bytes.insert(bytes.end() - 2, scan.begin(), scan.end());
  ExpectRefusedInLittleMemory(bytes, "te groot");
}

TEST(Bomb, TiffOfTooManyPixelsIsRefused) {
  ExpectRefusedInLittleMemory(TiffOfSize(30000, 30000), "kan niet worden gebruikt");
}

TEST(Bomb, TiffThatHoldsFewerRowsThanItAnnouncesIsRefused) {
  EXPECT_EQ(DecodeOrRefuse(TiffOfSize(4000, 4000)), nullptr);
}

TEST(Bomb, IconOfTooManyPixelsIsRefused) {
  ExpectRefusedInLittleMemory(IconOfSize(30000, 30000), "kan niet worden gebruikt");
}

}  // namespace
}  // namespace pagivo::native
