#include "engine/native/raster/area_filler.h"

#include <array>
#include <cmath>
#include <random>

#include "engine/native/raster/drawn_page.h"
#include "engine/native/raster/stroker.h"

namespace pagivo::native {
namespace {

using Contour = std::vector<PixelPoint>;

constexpr std::int32_t kSide = 100;

Bitmap WhiteBitmap(std::int32_t width, std::int32_t height) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return {width, height, std::vector<std::uint32_t>(count, kWhitePixel)};
}

// What a tile of a page of 100 x 100 pixels shows of a shape.
Bitmap DrawnTile(AreaFiller& filler, FillRule rule, const PixelBox& tile) {
  Bitmap bitmap = WhiteBitmap(tile.right - tile.left, tile.bottom - tile.top);
  Canvas canvas(bitmap, {1, tile.left, tile.top}, {kSide, kSide});
  filler.Fill(canvas, rule, Ink(0));
  return bitmap;
}

Bitmap Drawn(AreaFiller& filler, FillRule rule) {
  return DrawnTile(filler, rule, {0, 0, kSide, kSide});
}

Bitmap Drawn(const Contour& contour, FillRule rule = FillRule::NonZero) {
  AreaFiller filler;
  filler.Add(contour);
  return Drawn(filler, rule);
}

Bitmap DrawnStroke(const Outline& outline, double width) {
  AreaFiller filler;
  AddStroke(filler, outline, width);
  return Drawn(filler, FillRule::NonZero);
}

Contour Box(double left, double top, double right, double bottom) {
  return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

// In pixels that are covered whole.
double InkOf(const Bitmap& bitmap) {
  double ink = 0;
  for (std::int32_t y = 0; y < bitmap.height; ++y) {
    for (std::int32_t x = 0; x < bitmap.width; ++x) ink += InkAt(bitmap, x, y) / 255.0;
  }
  return ink;
}

class RandomShape {
 public:
  explicit RandomShape(unsigned seed) : random_(seed) {}

  Contour Points(int count, double low, double high) {
    std::uniform_real_distribution<double> position(low, high);
    Contour contour;
    for (int i = 0; i < count; ++i) contour.push_back({position(random_), position(random_)});
    return contour;
  }

 private:
  std::mt19937 random_;
};

TEST(AreaFiller, CoversAPixelByTheAreaWithinIt) {
  EXPECT_NEAR(InkAt(Drawn(Box(10.25, 20.5, 11, 21)), 10, 20), 255 * 0.375, 1);
  EXPECT_NEAR(InkAt(Drawn({{10, 20}, {11, 20}, {10, 21}}), 10, 20), 255 * 0.5, 1);
  EXPECT_NEAR(InkAt(Drawn({{10, 20}, {14, 20}, {10, 21}}), 10, 20), 255 * 0.875, 1);
}

TEST(AreaFiller, CoversAsMuchAsAShapesArea) {
  RandomShape random(1);
  for (int i = 0; i < 200; ++i) {
    const Contour triangle = random.Points(3, 0, kSide);
    const auto& [a, b, c] = std::array{triangle[0], triangle[1], triangle[2]};
    const double area = std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
    EXPECT_NEAR(InkOf(Drawn(triangle)), area, 0.01 * area + 1);
  }
}

TEST(AreaFiller, CountsOverlapsOnceOrNotAtAll) {
  AreaFiller filler;
  for (const FillRule rule : {FillRule::NonZero, FillRule::EvenOdd}) {
    filler.Add(Box(10, 10, 60, 60));
    filler.Add(Box(20, 20, 40, 40));
    const Bitmap bitmap = Drawn(filler, rule);
    EXPECT_EQ(InkAt(bitmap, 15, 15), 255);
    EXPECT_EQ(InkAt(bitmap, 30, 30), rule == FillRule::NonZero ? 255 : 0);
  }
}

TEST(AreaFiller, ForgetsAShapeThatItDrew) {
  AreaFiller filler;
  filler.Add(Box(10, 10, 60, 60));
  Drawn(filler, FillRule::NonZero);
  EXPECT_TRUE(HasNoInk(Drawn(filler, FillRule::NonZero)));
}

TEST(AreaFiller, ForgetsAShapeThatIsNotToBeDrawn) {
  AreaFiller filler;
  filler.Add(Box(10, 10, 60, 60));
  filler.Clear();
  EXPECT_TRUE(HasNoInk(Drawn(filler, FillRule::NonZero)));
}

TEST(AreaFiller, LeavesNothingOfAShapeInTheNext) {
  RandomShape random(2);
  AreaFiller used;
  for (int i = 0; i < 50; ++i) {
    const Contour contour = random.Points(9, -50, kSide + 50);
    used.Add(contour);
    ASSERT_EQ(Drawn(used, FillRule::EvenOdd).pixels, Drawn(contour, FillRule::EvenOdd).pixels);
  }
}

TEST(AreaFiller, DrawsTilesLikeTheWholePage) {
  RandomShape random(3);
  for (int i = 0; i < 50; ++i) {
    const Contour contour = random.Points(12, -2.0 * kSide, 3.0 * kSide);
    const Bitmap whole = Drawn(contour, FillRule::EvenOdd);
    for (std::int32_t top = 0; top < kSide; top += 25) {
      for (std::int32_t left = 0; left < kSide; left += 20) {
        AreaFiller filler;
        filler.Add(contour);
        const Bitmap tile = DrawnTile(filler, FillRule::EvenOdd, {left, top, left + 20, top + 25});
        for (std::int32_t y = 0; y < 25; ++y) {
          for (std::int32_t x = 0; x < 20; ++x) {
            ASSERT_EQ(PixelAt(tile, x, y), PixelAt(whole, left + x, top + y));
          }
        }
      }
    }
  }
}

TEST(AreaFiller, DrawsShapesHigherThanABand) {
  Bitmap bitmap = WhiteBitmap(kMaximumBitmapSide, 9);
  Canvas canvas(bitmap, {1, 0, 0}, {kMaximumBitmapSide, 9});
  AreaFiller filler;
  filler.Add(Box(1, 1, kMaximumBitmapSide - 1, 8));
  filler.Fill(canvas, FillRule::NonZero, Ink(0));
  EXPECT_EQ(InkOf(bitmap), (kMaximumBitmapSide - 2) * 7.0);
}

TEST(AreaFiller, CoversThePageFromFarOutside) {
  EXPECT_EQ(InkOf(Drawn(Box(-1e9, -1e9, 1e9, 1e9))), kSide * kSide);
  EXPECT_TRUE(HasNoInk(Drawn(Box(1e6, -1e9, 1e9, 1e9))));
  EXPECT_TRUE(HasNoInk(Drawn(Box(-1e9, -1e9, -1e6, 1e9))));
  EXPECT_NEAR(InkOf(Drawn({{-1e6, -1e6}, {1e6, 1e6}, {-1e6, 1e6}})), kSide * kSide / 2.0, 1);
}

TEST(Stroke, HasHalfADiscMoreThanItsLineAtEachEnd) {
  for (const double width : {3.0, 12.0}) {
    const double line = std::hypot(50, 35) * width;
    const double ends = M_PI * width * width / 4;
    EXPECT_NEAR(InkOf(DrawnStroke({{{20, 30}, {70, 65}}, false}, width)), line + ends, 1.5);
  }
}

TEST(Stroke, OfAPointIsADisc) {
  for (const bool closed : {false, true}) {
    EXPECT_NEAR(InkOf(DrawnStroke({{{50, 50}, {50, 50}}, closed}, 20)), M_PI * 100, 3);
  }
}

TEST(Stroke, RoundsTheOuterSideOfEitherTurn) {
  for (const double side : {-1.0, 1.0}) {
    const Outline corner{{{20, 50}, {50, 50}, {50, 50 + 30 * side}}, false};
    const Bitmap bitmap = DrawnStroke(corner, 20);
    const double ends = M_PI * 100;
    EXPECT_NEAR(InkOf(bitmap), 2 * 30 * 20 - 100 + M_PI * 25 + ends, 3);
    EXPECT_EQ(InkAt(bitmap, 55, static_cast<int>(49.5 - 6 * side)), 255);
    EXPECT_EQ(InkAt(bitmap, 58, static_cast<int>(49.5 - 9 * side)), 0);
  }
}

TEST(Stroke, OfAClosedOutlineHasNoEnds) {
  const Outline outline{Box(20, 20, 80, 80), true};
  const double corners = 4 * (25 - M_PI * 25 / 4);
  EXPECT_NEAR(InkOf(DrawnStroke(outline, 10)), 70 * 70 - 50 * 50 - corners, 1.5);
}

TEST(Stroke, IsAsDarkWhereItCrossesItself) {
  const Outline bow{{{20, 20}, {80, 80}, {80, 20}, {20, 80}}, false};
  const Bitmap bitmap = DrawnStroke(bow, 6);
  EXPECT_EQ(InkAt(bitmap, 50, 50), 255);
  EXPECT_EQ(InkAt(bitmap, 49, 51), 255);
}

}  // namespace
}  // namespace pagivo::native
