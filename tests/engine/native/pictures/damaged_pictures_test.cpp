// Files that are cut off, damaged, or announce more than they hold. Whatever stands in a file, the
// answer is a whole picture or the error InvalidPicture, soon and in little memory.
#include <gmock/gmock.h>
#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "engine/native/pictures/picture_files.h"
#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"

// The XML parser under the SVG library loses the entities of a document that it gives up.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:xmlParseEntityValue\n";
}

namespace pagivo::native {
namespace {

using testing::HasSubstr;

// Null when the bytes are refused; any other failure leaves the test, and so does one of pixels
// that are decoded later.
std::shared_ptr<PictureImage> DecodeOrRefuse(const Bytes& bytes) {
  try {
    auto picture = DecodePicture(bytes);
    picture->GetPixels();
    return picture;
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    return nullptr;
  }
}

std::string RefusalOf(const Bytes& bytes) {
  try {
    DecodePicture(bytes);
    return "none";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    return error.what();
  }
}

class EveryPicture : public testing::TestWithParam<std::string> {};

TEST_P(EveryPicture, CutOffAnywhereIsRefusedOrStillWhole) {
  const Bytes bytes = PictureFile(GetParam());
  const auto whole = DecodePicture(bytes);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    const auto cut = DecodeOrRefuse({bytes.begin(), bytes.begin() + std::ptrdiff_t(length)});
    if (cut == nullptr) continue;
    EXPECT_EQ(cut->GetPixels()->data, whole->GetPixels()->data) << "at " << length;
  }
}

TEST_P(EveryPicture, CutToAThirdIsRefused) {
  const Bytes bytes = PictureFile(GetParam());
  EXPECT_EQ(DecodeOrRefuse({bytes.begin(), bytes.begin() + std::ptrdiff_t(bytes.size() / 3)}),
            nullptr);
}

TEST_P(EveryPicture, WithAByteChangedIsDecodedOrRefused) {
  const Bytes bytes = PictureFile(GetParam());
  std::minstd_rand random(1);
  for (int round = 0; round < 100; ++round) {
    Bytes damaged = bytes;
    damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
    DecodeOrRefuse(damaged);
  }
}

TEST_P(EveryPicture, WithRandomBytesBehindItsSignatureIsDecodedOrRefused) {
  Bytes bytes = PictureFile(GetParam());
  std::minstd_rand random(2);
  for (int round = 0; round < 20; ++round) {
    for (std::size_t at = 8; at < bytes.size(); ++at) {
      bytes[at] = static_cast<std::uint8_t>(random());
    }
    DecodeOrRefuse(bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(Damaged, EveryPicture, testing::ValuesIn(AllPictureNames()),
                         [](const auto& instance) {
                           std::string name = instance.param;
                           for (char& character : name) {
                             character = character == '.' ? '_' : character;
                           }
                           return name;
                         });

TEST(RandomBytes, AreNoPicture) {
  std::minstd_rand random(3);
  for (std::size_t size = 1; size < 2000; size += 37) {
    Bytes bytes(size);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
    EXPECT_EQ(DecodeOrRefuse(bytes), nullptr);
  }
}

// Bombs: small files that would take gigabytes.

long PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

void ExpectRefusedInLittleMemory(const Bytes& bytes, const char* reason) {
  const long before = PeakMegabytes();
  EXPECT_THAT(RefusalOf(bytes), HasSubstr(reason));
  EXPECT_LT(PeakMegabytes() - before, 64);
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

Bytes Svg(const std::string& prologue, const std::string& content) {
  return TextBytes(prologue +
                   "<svg xmlns='http://www.w3.org/2000/svg' "
                   "xmlns:xlink='http://www.w3.org/1999/xlink' width='100' height='100'>" +
                   content + "</svg>");
}

TEST(Bomb, SvgOfNestedEntitiesIsRefused) {
  std::string entities = "<!ENTITY a0 'lollollollol'>";
  for (int level = 1; level < 12; ++level) {
    entities += "<!ENTITY a" + std::to_string(level) + " '";
    for (int i = 0; i < 10; ++i) entities += "&a" + std::to_string(level - 1) + ";";
    entities += "'>";
  }
  ExpectRefusedInLittleMemory(Svg("<!DOCTYPE svg [" + entities + "]>", "<text>&a11;</text>"),
                              "beschadigd");
}

TEST(Bomb, SvgOfDeeplyNestedGroupsIsRefused) {
  std::string content;
  for (int i = 0; i < 100000; ++i) content += "<g>";
  for (int i = 0; i < 100000; ++i) content += "</g>";
  ExpectRefusedInLittleMemory(Svg("", content), "beschadigd");
}

TEST(Bomb, SvgThatHoldsAPictureOfTooManyPixelsIsRefused) {
  // A PNG of 30000 x 30000 pixels in base 64.
  ExpectRefusedInLittleMemory(
      Svg("",
          "<image width='9' height='9' xlink:href='data:image/png;base64,"
          "iVBORw0KGgoAAAANSUhEUgAAdTAAAHUwCAIAAADpRW/tAAAACElEQVR4nAMAAAAAAUgGid"
          "IAAAAASUVORK5CYII='/>"),
      "te groot");
}

TEST(Bomb, SvgFiltersTakeNoTime) {
  const auto picture = DecodePicture(
      Svg("",
          "<filter id='f'><feTurbulence numOctaves='1000000' baseFrequency='0.1'/></filter>"
          "<rect width='100' height='100' fill='red' filter='url(#f)'/>"));
  EXPECT_EQ(picture->GetPixels()->data.at(0), 255);
}

TEST(Svg, LoadsNothingOutsideItself) {
  const auto picture = DecodePicture(Svg("", "<image width='100' height='100' xlink:href='file://" +
                                                 PicturePath("colors.png") + "'/>"));
  EXPECT_EQ(picture->GetPixels()->data, Bytes(picture->GetPixels()->data.size(), 0));
}

TEST(Svg, OfAnotherKindOfXmlIsRefused) {
  EXPECT_EQ(DecodeOrRefuse(TextBytes("<html><body>Geachte heer</body></html>")), nullptr);
}

TEST(Svg, WithoutSizeAndContentIsRefused) {
  EXPECT_EQ(DecodeOrRefuse(TextBytes("<svg xmlns='http://www.w3.org/2000/svg'/>")), nullptr);
}

}  // namespace
}  // namespace pagivo::native
