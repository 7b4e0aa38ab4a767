// SVGs that are damaged, ask for more than they may, or are none.
#include <gtest/gtest.h>

#include <string>

#include "engine/native/pictures/picture_loader.h"
#include "support/pictures/damaged_pictures.h"
#include "support/pictures/picture_files.h"
#include "support/pictures/png_files.h"

// The XML parser under the SVG library loses the entities of a document that it gives up.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:xmlParseEntityValue\n";
}

namespace pagivo::native {
namespace {

class EverySvg : public testing::TestWithParam<std::string> {};

TEST_P(EverySvg, CutOffAnywhereIsRefusedOrStillWhole) {
  ExpectRefusedOrWholeWhereverCut(PictureFile(GetParam()));
}

TEST_P(EverySvg, CutToAThirdIsRefused) {
  ExpectRefusedWhenCutToAThird(PictureFile(GetParam()));
}

TEST_P(EverySvg, WithAByteChangedIsDecodedOrRefused) {
  ExpectDecodedOrRefusedWithAByteChanged(PictureFile(GetParam()));
}

TEST_P(EverySvg, WithRandomBytesBehindItsSignatureIsDecodedOrRefused) {
  ExpectDecodedOrRefusedWithRandomBytesBehindItsSignature(PictureFile(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Damaged, EverySvg, testing::Values("alpha.svg", "colors.svg"),
                         [](const auto& instance) { return TestNameOf(instance.param); });

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

TEST(Svg, ShowsTheRowsOfADamagedPngAndWhiteBelow) {
  const Bytes png = PngOfRows({{"IHDR", HeaderOf(100, 10, 8, 0)}}, Bytes(std::size_t{4} * 101));
  std::string address = "data:image/png,";
  for (const std::uint8_t byte : png) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    address += {'%', kHex[byte >> 4], kHex[byte & 15]};
  }
  const auto picture =
      DecodePicture(Svg("",
                        "<rect width='100' height='100' fill='red'/>"
                        "<image width='100' height='100' preserveAspectRatio='none' xlink:href='" +
                            address + "'/>"));
  const Bytes pixels = picture->GetPixels()->data;
  EXPECT_EQ(Bytes(pixels.begin(), pixels.begin() + 3), Bytes(3, 0));
  EXPECT_EQ(Bytes(pixels.end() - 3, pixels.end()), Bytes(3, 0xFF));
}

TEST(Svg, OfAnotherKindOfXmlIsRefused) {
  EXPECT_EQ(DecodeOrRefuse(TextBytes("<html><body>Geachte heer</body></html>")), nullptr);
}

TEST(Svg, WithoutSizeAndContentIsRefused) {
  EXPECT_EQ(DecodeOrRefuse(TextBytes("<svg xmlns='http://www.w3.org/2000/svg'/>")), nullptr);
}

}  // namespace
}  // namespace pagivo::native
