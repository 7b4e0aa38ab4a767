// The preview shows what the PDF shows: pages drawn by our bitmap player beside the same pages of
// our PDF file drawn by two independent readers, at 144 dots an inch.
//
// The measure: both pictures in grey, blurred over 3 x 3 pixels because the three rasterisers
// antialias differently; then the mean difference over the page, and the part of the pixels that
// differ by more than kStray of 255. A line of text displaced by one pixel, a figure that is
// missing, another dash or hatch all exceed the bounds (see the last tests). Text positions are
// measured apart, by the centre of each word's ink: within a quarter of a pixel.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "equality/every_operation.h"
#include "equality/grey_image.h"
#include "pagivo/page_image.h"
#include "pagivo/pg_print.h"

namespace pagivo::test {
namespace {

constexpr double kDotsPerInch = 144;
constexpr double kMeanBound = 1.0;     // of 255
constexpr double kStrayBound = 0.002;  // of all pixels
constexpr double kQuarterPixel = 0.25;

// The scratch folder lives as long as the process.
const std::string& Scratch() {
  static const struct Folder {
    Folder() {
      std::string name = std::filesystem::temp_directory_path() / "pagivo_equality_XXXXXX";
      path = mkdtemp(name.data());
    }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string path;
  } folder;
  return folder.path;
}

void Run(const std::string& command) {
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

enum class Reader { Poppler, MuPdf };

std::string NameOf(Reader reader) {
  return reader == Reader::Poppler ? "Poppler" : "MuPdf";
}

GreyImage DrawnBy(Reader reader, const std::string& pdf, int page) {
  const std::string png = Scratch() + "/" + NameOf(reader) + std::to_string(page);
  const std::string number = std::to_string(page);
  if (reader == Reader::Poppler) {
    Run("pdftoppm -r 144 -png -singlefile -f " + number + " " + pdf + " " + png);
  } else {
    Run("mutool draw -q -r 144 -o " + png + ".png " + pdf + " " + number);
  }
  return ReadPng(png + ".png");
}

// The document of every operation, once as PDF and once as our own pictures.
struct Material {
  Material() {
    PgPrint print;
    ComposeEveryOperation(print, Scratch());
    print.VSPDF(Pdf());
    for (std::int16_t page = 1; page <= 2; ++page) {
      const std::string png = Scratch() + "/preview" + std::to_string(page) + ".png";
      WritePagePng(page, kDotsPerInch, png);
      preview.push_back(ReadPng(png));
    }
    print.VsPPEinde();
  }
  static std::string Pdf() { return Scratch() + "/alles.pdf"; }

  std::vector<GreyImage> preview;
};

const Material& TheMaterial() {
  static const Material material;
  return material;
}

void ExpectAlike(const GreyImage& preview, const GreyImage& read) {
  const Difference difference = DifferenceOf(Blurred(preview, 1), Blurred(read, 1));
  EXPECT_LT(difference.mean, kMeanBound);
  EXPECT_LT(difference.strayPixels, kStrayBound);
}

class PreviewEqualsPdf : public testing::TestWithParam<Reader> {};

TEST_P(PreviewEqualsPdf, ForFiguresAndPictures) {
  ExpectAlike(TheMaterial().preview[0], DrawnBy(GetParam(), Material::Pdf(), 1));
}

TEST_P(PreviewEqualsPdf, ForText) {
  ExpectAlike(TheMaterial().preview[1], DrawnBy(GetParam(), Material::Pdf(), 2));
}

Window CellOf(int word) {
  const double pixelsPerMillimetre = kDotsPerInch / 25.4;
  const auto [x, y] = PlaceOfWord(word);
  return {static_cast<int>((x - 2) * pixelsPerMillimetre),
          static_cast<int>((y - 1) * pixelsPerMillimetre),
          static_cast<int>((x + kWordWidth - 4) * pixelsPerMillimetre),
          static_cast<int>((y + kWordHeight - 2) * pixelsPerMillimetre)};
}

TEST_P(PreviewEqualsPdf, InEveryWordsPositionWithinAQuarterPixel) {
  const GreyImage& preview = TheMaterial().preview[1];
  const GreyImage read = DrawnBy(GetParam(), Material::Pdf(), 2);
  for (int word = 0; word < kPlacedWords; ++word) {
    const InkCentre ours = InkCentreOf(preview, CellOf(word));
    const InkCentre theirs = InkCentreOf(read, CellOf(word));
    ASSERT_GT(ours.ink, 10) << "word " << word;
    EXPECT_NEAR(ours.x, theirs.x, kQuarterPixel) << "word " << word;
    EXPECT_NEAR(ours.y, theirs.y, kQuarterPixel) << "word " << word;
  }
}

// All pages of the example's report.
TEST_P(PreviewEqualsPdf, ForTheExamplesReport) {
  const std::string pdf = Scratch() + "/rapport.pdf";
  Run(std::string(PAGIVO_PLUMEO) + " --pdf " + pdf + " --png " + Scratch() +
      " --dpi 144 --paginas 99 > /dev/null");
  int page = 1;
  for (;; ++page) {
    char name[32];
    std::snprintf(name, sizeof name, "/pagina-%02d.png", page);
    if (!std::filesystem::exists(Scratch() + name)) break;
    SCOPED_TRACE("page " + std::to_string(page));
    ExpectAlike(ReadPng(Scratch() + name), DrawnBy(GetParam(), pdf, page));
  }
  EXPECT_GT(page, 12);
}

INSTANTIATE_TEST_SUITE_P(Readers, PreviewEqualsPdf, testing::Values(Reader::Poppler, Reader::MuPdf),
                         [](const auto& info) { return NameOf(info.param); });

// The measure notices what it must notice.
GreyImage Shifted(const GreyImage& image, int pixels) {
  GreyImage shifted = image;
  for (int y = 0; y < image.height; ++y) {
    for (int x = pixels; x < image.width; ++x) shifted.At(x, y) = image.At(x - pixels, y);
  }
  return shifted;
}

TEST(MeasureOfEquality, IsExceededByAPageOnePixelAside) {
  for (const GreyImage& page : TheMaterial().preview) {
    const Difference difference = DifferenceOf(Blurred(page, 1), Blurred(Shifted(page, 1), 1));
    EXPECT_GT(difference.mean, kMeanBound);
  }
}

TEST(MeasureOfEquality, IsExceededByAMissingPicture) {
  GreyImage without = TheMaterial().preview[0];
  for (int y = 1000; y < 1200; ++y) {
    for (int x = 90; x < 420; ++x) without.At(x, y) = 255;
  }
  const Difference difference =
      DifferenceOf(Blurred(TheMaterial().preview[0], 1), Blurred(without, 1));
  EXPECT_GT(difference.strayPixels, kStrayBound);
}

}  // namespace
}  // namespace pagivo::test
