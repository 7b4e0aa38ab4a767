#include "engine/native/view/page_placement.h"

#include <gmock/gmock.h>

#include <set>

#include "engine/native/document/page_shapes.h"

namespace pagivo::native {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Portrait is 800 x 1200 pixels at 100 percent and scale 1, landscape 1200 x 800.

class Pages final : public PageSource {
 public:
  std::int32_t count = 100;
  std::set<std::int32_t> landscape;
  std::set<std::int32_t> turnedAway;
  std::vector<std::int32_t> asked;

  std::int32_t PageCount() const override { return count; }
  PageGeometry GeometryOf(std::int32_t page) const override {
    EXPECT_GE(page, 1);
    EXPECT_LE(page, count);
    return landscape.contains(page) ? kLandscape : kPortrait;
  }
  bool IsAdmitted(std::int32_t page) override {
    asked.push_back(page);
    return !turnedAway.contains(page);
  }
};

class PagePlacement : public testing::Test {
 protected:
  ShownPages Shown() const {
    const std::int32_t page = state.Page();
    return {pages.GeometryOf(page), pages.GeometryOf(std::min(page + 1, pages.count)),
            pages.GeometryOf(1)};
  }
  PageLayout LayOut() { return LayOutPages(state, Shown(), pages); }
  PageLayout LayOut(std::int32_t page, std::int32_t mode) {
    state.Show(page);
    state.PutZoomMode(mode);
    return LayOut();
  }
  std::vector<std::int32_t> VisiblePages(std::int32_t page, std::int32_t mode) {
    std::vector<std::int32_t> visible;
    for (const PlacedPage& placed : LayOut(page, mode).pages) visible.push_back(placed.page);
    return visible;
  }

  Pages pages;
  PreviewState state;
};

TEST_F(PagePlacement, OnePageStandsInTheMiddle) {
  struct Row {
    SurfaceArea area;
    SurfaceBox box;
  };
  for (const Row& row : {
           Row{{816, 1216, 1}, {8, 8, 808, 1208}},
           Row{{1016, 616, 1}, {308, 8, 708, 608}},
           Row{{416, 1000, 1}, {8, 200, 408, 800}},
           Row{{1632, 2432, 2}, {16, 16, 1616, 2416}},
           Row{{1020, 1520, 1.25}, {10, 10, 1010, 1510}},
       }) {
    state.PutArea(row.area);
    const PageLayout layout = LayOut(7, kZoomWholePage);
    ASSERT_THAT(layout.pages, SizeIs(1));
    EXPECT_EQ(layout.pages[0].page, 7);
    EXPECT_EQ(layout.pages[0].box, row.box) << row.area.width << " x " << row.area.height;
    EXPECT_FALSE(layout.pages[0].isChosen);
  }
}

TEST_F(PagePlacement, AScrolledPageMovesByWholePixels) {
  state.PutArea({500, 500, 1});
  state.PutZoom(100);
  EXPECT_EQ(LayOut().pages[0].box, (SurfaceBox{-150, 8, 650, 1208}))
      << "a page that is too wide begins with its middle";
  state.ScrollTo({0, 0}, Shown());
  EXPECT_EQ(LayOut().pages[0].box, (SurfaceBox{8, 8, 808, 1208}));
  state.ScrollTo({100, 33}, Shown());
  EXPECT_EQ(LayOut().pages[0].box, (SurfaceBox{-92, -25, 708, 1175}));
  state.ScrollTo({9999, 9999}, Shown());
  EXPECT_EQ(LayOut().pages[0].box, (SurfaceBox{-308, -708, 492, 492})) << "up to its other gaps";
}

TEST_F(PagePlacement, ThePageWidthScrollsDownOnly) {
  state.PutArea({816, 500, 1});
  state.PutZoomMode(kZoomPageWidth);
  state.ScrollTo({50, 50}, Shown());
  EXPECT_EQ(LayOut().pages[0].box, (SurfaceBox{8, -42, 808, 1158}));
}

TEST_F(PagePlacement, TwoPagesStandSideBySide) {
  state.PutArea({824, 616, 1});
  const PageLayout layout = LayOut(3, kZoomTwoPages);
  ASSERT_THAT(layout.pages, SizeIs(2));
  EXPECT_EQ(layout.pages[0].page, 3);
  EXPECT_EQ(layout.pages[0].box, (SurfaceBox{8, 8, 408, 608}));
  EXPECT_EQ(layout.pages[1].page, 4);
  EXPECT_EQ(layout.pages[1].box, (SurfaceBox{416, 8, 816, 608}));
}

TEST_F(PagePlacement, TwoPagesOfDifferentPapersStandOnOneMiddleLine) {
  pages.landscape = {4};
  state.PutArea({1024, 616, 1});
  const PageLayout layout = LayOut(3, kZoomTwoPages);
  EXPECT_EQ(layout.pages[0].box, (SurfaceBox{8, 8, 408, 608}));
  EXPECT_EQ(layout.pages[1].box, (SurfaceBox{416, 108, 1016, 508}));
}

TEST_F(PagePlacement, APageWithoutPartnerKeepsItsPlace) {
  state.PutArea({824, 616, 1});
  EXPECT_THAT(VisiblePages(100, kZoomTwoPages), ElementsAre(100));
  EXPECT_EQ(LayOut().pages[0].box, (SurfaceBox{8, 8, 408, 608}));
}

TEST_F(PagePlacement, PagesThatAreTurnedAwayAreLeftOut) {
  pages.turnedAway = {6};
  EXPECT_THAT(VisiblePages(5, kZoomTwoPages), ElementsAre(5));
  EXPECT_THAT(VisiblePages(3, kZoomTwoPages), ElementsAre(3, 4));
  state.PutArea({840, 624, 1});
  EXPECT_THAT(VisiblePages(3, kZoomOverview), ElementsAre(1, 2, 3, 4, 5, 7, 8));
}

TEST_F(PagePlacement, TheShownPageItselfIsNotAskedFor) {
  for (const std::int32_t mode : {kZoomPercent, kZoomWholePage, kZoomPageWidth}) {
    LayOut(5, mode);
    EXPECT_THAT(pages.asked, IsEmpty());
  }
  LayOut(5, kZoomTwoPages);
  EXPECT_THAT(pages.asked, ElementsAre(6));
}

TEST_F(PagePlacement, TheOverviewIsAGridOfCellsOfTheFirstPagesPaper) {
  state.PutArea({840, 624, 1});
  const PageLayout layout = LayOut(6, kZoomOverview);
  EXPECT_EQ(layout.columns, 4);
  EXPECT_EQ(layout.rows, 2);
  ASSERT_THAT(layout.pages, SizeIs(8));
  EXPECT_EQ(layout.pages[0].box, (SurfaceBox{8, 8, 208, 308}));
  EXPECT_EQ(layout.pages[3].box, (SurfaceBox{632, 8, 832, 308}));
  EXPECT_EQ(layout.pages[4].box, (SurfaceBox{8, 316, 208, 616}));
  for (const PlacedPage& placed : layout.pages) EXPECT_EQ(placed.isChosen, placed.page == 6);
}

TEST_F(PagePlacement, TheOverviewFillsTheArea) {
  state.PutArea({1672, 624, 1});
  const PageLayout wide = LayOut(1, kZoomOverview);
  EXPECT_EQ(wide.columns, 8);
  EXPECT_EQ(wide.rows, 2);
  state.PutArea({840, 1240, 1});
  const PageLayout high = LayOut(1, kZoomOverview);
  EXPECT_EQ(high.columns, 4);
  EXPECT_EQ(high.rows, 4);
}

TEST_F(PagePlacement, TheOverviewShowsTheScreenfulOfTheShownPage) {
  state.PutArea({840, 624, 1});
  EXPECT_THAT(VisiblePages(8, kZoomOverview), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
  EXPECT_THAT(VisiblePages(9, kZoomOverview), ElementsAre(9, 10, 11, 12, 13, 14, 15, 16));
  EXPECT_THAT(VisiblePages(99, kZoomOverview), ElementsAre(97, 98, 99, 100)) << "the last one";
}

TEST_F(PagePlacement, APageOfOtherPaperFitsItsCell) {
  pages.landscape = {2};
  state.PutArea({840, 624, 1});
  const PageLayout layout = LayOut(1, kZoomOverview);
  EXPECT_EQ(layout.pages[1].box, (SurfaceBox{216, 91, 416, 225})) << "200 x 134 in 200 x 300";
  EXPECT_LT(layout.pages[1].pixelsPerTwip, layout.pages[0].pixelsPerTwip);
}

TEST_F(PagePlacement, OnlyVisiblePagesOfAHugeDocumentAreLookedAt) {
  pages.count = 32000;
  for (const std::int32_t page : {1, 16001, 32000}) {
    for (const std::int32_t mode : {kZoomPercent, kZoomOverview, kZoomTwoPages}) {
      pages.asked.clear();
      EXPECT_LE(VisiblePages(page, mode).size(), 8U);
      EXPECT_LE(pages.asked.size(), 8U);
    }
  }
}

TEST_F(PagePlacement, WithoutPagesNothingIsVisible) {
  pages.count = 0;
  for (const std::int32_t mode :
       {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
    state.PutZoomMode(mode);
    EXPECT_THAT(LayOutPages(state, {kPortrait, kPortrait, kPortrait}, pages).pages, IsEmpty());
  }
}

TEST_F(PagePlacement, TinyAreasShowSomethingInEveryMode) {
  for (const SurfaceArea& area :
       {SurfaceArea{1, 1, 1}, SurfaceArea{0, -5, 0}, SurfaceArea{3, 2000, 3}}) {
    state.PutArea(area);
    for (const std::int32_t mode :
         {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
      EXPECT_FALSE(LayOut(1, mode).pages.empty()) << mode;
    }
  }
}

TEST_F(PagePlacement, FindsThePageAtAPlace) {
  state.PutArea({824, 616, 1});
  const PageLayout layout = LayOut(3, kZoomTwoPages);
  struct Row {
    SurfacePoint at;
    std::int32_t page;  // 0 for none
  };
  for (const Row& row :
       {Row{{8, 8}, 3}, Row{{407.9, 607.9}, 3}, Row{{416, 300}, 4}, Row{{7.9, 300}, 0},
        Row{{408, 300}, 0}, Row{{412, 300}, 0}, Row{{600, 608}, 0}}) {
    const PlacedPage* placed = layout.At(row.at);
    EXPECT_EQ(placed == nullptr ? 0 : placed->page, row.page) << row.at.x << ", " << row.at.y;
  }
}

}  // namespace
}  // namespace pagivo::native
