#include "engine/native/view/preview_state.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/native/document/page_shapes.h"
#include "pagivo/error.h"

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

// --- What is in force -------------------------------------------------------------------------

constexpr PageGeometry kPage{10000, 20000};
constexpr ShownPages kPages{kPage, kPage, kPage};

// A screen so dense that a twip is a pixel at 100 percent.
constexpr double kDense = kTwipsPerPixel;
constexpr std::int32_t kGap = 8 * 15;

class PreviewStateTest : public testing::Test {
 protected:
  PreviewStateTest() { PutArea(10000 + 2 * kGap, 10000 + 2 * kGap); }

  void PutArea(std::int32_t width, std::int32_t height) {
    preview.PutArea({width, height, kDense});
  }

  PreviewState preview;
};

TEST_F(PreviewStateTest, BeginsWithTheWholeOfPageOne) {
  EXPECT_EQ(preview.Page(), 1);
  EXPECT_EQ(preview.ZoomMode(), kZoomWholePage);
  EXPECT_EQ(preview.ScrollTop(kPages), 0);
}

TEST_F(PreviewStateTest, TheWholePageFitsInBothDirections) {
  EXPECT_DOUBLE_EQ(preview.Zoom(kPages), 50);
  const PageGeometry wide{40000, 10000};
  EXPECT_DOUBLE_EQ(preview.Zoom({wide, wide, wide}), 25);
}

TEST_F(PreviewStateTest, ThePageWidthFits) {
  preview.PutZoomMode(kZoomPageWidth);
  EXPECT_DOUBLE_EQ(preview.Zoom(kPages), 100);
}

TEST_F(PreviewStateTest, TwoPagesFitSideBySide) {
  PutArea(10000 + 3 * kGap, 50000);
  preview.PutZoomMode(kZoomTwoPages);
  EXPECT_DOUBLE_EQ(preview.Zoom(kPages), 50);
  EXPECT_DOUBLE_EQ(preview.Zoom({kPage, {15000, 20000}, kPage}), 40);
  PutArea(100000, 10000 + 2 * kGap);
  EXPECT_DOUBLE_EQ(preview.Zoom({kPage, {10000, 25000}, kPage}), 40)
      << "the taller of the two counts";
}

TEST_F(PreviewStateTest, TheOverviewFitsFourPagesBesideAndTwoBelow) {
  PutArea(20000 + 5 * kGap, 100000);
  preview.PutZoomMode(kZoomOverview);
  EXPECT_DOUBLE_EQ(preview.Zoom(kPages), 50);
  PutArea(100000, 10000 + 3 * kGap);
  EXPECT_DOUBLE_EQ(preview.Zoom(kPages), 25);
}

TEST_F(PreviewStateTest, APutPercentageHoldsAndEndsFitting) {
  preview.PutZoom(150);
  EXPECT_EQ(preview.ZoomMode(), kZoomPercent);
  EXPECT_EQ(preview.Zoom(kPages), 150);
  preview.PutZoomMode(kZoomWholePage);
  EXPECT_DOUBLE_EQ(preview.Zoom(kPages), 50);
  preview.PutZoomMode(kZoomPercent);
  EXPECT_EQ(preview.Zoom(kPages), 150) << "the percentage put last";
}

TEST_F(PreviewStateTest, PercentModeBeginsAt100) {
  preview.PutZoomMode(kZoomPercent);
  EXPECT_EQ(preview.Zoom(kPages), 100);
}

TEST_F(PreviewStateTest, ZoomOutsideItsLimitsIsRefused) {
  preview.PutZoom(kMinimumZoom);
  preview.PutZoom(kMaximumZoom);
  for (const double percent :
       {0.0, -50.0, 4.99, 1000.1, std::nan(""), std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(preview.PutZoom(percent), Error) << percent;
  }
  EXPECT_EQ(preview.Zoom(kPages), kMaximumZoom);
}

TEST_F(PreviewStateTest, UnknownZoomModesAreRefused) {
  for (const std::int32_t mode : {-1, 5, 100}) EXPECT_THROW(preview.PutZoomMode(mode), Error);
  EXPECT_EQ(preview.ZoomMode(), kZoomWholePage);
}

TEST_F(PreviewStateTest, FittingStaysWithinTheLimitsInATinyOrHugeView) {
  PutArea(0, -10);
  EXPECT_EQ(preview.Zoom(kPages), kMinimumZoom);
  PutArea(1000000000, 1000000000);
  EXPECT_EQ(preview.Zoom(kPages), kMaximumZoom);
}

TEST_F(PreviewStateTest, ScrollingStopsWhereThePageEnds) {
  preview.PutZoom(100);
  preview.PutScrollTop(3000, kPages);
  EXPECT_EQ(preview.ScrollTop(kPages), 3000);
  preview.PutScrollTop(32000, kPages);
  EXPECT_EQ(preview.ScrollTop(kPages), 10000);
  preview.PutScrollTop(-5, kPages);
  EXPECT_EQ(preview.ScrollTop(kPages), 0);
  EXPECT_THROW(preview.PutScrollTop(std::nan(""), kPages), Error);
}

TEST_F(PreviewStateTest, APageThatFitsDoesNotScroll) {
  for (const std::int32_t mode : {kZoomOverview, kZoomTwoPages, kZoomWholePage}) {
    preview.PutZoomMode(mode);
    preview.PutScrollTop(32000, kPages);
    EXPECT_EQ(preview.ScrollTop(kPages), 0) << mode;
  }
}

TEST_F(PreviewStateTest, AZoomThatShowsMoreLimitsTheScrollPosition) {
  preview.PutZoom(200);
  preview.PutScrollTop(32000, kPages);
  EXPECT_EQ(preview.ScrollTop(kPages), 15000);
  preview.PutZoom(100);
  EXPECT_EQ(preview.ScrollTop(kPages), 10000);
}

TEST_F(PreviewStateTest, AnotherPageIsShownFromItsTop) {
  preview.PutZoom(100);
  preview.PutScrollTop(5000, kPages);
  preview.Show(2);
  EXPECT_EQ(preview.Page(), 2);
  EXPECT_EQ(preview.ScrollTop(kPages), 0);
}

TEST_F(PreviewStateTest, ScrollsInDevicePixelsToo) {
  preview.PutArea({816, 416, 1});
  preview.PutZoom(300);  // 2000 x 4000 pixels
  EXPECT_EQ(preview.MaximumScroll(kPages), (ScrollPosition{1200, 3600}));
  preview.ScrollTo({300, 1000}, kPages);
  EXPECT_EQ(preview.Scrolled(kPages), (ScrollPosition{300, 1000}));
  EXPECT_DOUBLE_EQ(preview.ScrollTop(kPages), 5000);
  preview.ScrollTo({-7, 9999}, kPages);
  EXPECT_EQ(preview.Scrolled(kPages), (ScrollPosition{0, 3600}));
}

TEST_F(PreviewStateTest, ABottomThatIsPutIsTheBottomOfTheScrollBar) {
  preview.PutArea({777, 433, 1.25});
  for (const double percent : {33.3, 100.0, 141.4, 1000.0}) {
    preview.PutZoom(percent);
    preview.PutScrollTop(1e9, kPages);
    EXPECT_EQ(preview.Scrolled(kPages).top, preview.MaximumScroll(kPages).top) << percent;
  }
}

TEST_F(PreviewStateTest, APageThatIsTooWideIsShownFromItsMiddleUntilItIsScrolled) {
  preview.PutArea({816, 416, 1});
  preview.PutZoom(300);
  EXPECT_EQ(preview.Scrolled(kPages).left, 600);
  preview.PutZoom(600);
  EXPECT_EQ(preview.Scrolled(kPages).left, preview.MaximumScroll(kPages).left / 2);
  preview.ScrollTo({0, 0}, kPages);
  preview.PutZoom(300);
  EXPECT_EQ(preview.Scrolled(kPages).left, 0) << "the left edge stays the left edge";
  preview.Show(2);
  EXPECT_EQ(preview.Scrolled(kPages).left, 0) << "on other pages too";
}

TEST_F(PreviewStateTest, OnlyModesOfOneLargePageScroll) {
  PutArea(500, 500);
  for (const std::int32_t mode :
       {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
    preview.PutZoomMode(mode);
    const bool scrolls = mode == kZoomPercent || mode == kZoomPageWidth;
    EXPECT_EQ(preview.Scrolls(), scrolls) << mode;
    EXPECT_EQ(preview.MaximumScroll(kPages).top > 0, scrolls) << mode;
  }
}

TEST_F(PreviewStateTest, OnlyPagesThatCouldBeVisibleMayBeShown) {
  preview.Show(5);
  struct Row {
    std::int32_t mode;
    bool before, itself, behind, far;
  };
  for (const Row& row :
       {Row{kZoomPercent, false, true, false, false}, Row{kZoomOverview, true, true, true, true},
        Row{kZoomTwoPages, false, true, true, false},
        Row{kZoomWholePage, false, true, false, false},
        Row{kZoomPageWidth, false, true, false, false}}) {
    preview.PutZoomMode(row.mode);
    EXPECT_EQ(preview.MayShow(4), row.before) << row.mode;
    EXPECT_EQ(preview.MayShow(5), row.itself) << row.mode;
    EXPECT_EQ(preview.MayShow(6), row.behind) << row.mode;
    EXPECT_EQ(preview.MayShow(7), row.far) << row.mode;
  }
}

TEST_F(PreviewStateTest, AnAreaIsAtLeastAPixelOfAPositiveScale) {
  for (const double scale : {0.0, -2.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    preview.PutArea({-5, 0, scale});
    EXPECT_EQ(preview.Area(), (SurfaceArea{1, 1, 1})) << scale;
  }
}

}  // namespace
}  // namespace pagivo::native
