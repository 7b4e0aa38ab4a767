#include <vector>

#include "engine/native/raster/drawn_page.h"
#include "engine/native/raster/picture_painter.h"

namespace pagivo::native {
namespace {

constexpr std::uint32_t kGreenPixel = 0xFF00FF00;
constexpr std::uint32_t kBluePixel = 0xFF0000FF;

// Red and green above, blue and white below; every quarter `side` pixels square.
PictureImageRef Quarters(int side) {
  PictureImage::Pixels pixels{2 * side, 2 * side, false, {}};
  for (int y = 0; y < 2 * side; ++y) {
    for (int x = 0; x < 2 * side; ++x) {
      const bool right = x >= side;
      const bool below = y >= side;
      const auto channel = [](bool on) { return static_cast<std::uint8_t>(on ? 255 : 0); };
      pixels.data.push_back(channel(right == below));
      pixels.data.push_back(channel(right));
      pixels.data.push_back(channel(below));
    }
  }
  return std::make_shared<PictureImage>(std::move(pixels));
}

PictureImageRef OnePixel(std::vector<std::uint8_t> channels) {
  const bool hasAlpha = channels.size() == 4;
  return std::make_shared<PictureImage>(PictureImage::Pixels{1, 1, hasAlpha, std::move(channels)});
}

using DrawnPicture = DrawnPage;

struct Corners {
  std::uint32_t upperLeft, upperRight, lowerLeft;
  friend bool operator==(const Corners&, const Corners&) = default;
};

Corners CornersOf(const Bitmap& bitmap) {
  return {PixelAt(bitmap, 70, 70), PixelAt(bitmap, 130, 70), PixelAt(bitmap, 70, 130)};
}

TEST_F(DrawnPicture, FillsItsRectangleExactly) {
  for (const int side : {4, 25, 100, 300}) {  // larger on the page, as large, smaller
    Page().DrawPicture(Pixels(50, 50, 150, 150), Quarters(side));
    const Bitmap bitmap = Draw();
    EXPECT_EQ(CornersOf(bitmap), (Corners{kRedPixel, kGreenPixel, kBluePixel})) << side;
    EXPECT_EQ(PixelAt(bitmap, 50, 50), kRedPixel) << side;
    EXPECT_EQ(PixelAt(bitmap, 49, 50), kWhitePixel) << side;
    EXPECT_EQ(PixelAt(bitmap, 149, 50), kGreenPixel) << side;
    EXPECT_EQ(PixelAt(bitmap, 150, 50), kWhitePixel) << side;
  }
}

TEST_F(DrawnPicture, IsMirroredWhenItsEdgesAreNotInOrder) {
  Page().DrawPicture(Pixels(150, 50, 50, 150), Quarters(100));
  EXPECT_EQ(CornersOf(Draw()), (Corners{kGreenPixel, kRedPixel, kWhitePixel}));
}

TEST_F(DrawnPicture, IsTurnedOverWhenItsEdgesAreNotInOrder) {
  Page().DrawPicture(Pixels(50, 150, 150, 50), Quarters(100));
  EXPECT_EQ(CornersOf(Draw()), (Corners{kBluePixel, kWhitePixel, kRedPixel}));
}

TEST_F(DrawnPicture, LetsTheGroundThroughByItsAlpha) {
  Page().DrawPicture(Pixels(50, 50, 150, 150), OnePixel({0, 0, 0, 64}));
  EXPECT_NEAR(InkAt(Draw(), 100, 100), 64, 1);
}

TEST_F(DrawnPicture, WhollyTransparentLeavesTheGround) {
  Page().DrawPicture(Pixels(50, 50, 150, 150), OnePixel({0, 0, 0, 0}));
  EXPECT_TRUE(HasNoInk(Draw()));
}

TEST_F(DrawnPicture, WithoutExtentDrawsNothing) {
  Page().DrawPicture(Pixels(50, 50, 50, 150), Quarters(2));
  Page().DrawPicture(Pixels(50, 50, 150, 50), Quarters(2));
  Page().DrawPicture(Pixels(50, 50, 150, 150), std::make_shared<PictureImage>());
  EXPECT_TRUE(HasNoInk(Draw()));
}

TEST_F(DrawnPicture, OfAVeryLongPictureIsDrawn) {
  PictureImage::Pixels pixels{40000, 1, false, std::vector<std::uint8_t>(120000, 0)};
  Page().DrawPicture(Pixels(0, 0, 200, 100), std::make_shared<PictureImage>(std::move(pixels)));
  EXPECT_EQ(PixelAt(Draw(), 100, 50), kBlackPixel);
}

TEST(ScaledPicture, OfItsOwnSizeIsUnchanged) {
  EXPECT_EQ(ScaledDown(*Quarters(1)->GetPixels(), 2, 2),
            (std::vector<std::uint32_t>{kRedPixel, kGreenPixel, kBluePixel, kWhitePixel}));
}

TEST(ScaledPicture, IsTheMeanOfWhatItCovers) {
  EXPECT_EQ(ScaledDown(*Quarters(50)->GetPixels(), 1, 1), (std::vector<std::uint32_t>{0xFF808080}));
  EXPECT_EQ(ScaledDown(*Quarters(50)->GetPixels(), 2, 2),
            (std::vector<std::uint32_t>{kRedPixel, kGreenPixel, kBluePixel, kWhitePixel}));
}

TEST(ScaledPicture, SharesPixelsThatLieOnABoundary) {
  const PictureImage::Pixels pixels{3, 1, false, {0, 0, 0, 255, 255, 255, 255, 255, 255}};
  EXPECT_EQ(ScaledDown(pixels, 2, 1), (std::vector<std::uint32_t>{0xFF555555, 0xFFFFFFFF}));
}

TEST(ScaledPicture, WeighsColoursByTheirAlpha) {
  const PictureImage::Pixels pixels{2, 1, true, {255, 0, 0, 255, 0, 255, 0, 0}};
  EXPECT_EQ(ScaledDown(pixels, 1, 1), (std::vector<std::uint32_t>{0x80800000}));
}

TEST(ScaledPicture, KeepsEvenGroundEvenAtEveryRatio) {
  const PictureImage::Pixels pixels{97, 53, false, std::vector<std::uint8_t>(97 * 53 * 3, 200)};
  for (int width = 1; width <= 97; width += 3) {
    for (const std::uint32_t pixel : ScaledDown(pixels, width, 1 + width / 2)) {
      ASSERT_EQ(pixel, 0xFFC8C8C8) << width;
    }
  }
}

TEST(PictureCache, MakesAPictureOncePerSize) {
  PictureCache cache;
  const auto picture = Quarters(50);
  cairo_surface_t* first = cache.Find(picture, 20, 20);
  EXPECT_EQ(cache.Find(picture, 20, 20), first);
  EXPECT_EQ(cairo_image_surface_get_width(first), 20);
  cache.Find(picture, 30, 30);
  EXPECT_EQ(cache.Bytes(), 4U * (20 * 20 + 30 * 30));
}

TEST(PictureCache, DoesNotEnlarge) {
  PictureCache cache;
  EXPECT_EQ(cairo_image_surface_get_width(cache.Find(Quarters(5), 1000, 1000)), 10);
}

TEST(PictureCache, StaysWithinItsBound) {
  constexpr std::size_t kBound = 64 * 1024;
  PictureCache cache(kBound);
  const auto picture = Quarters(50);
  for (int side = 10; side <= 100; ++side) {
    cache.Find(picture, side, side);
    EXPECT_LE(cache.Bytes(), kBound);
  }
  cache.Find(Quarters(200), 400, 400);
  EXPECT_LE(cache.Bytes(), kBound);
}

TEST(PictureCache, KeepsWhatWasUsedLast) {
  PictureCache cache(3 * 4 * 50 * 50);
  const auto picture = Quarters(50);
  cairo_surface_t* kept = cache.Find(picture, 50, 50);
  for (int side = 40; side < 50; ++side) {
    cache.Find(picture, side, side);
    EXPECT_EQ(cache.Find(picture, 50, 50), kept);
  }
}

TEST(PictureCache, LetsGoOfPicturesThatNobodyHolds) {
  PictureCache cache;
  cache.Find(Quarters(500), 1000, 1000);
  cache.Find(Quarters(5), 10, 10);
  EXPECT_EQ(cache.Bytes(), 4U * 10 * 10);
}

constexpr PixelRectangle kPlace{0.25, 0.5, 19.75, 9.5};

TEST(PictureCache, DrawsAPictureOncePerPlace) {
  PictureCache cache;
  const auto picture = Quarters(50);
  cairo_surface_t* first = cache.FindDrawn(picture, kPlace, {20, 10});
  EXPECT_EQ(cairo_image_surface_get_width(first), 20);
  EXPECT_EQ(cairo_image_surface_get_height(first), 10);
  EXPECT_EQ(cache.FindDrawn(picture, kPlace, {20, 10}), first);
  EXPECT_NE(cache.FindDrawn(picture, {0.5, 0.5, 20, 9.5}, {20, 10}), first);
  EXPECT_NE(cache.FindDrawn(Quarters(50), kPlace, {20, 10}), first);
}

TEST(PictureCache, DrawsNoPictureThatWouldTakeMuchOfTheBound) {
  PictureCache cache(std::size_t{1} << 20);
  const auto picture = Quarters(5);
  EXPECT_NE(cache.FindDrawn(picture, {0, 0, 128, 128}, {128, 128}), nullptr);
  EXPECT_EQ(cache.FindDrawn(picture, {0, 0, 128, 129}, {128, 129}), nullptr);
  EXPECT_EQ(cache.FindDrawn(picture, {0, 0, 40000, 0.1}, {40000, 1}), nullptr);
}

TEST_F(DrawnPicture, LooksTheSameWhereverItIsDrawnFrom) {
  const auto picture = Quarters(7);
  Page().DrawPicture(Pixels(20.3F, 20.6F, 90.7F, 77.1F), picture);
  const Bitmap first = Draw();
  EXPECT_EQ(Draw().pixels, first.pixels);
  Page().DrawPicture(Pixels(120.3F, 20.6F, 190.7F, 77.1F), picture);
  const Bitmap second = Draw();
  for (std::int32_t y = 0; y < 100; ++y) {
    for (std::int32_t x = 0; x < 100; ++x) {
      ASSERT_NEAR(InkAt(second, x + 100, y), InkAt(first, x, y), 1) << x << ", " << y;
    }
  }
}

}  // namespace
}  // namespace pagivo::native
