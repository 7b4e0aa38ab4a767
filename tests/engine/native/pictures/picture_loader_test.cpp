#include "engine/native/pictures/picture_loader.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "pagivo/error.h"
#include "support/pictures/damaged_pictures.h"
#include "support/pictures/picture_files.h"

namespace pagivo::native {
namespace {

using testing::AllOf;
using testing::HasSubstr;

using Rgba = std::array<int, 4>;

Rgba PixelAt(const PictureImage::Pixels& pixels, int x, int y) {
  const std::size_t channels = pixels.hasAlpha ? 4 : 3;
  const auto at = static_cast<std::size_t>(y * pixels.width + x) * channels;
  const auto& data = pixels.data;
  return {data.at(at), data.at(at + 1), data.at(at + 2), pixels.hasAlpha ? data.at(at + 3) : 255};
}

// Upper left, upper right, lower left, lower right.
std::array<Rgba, 4> Corners(const PictureImage& picture) {
  const PictureImage::Pixels pixels = *picture.GetPixels();
  const int right = pixels.width - 1;
  const int bottom = pixels.height - 1;
  return {PixelAt(pixels, 0, 0), PixelAt(pixels, right, 0), PixelAt(pixels, 0, bottom),
          PixelAt(pixels, right, bottom)};
}

constexpr std::array<Rgba, 4> kQuarters{Rgba{255, 0, 0, 255}, Rgba{0, 255, 0, 255},
                                        Rgba{0, 0, 255, 255}, Rgba{255, 255, 255, 255}};

struct Variant {
  const char* name;
  int width;
  int height;
  int tolerance;  // of a lossy format
};

class OpaquePicture : public testing::TestWithParam<Variant> {};

TEST_P(OpaquePicture, GivesItsPixels) {
  const Variant& variant = GetParam();
  const auto picture = LoadPictureFile(PicturePath(variant.name));
  EXPECT_EQ(picture->GetPixels()->width, variant.width);
  EXPECT_EQ(picture->GetPixels()->height, variant.height);
  EXPECT_FALSE(picture->GetPixels()->hasAlpha);
  const auto corners = Corners(*picture);
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    for (std::size_t channel = 0; channel < 4; ++channel) {
      EXPECT_NEAR(corners[corner][channel], kQuarters[corner][channel], variant.tolerance);
    }
  }
}

TEST_P(OpaquePicture, IsTheSameFromItsBytes) {
  const auto picture = LoadPictureFile(PicturePath(GetParam().name));
  const auto decoded = DecodePicture(PictureFile(GetParam().name));
  EXPECT_EQ(decoded->GetPixels()->data, picture->GetPixels()->data);
  ASSERT_EQ(decoded->Stored() == nullptr, picture->Stored() == nullptr);
  if (picture->Stored() != nullptr) {
    EXPECT_EQ(decoded->Stored()->file, picture->Stored()->file);
  }
}

INSTANTIATE_TEST_SUITE_P(
    EveryFormat, OpaquePicture,
    testing::Values(Variant{"colors.png", 16, 8, 0}, Variant{"true_color.png", 16, 8, 0},
                    Variant{"interlaced.png", 16, 8, 0}, Variant{"sixteen_bit.png", 16, 8, 0},
                    Variant{"opaque_alpha.png", 16, 8, 0}, Variant{"colors.bmp", 16, 8, 0},
                    Variant{"run_length.bmp", 16, 8, 0}, Variant{"colors.gif", 16, 8, 0},
                    Variant{"animation.gif", 16, 8, 0}, Variant{"colors.ico", 16, 8, 0},
                    Variant{"several_sizes.ico", 16, 8, 0},
                    Variant{"stored_as_png.ico", 256, 256, 0}, Variant{"colors.jpg", 16, 8, 2},
                    Variant{"progressive.jpg", 16, 8, 2}, Variant{"cmyk.jpg", 16, 8, 2},
                    Variant{"colors.tif", 16, 8, 0}, Variant{"big_endian_lzw.tif", 16, 8, 0},
                    Variant{"two_pages.tif", 16, 8, 0}),
    [](const auto& instance) { return TestNameOf(instance.param.name); });

// A picture of 24 bits a pixel, whose blue tells the column and green the row.
Bytes ShadedBmp(std::uint32_t side) {
  Bytes bytes(54);
  std::copy_n(PictureFile("colors.bmp").begin(), 2, bytes.begin());
  const auto put = [&bytes](std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
      bytes.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
    }
  };
  put(10, 54);
  put(14, 40);
  put(18, side);
  put(22, 0 - side);  // rows top down
  put(26, 1 | 24 << 16);
  for (std::uint32_t y = 0; y < side; ++y) {
    for (std::uint32_t x = 0; x < side; ++x) {
      for (const std::uint32_t value : {x, y, 7U}) bytes.push_back(std::uint8_t(value));
    }
  }
  return bytes;
}

TEST(LargePicture, HasEachPixelInItsPlace) {
  constexpr int kSide = 640;
  const auto picture = DecodePicture(ShadedBmp(kSide));
  const auto pixels = picture->GetPixels();
  ASSERT_EQ(pixels->data.size(), std::size_t{3} * kSide * kSide);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      ASSERT_EQ(PixelAt(*pixels, x, y), (Rgba{7, y % 256, x % 256, 255})) << x << "," << y;
    }
  }
}

TEST(PictureAlpha, OfPngIsKeptStraight) {
  const auto picture = LoadPictureFile(PicturePath("alpha.png"));
  ASSERT_TRUE(picture->GetPixels()->hasAlpha);
  const auto corners = Corners(*picture);
  EXPECT_EQ(corners[0], (Rgba{255, 0, 0, 255}));
  EXPECT_EQ(corners[1][3], 0);
  EXPECT_EQ(corners[2], (Rgba{0, 0, 255, 127}));
}

TEST(PictureAlpha, OfTiffIsKeptStraight) {
  const auto picture = LoadPictureFile(PicturePath("alpha.tif"));
  ASSERT_TRUE(picture->GetPixels()->hasAlpha);
  EXPECT_EQ(Corners(*picture)[2], (Rgba{0, 0, 255, 127}));
}

TEST(PictureAlpha, OfAGifIsNothingWhereItsFrameDoesNotReach) {
  Bytes bytes = GifOfSize(2, 1);
  bytes.at(20) = 1;  // the frame's left side
  const auto picture = DecodePicture(bytes);
  ASSERT_EQ(picture->GetPixels()->width, 2);
  ASSERT_EQ(picture->GetPixels()->height, 2);
  const auto corners = Corners(*picture);
  EXPECT_EQ(corners[0][3], 0);
  EXPECT_EQ(corners[1], (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(corners[2][3], 0);
  EXPECT_EQ(corners[3][3], 0);
}

TEST(PicturePathOf, NothingGivesAnEmptyPicture) {
  const auto picture = LoadPictureFile("");
  ASSERT_NE(picture, nullptr);
  EXPECT_TRUE(picture->IsEmpty());
}

void ExpectError(const std::string& path, ErrorNumber number, const char* cause) {
  try {
    LoadPictureFile(path);
    FAIL() << path << " was loaded";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_THAT(error.what(), AllOf(HasSubstr("\"" + path + "\""), HasSubstr(cause)));
  }
}

TEST(PictureFileErrors, NameTheFileAndTheCause) {
  const ScratchFolder scratch;
  ExpectError(scratch.FileNamed("weg.png"), ErrorNumber::FileAccess, "bestaat niet");
  ExpectError(scratch.Path(), ErrorNumber::FileAccess, "het is een map");
  ExpectError(WriteInto(scratch, "leeg.png", {}), ErrorNumber::InvalidPicture, "is leeg");
  ExpectError(WriteInto(scratch, "brief.png", TextBytes("Geachte heer,")),
              ErrorNumber::InvalidPicture, "geen bekende soort afbeelding");
}

TEST(PictureFileErrors, IncludeAFileBelowAFile) {
  ExpectError(PicturePath("colors.png/a.png"), ErrorNumber::FileAccess, "bestaat niet");
}

TEST(PictureFileErrors, IncludeAFileLargerThanAnyPictureWithoutReadingIt) {
  const ScratchFolder scratch;
  const std::string path = WriteInto(scratch, "gat.png", PictureFile("colors.png"));
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(std::streamoff{1} << 36);  // a hole, no disk space
  file.put('\0');
  file.close();
  ExpectError(path, ErrorNumber::InvalidPicture, "te groot");
}

TEST(DecodedPictureErrors, NeedNoFileName) {
  try {
    DecodePicture({});
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    EXPECT_STREQ(error.what(), "De afbeelding kan niet worden gebruikt: het bestand is leeg");
  }
}

TEST(LoadedPictures, AreSharedWhileSomebodyHoldsThem) {
  const auto first = LoadPictureFile(PicturePath("colors.png"));
  EXPECT_EQ(LoadPictureFile(PicturePath("colors.png")), first);
  EXPECT_EQ(LoadPictureFile(PicturePath("../pictures/colors.png")), first);
}

TEST(LoadedPictures, AreLetGoWithTheirLastHolder) {
  std::weak_ptr<PictureImage> gone = LoadPictureFile(PicturePath("colors.png"));
  EXPECT_TRUE(gone.expired());
  EXPECT_FALSE(LoadPictureFile(PicturePath("colors.png"))->IsEmpty());
}

TEST(LoadedPictures, AreReadAgainWhenTheFileHasChanged) {
  const ScratchFolder scratch;
  const std::string path = WriteInto(scratch, "a.png", PictureFile("colors.png"));
  const auto first = LoadPictureFile(path);
  WriteInto(scratch, "a.png", PictureFile("alpha.png"));
  const auto second = LoadPictureFile(path);
  EXPECT_NE(second, first);
  EXPECT_TRUE(second->GetPixels()->hasAlpha);
  EXPECT_FALSE(first->GetPixels()->hasAlpha);
}

TEST(LoadedPictures, AreReadAgainWhenTheTimeOfChangeDiffers) {
  const ScratchFolder scratch;
  const std::string path = WriteInto(scratch, "a.png", PictureFile("colors.png"));
  const auto first = LoadPictureFile(path);
  std::filesystem::last_write_time(path, std::filesystem::file_time_type{});
  EXPECT_NE(LoadPictureFile(path), first);
}

TEST(LoadedPictures, DoNotHideThatTheFileIsGone) {
  const ScratchFolder scratch;
  const std::string path = WriteInto(scratch, "a.png", PictureFile("colors.png"));
  const auto held = LoadPictureFile(path);
  std::filesystem::remove(path);
  ExpectError(path, ErrorNumber::FileAccess, "bestaat niet");
}

}  // namespace
}  // namespace pagivo::native
