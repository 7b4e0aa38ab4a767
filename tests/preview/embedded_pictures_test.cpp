// The toolbar's images among the embedded pictures: complete, of the designed sizes, and legible on
// light and dark.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/picture_loader.h"
#include "preview/toolbar_design.h"

namespace pagivo::testing {
namespace {

using Color = std::array<double, 3>;  // red, green, blue, 0 to 255

constexpr Color kLightToolbar{0xF0, 0xF0, 0xF0};
constexpr Color kDarkToolbar{0x2B, 0x2B, 0x2B};
// What the accessibility guidelines for web contents ask of graphics.
constexpr double kLegibleContrast = 3;

double Luminance(const Color& color) {
  const auto linear = [](double level) {
    level /= 255;
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color[0]) + 0.7152 * linear(color[1]) + 0.0722 * linear(color[2]);
}

double Contrast(const Color& one, const Color& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

struct Image {
  const ImageList* list;
  std::string_view key;
  int size;
};

void PrintTo(const Image& image, std::ostream* stream) {
  *stream << image.list->name << ' ' << image.key << ' ' << image.size;
}

class ToolbarImage : public ::testing::TestWithParam<Image> {
 protected:
  // A pixel as it shows on this ground.
  Color PixelOn(const Color& ground, std::size_t index) const {
    const double alpha = pixels.data[index * 4 + 3] / 255.0;
    Color shown{};
    for (std::size_t i = 0; i < 3; ++i) {
      shown.at(i) = alpha * pixels.data[index * 4 + i] + (1 - alpha) * ground.at(i);
    }
    return shown;
  }

  const FileBytes file = GetParam().list->Png(GetParam().key, GetParam().size);
  const std::shared_ptr<const native::PictureImage> picture =
      std::dynamic_pointer_cast<const native::PictureImage>(native::DecodePicture(file));
  const native::PictureImage::Pixels pixels = *picture->GetPixels();
};

TEST_P(ToolbarImage, HasTheSizeThatIsAskedFor) {
  EXPECT_EQ(pixels.width, GetParam().size);
  EXPECT_EQ(pixels.height, GetParam().size);
}

TEST_P(ToolbarImage, IsTransparentAroundItsDrawing) {
  ASSERT_TRUE(pixels.hasAlpha);
  const auto size = static_cast<std::size_t>(GetParam().size);
  for (std::size_t i = 0; i < size; ++i) {
    EXPECT_EQ(pixels.data[i * 4 + 3], 0) << "top row, pixel " << i;
    EXPECT_EQ(pixels.data[i * size * 4 + 3], 0) << "left column, pixel " << i;
  }
}

TEST_P(ToolbarImage, StandsOutFromLightAndFromDarkToolbars) {
  const auto count = static_cast<std::size_t>(pixels.width * pixels.height);
  std::size_t legible = 0;
  for (std::size_t i = 0; i < count; ++i) {
    legible += Contrast(PixelOn(kLightToolbar, i), kLightToolbar) >= kLegibleContrast &&
               Contrast(PixelOn(kDarkToolbar, i), kDarkToolbar) >= kLegibleContrast;
  }
  EXPECT_GE(legible, count / 10);
}

std::vector<Image> AllImages() {
  std::vector<Image> images;
  for (const ImageList* list : {&kImageList1, &kImageList2}) {
    for (const std::string_view key : list->keys) {
      images.push_back({list, key, list->size});
      images.push_back({list, key, 2 * list->size});
    }
  }
  return images;
}

std::string NameOf(const ::testing::TestParamInfo<Image>& test) {
  const Image& image = test.param;
  return std::string(image.list->name) + std::string(image.key) + std::to_string(image.size);
}

INSTANTIATE_TEST_SUITE_P(All, ToolbarImage, ::testing::ValuesIn(AllImages()), NameOf);

TEST(ToolbarImages, HaveAFileOfEachSizeForEveryKey) {
  for (const ImageList* list : {&kImageList1, &kImageList2}) {
    EXPECT_EQ(list->files.size(), list->keys.size());
    EXPECT_EQ(list->doubleFiles.size(), list->keys.size());
  }
}

TEST(ToolbarImages, DifferFromEachOther) {
  for (const std::string_view key : kImageKeys) {
    const auto same = [key](std::string_view other) {
      return std::ranges::equal(kImageList2.Png(key, 16), kImageList2.Png(other, 16));
    };
    EXPECT_EQ(std::ranges::count_if(kImageKeys, same), 1) << key;
  }
}

TEST(ToolbarImages, AreTheDoubleOnesForAnythingLargerThanTheListsSize) {
  const FileBytes small = kImageList2.Png("Zoom", 16);
  const FileBytes large = kImageList2.Png("Zoom", 32);
  EXPECT_EQ(kImageList2.Png("Zoom", 12).data(), small.data());
  EXPECT_EQ(kImageList2.Png("Zoom", 17).data(), large.data());
  EXPECT_EQ(kImageList2.Png("Zoom", 48).data(), large.data());
}

TEST(ToolbarImages, AreFoundByTheirExactKeyOnly) {
  EXPECT_TRUE(kImageList2.Png("zoom", 16).empty());
  EXPECT_TRUE(kImageList2.Png("AfdrukkenSep", 32).empty());
}

}  // namespace
}  // namespace pagivo::testing
