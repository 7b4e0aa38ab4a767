// The preview shows what the PDF shows: pages drawn by our bitmap player beside the same pages of
// our PDF file drawn by two independent readers, at 144 dots an inch.
//
// The measure: both pictures in grey, blurred over 3 x 3 pixels because the three rasterisers
// antialias differently; then the mean difference over the page, and the part of the pixels that
// differ by more than kStray of 255. What the bounds notice is tested at the end. Poppler sets
// every line of text on whole pixels vertically, which the measure sees, so its bounds are wider.
//
// Where text stands is measured apart, by the centre of each word's ink: within a quarter of a
// pixel of 144 dpi. The readers draw that page twelve times as large, because both set glyphs on a
// grid of their own.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "equality/every_operation.h"
#include "equality/grey_image.h"
#include "pagivo/page_image.h"
#include "pagivo/pg_print.h"
#include "support/scratch_folder.h"

namespace pagivo::test {
namespace {

constexpr double kDotsPerInch = 144;
constexpr int kEnlargement = 12;
constexpr double kQuarterPixel = 0.25;

// The scratch folder lives as long as the process.
const std::string& Scratch() {
  static const ScratchFolder folder;
  return folder.Path();
}

void RunCommand(const std::string& command) {
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

enum class Reader { Poppler, MuPdf };

std::string NameOf(Reader reader) {
  return reader == Reader::Poppler ? "Poppler" : "MuPdf";
}

// What the difference may be: the most that was measured on the pages below, and half as much
// again.
Difference BoundsOf(Reader reader) {
  return reader == Reader::Poppler ? Difference{2.0, 0.005} : Difference{1.0, 0.0015};
}

GreyImage DrawnBy(Reader reader, const std::string& pdf, int page, double dotsPerInch) {
  const std::string png = Scratch() + "/" + NameOf(reader) + std::to_string(page);
  const std::string number = std::to_string(page);
  const std::string resolution = std::to_string(dotsPerInch);
  if (reader == Reader::Poppler) {
    RunCommand("pdftoppm -gray -png -singlefile -r " + resolution + " -f " + number + " " + pdf +
               " " + png);
  } else {
    RunCommand("mutool draw -q -c gray -r " + resolution + " -o " + png + ".png " + pdf + " " +
               number + " 2> /dev/null");
  }
  return ReadPng(png + ".png");
}

// The document of every operation, once as PDF and once as our own pictures.
struct Material {
  Material() {
    PgPrint print;
    ComposeEveryOperation(print, Scratch());
    print.VSPDF(pdf);
    for (std::int16_t page = 1; page <= 4; ++page) {
      const std::string png = Scratch() + "/preview" + std::to_string(page) + ".png";
      WritePagePng(page, kDotsPerInch, png);
      preview.push_back(ReadPng(png));
    }
    print.VsPPEinde();
  }

  std::string pdf = Scratch() + "/alles.pdf";
  std::vector<GreyImage> preview;
};

const Material& TheMaterial() {
  static const Material material;
  return material;
}

Difference BlurredDifference(const GreyImage& one, const GreyImage& other) {
  return DifferenceOf(Blurred(one, 1), Blurred(other, 1));
}

class PreviewEqualsPdf : public testing::TestWithParam<Reader> {
 protected:
  static void ExpectAlike(const GreyImage& preview, const std::string& pdf, int page) {
    const Difference difference =
        BlurredDifference(preview, DrawnBy(GetParam(), pdf, page, kDotsPerInch));
    EXPECT_LT(difference.mean, BoundsOf(GetParam()).mean);
    EXPECT_LT(difference.strayPixels, BoundsOf(GetParam()).strayPixels);
  }
};

TEST_P(PreviewEqualsPdf, ForFiguresAndPictures) {
  ExpectAlike(TheMaterial().preview[0], TheMaterial().pdf, 1);
}

TEST_P(PreviewEqualsPdf, ForText) {
  ExpectAlike(TheMaterial().preview[1], TheMaterial().pdf, 2);
}

TEST_P(PreviewEqualsPdf, ForPensOfAnyWidthAndFiguresFromAfar) {
  ExpectAlike(TheMaterial().preview[3], TheMaterial().pdf, 4);
}

// Where a word's ink is, in pixels of 144 dpi, in a picture so many times enlarged.
InkCentre InkCentreOfWord(const GreyImage& image, int word, int enlargement) {
  const double pixelsPerMillimetre = kDotsPerInch / 25.4 * enlargement;
  const auto [x, y] = PlaceOfWord(word);
  InkCentre centre =
      InkCentreOf(image, {static_cast<int>((x - 2) * pixelsPerMillimetre),
                          static_cast<int>((y - 1) * pixelsPerMillimetre),
                          static_cast<int>((x + kWordWidth - 4) * pixelsPerMillimetre),
                          static_cast<int>((y + kWordHeight - 2) * pixelsPerMillimetre)});
  centre.x /= enlargement;
  centre.y /= enlargement;
  return centre;
}

TEST_P(PreviewEqualsPdf, InEveryWordsPositionWithinAQuarterPixel) {
  const GreyImage read = DrawnBy(GetParam(), TheMaterial().pdf, 3, kDotsPerInch * kEnlargement);
  for (int word = 0; word < kPlacedWords; ++word) {
    const InkCentre ours = InkCentreOfWord(TheMaterial().preview[2], word, 1);
    const InkCentre theirs = InkCentreOfWord(read, word, kEnlargement);
    ASSERT_GT(ours.ink, 10) << "word " << word;
    EXPECT_NEAR(ours.x, theirs.x, kQuarterPixel) << "word " << word;
    EXPECT_NEAR(ours.y, theirs.y, kQuarterPixel) << "word " << word;
  }
}

// All pages of the example's report.
TEST_P(PreviewEqualsPdf, ForTheExamplesReport) {
  const std::string pdf = Scratch() + "/rapport.pdf";
  RunCommand(std::string(PAGIVO_PLUMEO) + " --pdf " + pdf + " --png " + Scratch() +
             " --dpi 144 --paginas 99 > /dev/null");
  int page = 1;
  for (;; ++page) {
    char name[32];
    std::snprintf(name, sizeof name, "/blad_%02d.png", page);
    if (!std::filesystem::exists(Scratch() + name)) break;
    SCOPED_TRACE("page " + std::to_string(page));
    ExpectAlike(ReadPng(Scratch() + name), pdf, page);
  }
  EXPECT_GT(page, 12);
}

INSTANTIATE_TEST_SUITE_P(Readers, PreviewEqualsPdf, testing::Values(Reader::Poppler, Reader::MuPdf),
                         [](const auto& reader) { return NameOf(reader.param); });

// What the narrower bounds notice.

GreyImage Shifted(const GreyImage& image, int pixels) {
  GreyImage shifted = image;
  for (int y = 0; y < image.height; ++y) {
    for (int x = pixels; x < image.width; ++x) shifted.At(x, y) = image.At(x - pixels, y);
  }
  return shifted;
}

GreyImage WithBlank(GreyImage image, const Window& window) {
  for (int y = window.top; y < window.bottom; ++y) {
    for (int x = window.left; x < window.right; ++x) image.At(x, y) = 255;
  }
  return image;
}

TEST(MeasureOfEquality, IsExceededByAPageOnePixelAside) {
  for (const GreyImage& page : TheMaterial().preview) {
    EXPECT_GT(BlurredDifference(page, Shifted(page, 1)).strayPixels,
              BoundsOf(Reader::MuPdf).strayPixels);
  }
}

TEST(MeasureOfEquality, IsExceededByAMissingPicture) {
  const GreyImage& page = TheMaterial().preview[0];
  EXPECT_GT(BlurredDifference(page, WithBlank(page, {90, 1000, 420, 1200})).strayPixels,
            BoundsOf(Reader::MuPdf).strayPixels);
}

TEST(MeasureOfEquality, IsExceededByAMissingLineOfText) {
  const GreyImage& page = TheMaterial().preview[1];
  EXPECT_GT(BlurredDifference(page, WithBlank(page, {80, 85, 1100, 125})).strayPixels,
            BoundsOf(Reader::MuPdf).strayPixels);
}

}  // namespace
}  // namespace pagivo::test
