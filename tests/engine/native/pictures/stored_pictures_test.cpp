// Pictures that stay as their files hold them: what PDF takes, decoded when somebody looks.
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/png_codec.h"
#include "pagivo/error.h"
#include "support/pictures/picture_files.h"
#include "support/pictures/png_files.h"

namespace pagivo::native {
namespace {

bool IsRefused(const Bytes& bytes) {
  try {
    DecodePicture(bytes);
    return false;
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    return true;
  }
}

// --- JPEG

TEST(StoredJpeg, IsTheFileThatPdfReadersTake) {
  for (const char* name : {"colors.jpg", "progressive.jpg", "gray.jpg"}) {
    const auto picture = LoadPictureFile(PicturePath(name));
    ASSERT_NE(picture->Stored(), nullptr) << name;
    EXPECT_EQ(picture->Stored()->coding, StoredPicture::Coding::Jpeg);
    EXPECT_TRUE(std::ranges::equal(picture->Stored()->Data(), PictureFile(name))) << name;
    EXPECT_EQ(picture->Stored()->width, 16);
    EXPECT_EQ(picture->Stored()->height, 8);
  }
  EXPECT_EQ(LoadPictureFile(PicturePath("gray.jpg"))->Stored()->samplesPerPixel, 1);
  EXPECT_EQ(LoadPictureFile(PicturePath("colors.jpg"))->Stored()->samplesPerPixel, 3);
}

TEST(StoredJpeg, IsNoneOfCmyk) {
  EXPECT_EQ(LoadPictureFile(PicturePath("cmyk.jpg"))->Stored(), nullptr);
}

// The marker's last occurrence, or the file's end.
std::size_t LastMarker(const Bytes& file, std::uint8_t marker) {
  const std::uint8_t wanted[] = {0xFF, marker};
  return static_cast<std::size_t>(
      std::find_end(file.begin(), file.end(), std::begin(wanted), std::end(wanted)) - file.begin());
}

TEST(StoredJpeg, IsRefusedAtLoadingWhereTheDecoderWouldGiveUp) {
  Bytes file = PictureFile("progressive.jpg");
  const std::size_t tables = LastMarker(file, 0xC4);
  ASSERT_LT(tables, file.size());
  file.at(tables + 5) = 0xFF;  // so many codes of one bit
  EXPECT_TRUE(IsRefused(file)) << "a table of a later scan";

  file = PictureFile("colors.jpg");
  file.at(LastMarker(file, 0xDA) + 6) = 0x33;
  EXPECT_TRUE(IsRefused(file)) << "a table that is not there";

  file = PictureFile("colors.jpg");
  file.at(3) = 0xF0;
  EXPECT_TRUE(IsRefused(file)) << "a marker that the decoder does not know";

  // Such a marker in what seems to be the segment of a marker that has none.
  for (const std::uint8_t alone : Bytes{0x00, 0x01, 0xD0, 0xD7, 0xD8}) {
    file = PictureFile("colors.jpg");
    const Bytes hidden{0xFF, alone, 0x00, 0x06, 0xFF, 0xF0, 0x00, 0x02};
    file.insert(file.begin() + 2, hidden.begin(), hidden.end());
    EXPECT_TRUE(IsRefused(file)) << "marker " << +alone;
  }
}

// --- PNG

TEST(StoredPng, IsTheDataOfOpaqueRows) {
  struct Kind {
    std::uint32_t format;
    int samples;
  };
  for (const auto& [format, samples] : {Kind{PNG_FORMAT_RGB, 3}, Kind{PNG_FORMAT_GRAY, 1}}) {
    const Bytes file = PackedPng(format);
    const auto picture = DecodePicture(file);
    ASSERT_NE(picture->Stored(), nullptr);
    EXPECT_EQ(picture->Stored()->coding, StoredPicture::Coding::Png);
    EXPECT_EQ(picture->Stored()->samplesPerPixel, samples);
    EXPECT_EQ(picture->Stored()->width, 50);
    EXPECT_EQ(picture->Stored()->height, 40);
    EXPECT_EQ(picture->GetPixels()->data, DecodePng(file).data);
    EXPECT_EQ(picture->Stored()->Data()[0] & 0x0F, 8) << "what deflate begins with";
  }
}

TEST(StoredPng, KeepsNothingThatThePictureDoesNotNeed) {
  const Bytes plain = PackedPng(PNG_FORMAT_RGB);
  Bytes file = plain;
  const Bytes text = PngOf({{"tEXt", Bytes(5000, 'a')}});
  file.insert(file.begin() + 33, text.begin() + 8, text.end());  // behind the header
  const auto picture = DecodePicture(file);
  ASSERT_NE(picture->Stored(), nullptr);
  EXPECT_EQ(picture->Stored()->file.size(), DecodePicture(plain)->Stored()->file.size());
  EXPECT_EQ(picture->GetPixels()->data, DecodePng(plain).data);
}

TEST(StoredPng, IsNoneOfOtherRows) {
  EXPECT_EQ(DecodePicture(PackedPng(PNG_FORMAT_RGBA))->Stored(), nullptr);
  for (const char* name : {"alpha.png", "interlaced.png", "sixteen_bit.png", "opaque_alpha.png"}) {
    EXPECT_EQ(LoadPictureFile(PicturePath(name))->Stored(), nullptr) << name;
  }
}

const Bytes kRows{0, 10, 20, 30, 0, 40, 50, 60};

TEST(StoredPng, IsNoneOfDataLargerThanTheirRows) {
  const auto picture = DecodePicture(PngOfRows({{"IHDR", HeaderOf(3, 2, 8, 0)}}, kRows));
  EXPECT_EQ(picture->Stored(), nullptr);
  EXPECT_EQ(picture->GetPixels()->data,
            (Bytes{10, 10, 10, 20, 20, 20, 30, 30, 30, 40, 40, 40, 50, 50, 50, 60, 60, 60}));
}

TEST(StoredPng, OfATableHasTheColorOfEveryIndex) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = 50;
  image.height = 40;
  image.format = PNG_FORMAT_RGB_COLORMAP;
  image.colormap_entries = 20;
  Bytes colors(60);
  for (std::size_t i = 0; i < colors.size(); ++i) colors[i] = static_cast<std::uint8_t>(i * 4);
  Bytes indexes(2000);
  for (std::size_t i = 0; i < indexes.size(); ++i) indexes[i] = i % 7 == 0 ? 19 : i % 2;
  Bytes file(PNG_IMAGE_PNG_SIZE_MAX(image));
  png_alloc_size_t size = file.size();
  ASSERT_NE(
      png_image_write_to_memory(&image, file.data(), &size, 0, indexes.data(), 0, colors.data()),
      0);
  file.resize(size);
  const auto picture = DecodePicture(file);
  ASSERT_NE(picture->Stored(), nullptr);
  EXPECT_EQ(picture->Stored()->colors, colors);
  EXPECT_EQ(picture->Stored()->samplesPerPixel, 1);
  const Bytes pixels = picture->GetPixels()->data;
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    ASSERT_EQ(pixels.at(3 * i), colors.at(std::size_t{3} * indexes[i])) << i;
  }
}

TEST(StoredPng, WhoseDataAreDamagedIsRefused) {
  const Bytes whole = PackedPng(PNG_FORMAT_RGB);
  for (std::size_t at = 60; at + 20 < whole.size(); at += 97) {
    Bytes file = whole;
    file.at(at) ^= 1;
    EXPECT_TRUE(IsRefused(file)) << at;
  }
}

// --- Pixels that nobody holds

// Photographs of six million pixels each.
Bytes LargePng() {
  return PackedPng(PNG_FORMAT_GRAY, 3000, 2000);
}

TEST(DecodedPictures, StayWhileTheyAreFew) {
  const auto picture = DecodePicture(LargePng());
  const std::weak_ptr<const PictureImage::Pixels> pixels = picture->GetPixels();
  EXPECT_FALSE(pixels.expired());
  EXPECT_EQ(picture->GetPixels(), pixels.lock());
}

TEST(DecodedPictures, AreLetGoWhenOthersAreAskedForAndComeBackTheSame) {
  const Bytes file = LargePng();
  std::vector<std::shared_ptr<PictureImage>> pictures;
  std::vector<std::weak_ptr<const PictureImage::Pixels>> pixels;
  for (int i = 0; i < 5; ++i) {
    pictures.push_back(DecodePicture(file));
    pixels.emplace_back(pictures.back()->GetPixels());
  }
  EXPECT_TRUE(pixels.front().expired());
  for (std::size_t i = 1; i < pixels.size(); ++i) EXPECT_FALSE(pixels[i].expired()) << i;
  EXPECT_EQ(pictures.front()->GetPixels()->data, pictures.back()->GetPixels()->data);
  EXPECT_TRUE(pixels[1].expired()) << "asked for longest ago";
}

TEST(DecodedPictures, StayWithWhoeverHoldsThem) {
  const Bytes file = LargePng();
  const auto first = DecodePicture(file);
  const PictureImage::PixelsRef held = first->GetPixels();
  for (int i = 0; i < 5; ++i) DecodePicture(file)->GetPixels();
  EXPECT_EQ(held->width, 3000);
}

TEST(DecodedPictures, GoWithTheirPicture) {
  auto picture = DecodePicture(LargePng());
  const std::weak_ptr<const PictureImage::Pixels> pixels = picture->GetPixels();
  picture = nullptr;
  EXPECT_TRUE(pixels.expired());
}

}  // namespace
}  // namespace pagivo::native
