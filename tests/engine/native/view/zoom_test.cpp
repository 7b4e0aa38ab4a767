#include "engine/native/view/zoom.h"

#include <gtest/gtest.h>

#include "engine/native/document/page_shapes.h"

namespace pagivo::native {
namespace {

TEST(Zoom, AHundredPercentIsATwipOfTheScreenForATwipOfThePage) {
  EXPECT_DOUBLE_EQ(PixelsPerTwip(100, {.scale = 1}), 1.0 / 15);
  EXPECT_DOUBLE_EQ(PixelsPerTwip(150, {.scale = 2}), 3.0 / 15);
  for (const double scale : {1.0, 1.25, 2.0}) {
    EXPECT_DOUBLE_EQ(PercentOf(PixelsPerTwip(67, {.scale = scale}), {.scale = scale}), 67);
  }
}

TEST(Zoom, TheGapIsEightPixelsOfA96thOfAnInch) {
  EXPECT_EQ(PageGap({.scale = 1}), 8);
  EXPECT_EQ(PageGap({.scale = 1.25}), 10);
  EXPECT_EQ(PageGap({.scale = 1.5}), 12);
  EXPECT_EQ(PageGap({.scale = 2}), 16);
}

TEST(Zoom, PagesFitIntoTheAreaWithTheirGaps) {
  struct Row {
    std::int32_t mode;
    PageGeometry page;
    SurfaceArea area;
    double percent;
  };
  // At 100 percent the portrait page is 800 x 1200 pixels.
  for (const Row& row : {
           Row{kZoomWholePage, kPortrait, {816, 1216, 1}, 100},
           Row{kZoomWholePage, kPortrait, {2000, 616, 1}, 50},
           Row{kZoomWholePage, kPortrait, {416, 2000, 1}, 50},
           Row{kZoomWholePage, kLandscape, {616, 2000, 1}, 50},
           Row{kZoomWholePage, kPortrait, {1632, 2432, 2}, 100},
           Row{kZoomPageWidth, kPortrait, {816, 100, 1}, 100},
           Row{kZoomPageWidth, kLandscape, {616, 100, 1}, 50},
           Row{kZoomTwoPages, kPortrait, {824, 5000, 1}, 50},
           Row{kZoomTwoPages, kPortrait, {5000, 616, 1}, 50},
           Row{kZoomTwoPages, kPortrait, {1648, 5000, 2}, 50},
           Row{kZoomOverview, kPortrait, {840, 5000, 1}, 25},
           Row{kZoomOverview, kPortrait, {5000, 624, 1}, 25},
       }) {
    const ShownPages pages{row.page, row.page, row.page};
    EXPECT_NEAR(FittingZoom(row.mode, pages, row.area), row.percent, 1e-9)
        << "mode " << row.mode << " in " << row.area.width << " x " << row.area.height;
  }
}

TEST(Zoom, APageOfTheOverviewThatIsLargerThanTheFirstIsMadeSmaller) {
  const SurfaceArea area{840, 5000, 1};
  EXPECT_NEAR(OverviewZoom(kPortrait, area), 25, 1e-9);
  EXPECT_NEAR(OverviewZoomOf(kLandscape, kPortrait, area), 25.0 * 12 / 18, 1e-9);
  EXPECT_NEAR(OverviewZoomOf({6000, 6000}, kPortrait, area), 25, 1e-9)
      << "but no smaller one larger";
  EXPECT_NEAR(FittingZoom(kZoomOverview, {kLandscape, kPortrait, kPortrait}, area), 25.0 * 12 / 18,
              1e-9)
      << "the zoom is the shown page's own";
}

TEST(Zoom, StepsLeadFromLimitToLimitAndBack) {
  std::vector<double> up{kMinimumZoom};
  while (up.back() < kMaximumZoom && up.size() < 100) up.push_back(ZoomStepAbove(up.back()));
  EXPECT_EQ(up.size(), 18U);
  std::vector<double> down{kMaximumZoom};
  while (down.back() > kMinimumZoom && down.size() < 100) {
    down.push_back(ZoomStepBelow(down.back()));
  }
  EXPECT_EQ(std::vector<double>(down.rbegin(), down.rend()), up);
}

TEST(Zoom, AStepGoesToTheNextRoundPercentage) {
  struct Row {
    double percent, above, below;
  };
  for (const Row& row :
       {Row{100, 125, 75}, Row{60.93, 67, 50}, Row{5, 10, 5}, Row{7, 10, 5}, Row{1000, 1000, 800},
        Row{999, 1000, 800}, Row{100.000001, 125, 75}, Row{99.999999, 125, 75}}) {
    EXPECT_EQ(ZoomStepAbove(row.percent), row.above) << row.percent;
    EXPECT_EQ(ZoomStepBelow(row.percent), row.below) << row.percent;
  }
}

}  // namespace
}  // namespace pagivo::native
