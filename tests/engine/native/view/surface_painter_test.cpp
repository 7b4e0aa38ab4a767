#include "engine/native/view/surface_painter.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/native/view/drawn_surface.h"

namespace pagivo::native {
namespace {

constexpr SurfaceColors kColors{.ground = 0xFFC0C0C0, .edge = 0xFF112233, .highlight = 0xFF3366FF};

// A page of 20 x 20 pixels in the middle of 60 x 60.
constexpr PlacedPage kPlacedPage{.page = 1, .box = {20, 20, 40, 40}, .pixelsPerTwip = 1};

class SurfacePainterTest : public testing::Test {
 protected:
  void Paint(const PlacedPage& placed, double scale = 1) {
    PaintGround(surface.Bitmap(), kColors);
    PaintAround(placed, scale, surface.Bitmap(), kColors);
  }

  DrawnSurface surface{60, 60};
};

TEST_F(SurfacePainterTest, TheGroundCoversEveryPixel) {
  PaintGround(surface.Bitmap(), kColors);
  EXPECT_EQ(std::ranges::count(surface.Pixels(), kColors.ground), 60 * 60);
}

TEST_F(SurfacePainterTest, TheGroundSparesWhatWillBeDrawnOn) {
  for (const SurfaceBox& covered : {SurfaceBox{20, 10, 40, 50}, SurfaceBox{-500, 30, 700, 900}}) {
    DrawnSurface spared(60, 60);
    PaintGround(spared.Bitmap(), kColors, covered);
    for (std::int32_t y = 0; y < 60; ++y) {
      for (std::int32_t x = 0; x < 60; ++x) {
        ASSERT_EQ(spared.At(x, y), covered.Contains({double(x), double(y)})
                                       ? DrawnSurface::kUntouched
                                       : kColors.ground);
      }
    }
  }
}

TEST_F(SurfacePainterTest, TheGroundIsEverywhereWhenThePageIsOutOfSight) {
  PaintGround(surface.Bitmap(), kColors, {20, 5000, 40, 6000});
  EXPECT_EQ(std::ranges::count(surface.Pixels(), kColors.ground), 60 * 60);
}

TEST_F(SurfacePainterTest, AThinEdgeRunsAroundThePaper) {
  Paint(kPlacedPage);
  for (std::int32_t i = 19; i <= 40; ++i) {
    for (const auto& [x, y] : {std::pair{i, 19}, {i, 40}, {19, i}, {40, i}}) {
      EXPECT_EQ(surface.At(x, y), kColors.edge) << x << ", " << y;
    }
  }
}

TEST_F(SurfacePainterTest, AChosenPageHasABroaderEdgeInTheHighlight) {
  PlacedPage chosen = kPlacedPage;
  chosen.isChosen = true;
  Paint(chosen);
  for (const std::int32_t x : {17, 18, 19, 40, 41, 42}) {
    EXPECT_EQ(surface.At(x, 30), kColors.highlight) << x;
    EXPECT_EQ(surface.At(30, x), kColors.highlight) << x;
  }
  EXPECT_NE(surface.At(16, 30), kColors.highlight);
  EXPECT_NE(surface.At(43, 30), kColors.highlight);
}

TEST_F(SurfacePainterTest, EdgesGrowWithTheScale) {
  Paint(kPlacedPage, 2);
  EXPECT_EQ(surface.At(18, 30), kColors.edge);
  EXPECT_NE(surface.At(17, 30), kColors.edge);
  PlacedPage chosen = kPlacedPage;
  chosen.isChosen = true;
  Paint(chosen, 2);
  EXPECT_EQ(surface.At(14, 30), kColors.highlight);
  EXPECT_NE(surface.At(13, 30), kColors.highlight);
}

TEST_F(SurfacePainterTest, TheShadowFadesIntoTheGround) {
  Paint(kPlacedPage);
  std::uint32_t before = surface.At(30, 41) & 0xFF;
  EXPECT_LT(before, kColors.ground & 0xFF);
  for (std::int32_t y = 42; y <= 46; ++y) {
    const std::uint32_t now = surface.At(30, y) & 0xFF;
    EXPECT_GE(now, before) << y;
    before = now;
  }
  EXPECT_EQ(surface.At(30, 46), kColors.ground) << "it stays within the gap between pages";
  EXPECT_EQ(surface.At(30, 14), kColors.ground);
}

TEST_F(SurfacePainterTest, WhatLiesOutsideTheSurfaceIsLeftOut) {
  for (const SurfaceBox& box : {SurfaceBox{-30, -30, -10, -10}, SurfaceBox{100, 20, 120, 40},
                                SurfaceBox{20, 100, 40, 120}, SurfaceBox{-90, -90, 150, 150}}) {
    Paint({.page = 1, .box = box, .pixelsPerTwip = 1});
    EXPECT_EQ(std::ranges::count(surface.Pixels(), kColors.ground), 60 * 60);
  }
}

TEST_F(SurfacePainterTest, WhatLiesPartlyOutsideIsClipped) {
  Paint({.page = 1, .box = {50, -10, 90, 20}, .pixelsPerTwip = 1});
  EXPECT_EQ(surface.At(49, 0), kColors.edge);
  EXPECT_EQ(surface.At(59, 20), kColors.edge);
  EXPECT_EQ(surface.At(0, 20), kColors.ground);
}

}  // namespace
}  // namespace pagivo::native
