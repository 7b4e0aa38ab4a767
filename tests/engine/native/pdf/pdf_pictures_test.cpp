// Pictures in a file.
#include <gmock/gmock.h>
#include <png.h>

#include <array>
#include <fstream>
#include <span>

#include "engine/native/document/recorder.h"
#include "engine/native/pdf/image_samples.h"
#include "engine/native/pdf/pdf_readers.h"
#include "engine/native/pictures/picture_loader.h"
#include "support/data/test_data.h"
#include "support/pictures/png_files.h"

namespace pagivo::native::testing {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

std::string DataFile(const std::string& name) {
  return TestDataPath("pictures/" + name);
}

PictureImageRef MakePicture(int width, int height, bool alpha,
                            const std::function<std::uint32_t(int x, int y)>& colorAt) {
  PictureImage::Pixels pixels{width, height, alpha, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const std::uint32_t color = colorAt(x, y);  // 0xAARRGGBB
      for (const int shift : {16, 8, 0}) {
        pixels.data.push_back(static_cast<std::uint8_t>(color >> shift));
      }
      if (alpha) pixels.data.push_back(static_cast<std::uint8_t>(color >> 24));
    }
  }
  return std::make_shared<PictureImage>(std::move(pixels));
}

std::uint32_t Gradient(int x, int y) {
  return 0xFF000000U | static_cast<std::uint32_t>(x * 4 << 16 | y * 4 << 8 | (x + y) * 2);
}

class PdfPictures : public ::testing::Test {
 protected:
  PdfPictures() { recorder_.BeginPage({20000, 20000}); }

  void Draw(const PictureImageRef& picture, const Rectangle& rectangle = {0, 0, 4000, 4000}) {
    recorder_.DrawPicture(rectangle, picture);
  }

  // The colours of pixels of the first page at 72 dots an inch, as both readers draw it.
  void ExpectPixels(const std::vector<std::tuple<int, int, std::string>>& expected) {
    const PdfOnDisk pdf(document_);
    const std::string stem = pdf.Folder().FileNamed("page");
    OutputOf("pdftoppm -r 72 -f 1 -l 1 -singlefile '" + pdf.Path() + "' '" + stem + "'");
    OutputOf("mutool draw -q -r 72 -o '" + stem + ".mupdf.ppm' '" + pdf.Path() + "' 1");
    for (const char* ending : {".ppm", ".mupdf.ppm"}) {
      for (const auto& [x, y, color] : expected) {
        EXPECT_TRUE(AreAlike(PixelOf(stem + ending, x, y), color))
            << ending << " " << x << "," << y << " " << PixelOf(stem + ending, x, y);
      }
    }
  }

  // Readers round differently.
  static bool AreAlike(const std::string& found, const std::string& expected) {
    for (std::size_t i = 0; i < 6; i += 2) {
      const auto level = [i](const std::string& color) {
        return std::stoi(color.substr(i, 2), nullptr, 16);
      };
      if (std::abs(level(found) - level(expected)) > 1) return false;
    }
    return true;
  }

  static std::string PixelOf(const std::string& path, int x, int y) {
    std::ifstream file(path, std::ios::binary);
    std::string kind;
    int width = 0;
    int height = 0;
    int most = 0;
    file >> kind >> width >> height >> most;
    file.seekg(1 + 3 * (y * width + x), std::ios::cur);
    char bytes[3] = {};
    file.read(bytes, 3);
    char text[7] = {};
    std::snprintf(text, sizeof text, "%02X%02X%02X", static_cast<unsigned char>(bytes[0]),
                  static_cast<unsigned char>(bytes[1]), static_cast<unsigned char>(bytes[2]));
    return text;
  }

  // The picture's stream as it stands in the file.
  static std::string Extracted(const PdfOnDisk& pdf, const std::string& ending) {
    OutputOf("pdfimages -all '" + pdf.Path() + "' '" + pdf.Folder().FileNamed("picture") + "'");
    return ReadFile(pdf.Folder().FileNamed("picture-000." + ending));
  }

  Document document_;
  Recorder recorder_{document_};
};

TEST_F(PdfPictures, APictureIsStoredOnceHoweverOftenDrawn) {
  const PictureImageRef picture = MakePicture(8, 8, false, Gradient);
  for (int page = 0; page < 20; ++page) {
    recorder_.BeginPage({20000, 20000});
    Draw(picture);
    Draw(picture, {5000, 5000, 9000, 9000});
  }
  EXPECT_EQ(CountOf("/Subtype /Image", PdfOnDisk(document_).Plain()), 1);
}

TEST_F(PdfPictures, JpegBytesAreKept) {
  for (const char* name : {"colors.jpg", "gray.jpg", "progressive.jpg"}) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({20000, 20000});
    recorder.DrawPicture({0, 0, 400, 400}, LoadPictureFile(DataFile(name)));
    EXPECT_EQ(Extracted(PdfOnDisk(document), "jpg"), ReadFile(DataFile(name))) << name;
  }
}

// The pixels of the file's only picture, as both readers unpack it.
void ExpectUnpackedPixels(const PdfOnDisk& pdf, const PictureImage& picture) {
  const std::vector<std::uint8_t> expected = picture.GetPixels()->data;
  const std::string folder = pdf.Folder().FileNamed("");
  OutputOf("pdfimages -png '" + pdf.Path() + "' '" + folder + "poppler'");
  OutputOf("cd '" + folder + "' && mutool extract -r '" + pdf.Path() + "'");
  const std::string mupdf = OutputOf("ls '" + folder + "' | grep '^image-'");
  for (const std::string& name :
       {std::string("poppler-000.png"), mupdf.substr(0, mupdf.find('\n'))}) {
    const auto unpacked = LoadPictureFile(folder + name);
    EXPECT_EQ(unpacked->GetPixels()->data, expected) << name;
  }
}

TEST_F(PdfPictures, PngDataAreKeptAndReadersUnpackThem) {
  constexpr std::array<std::uint32_t, 3> kFormats{PNG_FORMAT_RGB, PNG_FORMAT_GRAY,
                                                  PNG_FORMAT_RGB_COLORMAP};
  for (const std::uint32_t format : kFormats) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({20000, 20000});
    const auto picture = DecodePicture(PackedPng(format));
    ASSERT_NE(picture->Stored(), nullptr);
    recorder.DrawPicture({0, 0, 400, 400}, picture);
    const std::span<const std::uint8_t> data = picture->Stored()->Data();
    EXPECT_THAT(PdfBytes(document),
                HasSubstr(std::string(reinterpret_cast<const char*>(data.data()), data.size())));
    ExpectUnpackedPixels(PdfOnDisk(document), *picture);
  }
}

TEST_F(PdfPictures, ADamagedPngLeavesTheRestOfThePage) {
  const PngChunk header{"IHDR", HeaderOf(100, 10, 8, PNG_COLOR_TYPE_GRAY)};
  const Bytes tooFewRows = PngOfRows({header}, Bytes(std::size_t{4} * 101));
  const Bytes noRows = PngOf({header, {"IDAT", {0x78, 0x01, 0x07, 1, 2, 3, 4, 5}}, {"IEND", {}}});
  const PictureImageRef first = DecodePicture(tooFewRows);
  const PictureImageRef second = DecodePicture(noRows);
  Draw(first, {0, 0, 400, 400});
  Draw(second, {1000, 0, 1400, 400});
  Draw(MakePicture(2, 2, false, [](int, int) { return 0xFFFF0000U; }), {2000, 0, 2400, 400});
  for (const PictureImageRef& picture : {first, second}) {
    ASSERT_NE(picture->Stored(), nullptr);
    const std::span<const std::uint8_t> data = picture->Stored()->Data();
    EXPECT_THAT(PdfBytes(document_),
                HasSubstr(std::string(reinterpret_cast<const char*>(data.data()), data.size())));
  }
  ExpectPixels({{5, 2, "000000"}, {105, 10, "FF0000"}, {130, 10, "FFFFFF"}});
}

TEST_F(PdfPictures, ColoursGreysAndFewColoursAreToldApart) {
  Draw(MakePicture(64, 64, false, Gradient));
  Draw(MakePicture(64, 64, false,
                   [](int x, int) { return static_cast<std::uint32_t>(x * 0x010101); }));
  Draw(MakePicture(64, 64, false, [](int x, int) { return x < 9 ? 0xFF0000U : 0x00FF00U; }));
  const std::string images = PdfOnDisk(document_).Images();
  EXPECT_THAT(images, ContainsRegex("0 image +64 +64 +rgb +3 +8"));
  EXPECT_THAT(images, ContainsRegex("1 image +64 +64 +gray +1 +8"));
  EXPECT_THAT(images, ContainsRegex("2 image +64 +64 +index +1 +8"));
}

TEST_F(PdfPictures, PixelsComeBackAsTheyWere) {
  for (const auto& colorAt :
       {+[](int x, int y) { return Gradient(x, y); },
        +[](int x, int y) { return static_cast<std::uint32_t>(x * y % 7) * 0x102030U; },
        +[](int x, int y) { return static_cast<std::uint32_t>(x ^ y) * 0x010101U; }}) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({20000, 20000});
    const PictureImageRef picture = MakePicture(60, 50, false, colorAt);
    recorder.DrawPicture({0, 0, 400, 400}, picture);
    const PdfOnDisk pdf(document);
    OutputOf("pdfimages '" + pdf.Path() + "' '" + pdf.Folder().FileNamed("raw") + "'");
    const std::string inColor = pdf.Folder().FileNamed("raw-000.ppm");
    const bool isColor = std::filesystem::exists(inColor);
    const std::string found = ReadFile(isColor ? inColor : pdf.Folder().FileNamed("raw-000.pgm"));
    const auto& data = picture->GetPixels()->data;
    std::string expected(data.begin(), data.end());
    if (!isColor) {
      expected.clear();
      for (std::size_t i = 0; i < data.size(); i += 3) expected.push_back(char(data[i]));
    }
    ASSERT_GE(found.size(), expected.size());
    EXPECT_EQ(found.substr(found.size() - expected.size()), expected);
  }
}

TEST_F(PdfPictures, PredictionIsUsedWhereItPays) {
  Draw(MakePicture(64, 64, false, Gradient));
  EXPECT_THAT(PdfOnDisk(document_).Images(), HasSubstr("rgb"));
  const std::string bytes = PdfBytes(document_);
  EXPECT_THAT(bytes, HasSubstr("/Predictor 15/Colors 3/Columns 64"));
  EXPECT_LT(bytes.size(), 2500U) << "12,288 bytes of pixels";
}

TEST_F(PdfPictures, TransparencyIsKept) {
  Draw(MakePicture(2, 1, true, [](int x, int) { return x == 0 ? 0x00FF0000U : 0xCC000000U; }),
       {0, 0, 400, 400});
  EXPECT_THAT(PdfOnDisk(document_).Images(), HasSubstr("smask"));
  ExpectPixels({{5, 10, "FFFFFF"}, {15, 10, "333333"}, {30, 10, "FFFFFF"}});
}

TEST_F(PdfPictures, AnOpaquePictureNeedsNoMask) {
  Draw(MakePicture(2, 1, true, [](int, int) { return 0xFF123456U; }));
  EXPECT_THAT(PdfOnDisk(document_).Images(), Not(HasSubstr("smask")));
}

TEST_F(PdfPictures, ExchangedEdgesMirror) {
  const PictureImageRef picture = MakePicture(2, 2, false, [](int x, int y) {
    const std::uint32_t colors[] = {0xFF0000, 0x00FF00, 0x0000FF, 0x000000};
    return colors[y * 2 + x];
  });
  Draw(picture, {0, 0, 400, 400});
  Draw(picture, {1400, 0, 1000, 400});
  Draw(picture, {2000, 400, 2400, 0});
  Draw(picture, {3400, 400, 3000, 0});
  ExpectPixels({{5, 5, "FF0000"},
                {15, 5, "00FF00"},
                {5, 15, "0000FF"},
                {15, 15, "000000"},
                {55, 5, "00FF00"},
                {65, 5, "FF0000"},
                {55, 15, "000000"},
                {105, 5, "0000FF"},
                {115, 5, "000000"},
                {155, 5, "000000"},
                {165, 5, "0000FF"},
                {165, 15, "FF0000"}});
}

TEST_F(PdfPictures, EmptyPicturesAndEmptyRectanglesDrawNothing) {
  Draw(std::make_shared<PictureImage>());
  Draw(nullptr);
  Draw(MakePicture(2, 2, false, Gradient), {100, 100, 100, 400});
  EXPECT_EQ(CountOf("/Subtype /Image", PdfOnDisk(document_).Plain()), 0);
}

}  // namespace
}  // namespace pagivo::native::testing
