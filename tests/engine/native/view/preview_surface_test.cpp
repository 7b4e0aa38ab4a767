#include <gmock/gmock.h>

#include "engine/native/view/surface_test.h"

namespace pagivo::native {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using SurfaceDrawing = SurfaceTest;

TEST_F(SurfaceDrawing, ThePageIsWhiteOnTheGroundWithAnEdge) {
  Compose(1);
  PutArea(1000, 616);  // 400 x 600 pixels
  const DrawnSurface drawn = Draw();
  EXPECT_EQ(drawn.At(10, 300), kColors.ground);
  EXPECT_EQ(drawn.At(990, 300), kColors.ground);
  EXPECT_EQ(drawn.At(299, 300), kColors.edge);
  EXPECT_EQ(drawn.At(300, 300), kWhite);
  EXPECT_EQ(drawn.At(699, 300), kWhite);
  EXPECT_EQ(drawn.At(700, 300), kColors.edge);
  EXPECT_EQ(drawn.At(500, 7), kColors.edge);
  EXPECT_EQ(drawn.At(500, 608), kColors.edge);
}

TEST_F(SurfaceDrawing, EveryPixelIsWrittenInEveryMode) {
  Compose(5);
  for (const SurfaceArea& area : {SurfaceArea{640, 480, 1}, SurfaceArea{301, 977, 2}}) {
    surface->PutArea(area);
    for (const std::int32_t mode :
         {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
      engine->PutZoomMode(mode);
      EXPECT_THAT(Draw().Pixels(), Not(Contains(DrawnSurface::kUntouched))) << mode;
    }
  }
}

TEST_F(SurfaceDrawing, APageLooksLikeItsBitmapAtThatScale) {
  Compose(2);
  ShowPage(2);
  for (const double scale : {1.0, 1.25, 2.0}) {
    const auto pixels = [scale](double count) { return static_cast<std::int32_t>(count * scale); };
    PutArea(pixels(816), pixels(1216), scale);
    ASSERT_NEAR(engine->GetZoom(), 100, 1e-9);
    const DrawnSurface drawn = Draw();
    const Bitmap page = DrawWholePage(engine->GetDocument(), 2, 96 * scale);
    ASSERT_EQ(page.width, pixels(800));
    for (std::int32_t y = 0; y < page.height; ++y) {
      for (std::int32_t x = 0; x < page.width; ++x) {
        ASSERT_EQ(drawn.At(x + pixels(8), y + pixels(8)),
                  page.pixels[static_cast<std::size_t>(y * page.width + x)])
            << "scale " << scale << " at " << x << ", " << y;
      }
    }
  }
}

TEST_F(SurfaceDrawing, AnEmptyEngineShowsNothingButGround) {
  PutArea(320, 200);
  for (const std::int32_t mode :
       {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
    engine->PutZoomMode(mode);
    EXPECT_THAT(Draw().Pixels(), Each(kColors.ground)) << mode;
  }
}

TEST_F(SurfaceDrawing, ADocumentIsShownWhileItIsComposed) {
  Compose(1);
  PutArea(816, 1216);
  engine->StartDoc();
  EXPECT_EQ(Draw().At(400, 600), kWhite);
  engine->PutPenWidth(std::int32_t{300});
  engine->DrawLine(0.0, 9000.0, 12000.0, 9000.0);
  EXPECT_EQ(Draw().At(400, 608), 0xFF000000);
}

TEST_F(SurfaceDrawing, OverlaysAreSeenAtOnce) {
  Compose(3);
  PutArea(816, 1216);
  ShowPage(2);
  EXPECT_EQ(Draw().At(400, 608), kWhite);
  engine->PutPenWidth(std::int32_t{300});
  engine->StartOverlay(std::int16_t{2});
  engine->DrawLine(0.0, 9000.0, 12000.0, 9000.0);
  EXPECT_EQ(Draw().At(400, 608), 0xFF000000) << "even before it is closed";
  changes = 0;
  engine->EndOverlay();
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(Draw().At(400, 608), 0xFF000000);
}

TEST_F(SurfaceDrawing, AnotherDocumentFreesTheBitmapsOfTheOneBefore) {
  Compose(3);
  PutArea(816, 1216);
  Draw();
  EXPECT_GT(surface->Bitmaps().Bytes(), 0U);
  engine->StartDoc();
  EXPECT_EQ(surface->Bitmaps().Bytes(), 0U);
  engine->PutText("Nieuw");
  EXPECT_EQ(Draw().Pixels().size(), 816U * 1216U);
  EXPECT_EQ(DrawnBitmaps(), 0U);
}

TEST_F(SurfaceDrawing, NewPaperOfABlankPageIsSeen) {
  Compose(1);
  PutArea(816, 1216);
  engine->StartDoc();
  Draw();
  changes = 0;
  engine->PutOrientation(1);
  EXPECT_GT(changes, 0);
  EXPECT_EQ(Draw().At(400, 20), kColors.ground) << "a landscape page leaves room above";
}

TEST_F(SurfaceDrawing, WhatHasBeenDrawnIsNotDrawnAgain) {
  Compose(3);
  PutArea(816, 1216);
  EXPECT_EQ(DrawnBitmaps(), 1U);
  EXPECT_EQ(DrawnBitmaps(), 0U);
  ShowPage(2);
  EXPECT_EQ(DrawnBitmaps(), 1U);
  ShowPage(1);
  EXPECT_EQ(DrawnBitmaps(), 0U);
}

TEST_F(SurfaceDrawing, OfAHugeDocumentOnlyVisiblePagesAreDrawnAndAskedFor) {
  Compose(32000);
  PutArea(840, 624);
  EXPECT_EQ(DrawnBitmaps(), 1U);
  struct Row {
    std::int32_t mode;
    std::size_t pages;
  };
  for (const Row& row : {Row{kZoomTwoPages, 2}, Row{kZoomOverview, 8}}) {
    engine->PutZoomMode(row.mode);
    for (const int page : {5001, 20001}) {
      ShowPage(page);
      window.asked.clear();
      EXPECT_EQ(DrawnBitmaps(), row.pages) << row.mode;
      EXPECT_EQ(window.asked.size(), row.pages - 1) << row.mode;
      for (const int asked : window.asked) EXPECT_NEAR(asked, page, 8);
    }
  }
}

TEST_F(SurfaceDrawing, ThePageThatTheWindowTurnsAwayIsLeftOut) {
  Compose(5);  // and an empty sixth page
  PutArea(824, 616);
  engine->PutZoomMode(kZoomTwoPages);
  ShowPage(5);
  EXPECT_EQ(Draw().At(600, 300), kColors.ground) << "beside the last page";
  PutArea(840, 624);
  engine->PutZoomMode(kZoomOverview);
  EXPECT_EQ(Draw().At(100, 450), kWhite) << "page 5";
  EXPECT_EQ(Draw().At(300, 450), kColors.ground) << "page 6";
}

TEST_F(SurfaceDrawing, TheShownPageOfTheOverviewIsHighlighted) {
  Compose(8);
  PutArea(840, 624);
  engine->PutZoomMode(kZoomOverview);
  ShowPage(2);
  EXPECT_EQ(Draw().At(214, 150), kColors.highlight);
  EXPECT_EQ(Draw().At(6, 150), Draw().At(630, 150));
  EXPECT_NE(Draw().At(6, 150), kColors.highlight);
}

// --- Telling of changes -----------------------------------------------------------------------

TEST_F(SurfaceDrawing, WhateverChangesTheViewIsTold) {
  Compose(5);
  PutArea(816, 600);
  struct Row {
    const char* name;
    std::function<void()> change;
  };
  for (const Row& row : {
           Row{"page", [this] { ShowPage(2); }},
           Row{"zoom", [this] { engine->PutZoom(150); }},
           Row{"scroll position", [this] { engine->PutScrollTop(100); }},
           Row{"mode", [this] { engine->PutZoomMode(kZoomPageWidth); }},
           Row{"scroll bars", [this] { surface->ScrollTo(0, 5); }},
           Row{"new document", [this] { engine->StartDoc(); }},
           Row{"its end", [this] { engine->EndDoc(); }},
       }) {
    changes = 0;
    row.change();
    EXPECT_EQ(changes, 1) << row.name;
  }
}

TEST_F(SurfaceDrawing, WhatIsInForceAlreadyIsNoChange) {
  Compose(5);
  PutArea(816, 600);
  engine->PutZoom(150);
  engine->PutScrollTop(100);
  changes = 0;
  ShowPage(1);
  engine->PutZoom(150);
  engine->PutZoomMode(kZoomPercent);
  engine->PutScrollTop(100);
  surface->ScrollTo(Left(), Top());
  EXPECT_EQ(changes, 0);
  for (const std::int32_t mode : {kZoomTwoPages, kZoomWholePage}) {
    engine->PutZoomMode(mode);
    changes = 0;
    engine->PutZoomMode(mode);
    engine->PutScrollTop(32000);
    EXPECT_EQ(changes, 0) << mode;
  }
}

TEST_F(SurfaceDrawing, PagesThatAreNotVisibleAreNotTold) {
  Compose(40);
  PutArea(816, 1216);
  struct Row {
    std::int32_t mode;
    int told;  // of overlays on the pages 1 to 4 while page 2 is shown
  };
  for (const Row& row : {Row{kZoomPercent, 1}, Row{kZoomOverview, 4}, Row{kZoomTwoPages, 2},
                         Row{kZoomWholePage, 1}, Row{kZoomPageWidth, 1}}) {
    engine->PutZoomMode(row.mode);
    ShowPage(2);
    changes = 0;
    for (std::int16_t page = 1; page <= 4; ++page) {
      engine->StartOverlay(page);
      engine->PutText("concept");
      engine->EndOverlay();
    }
    EXPECT_EQ(changes, row.told) << "mode " << row.mode;
  }
}

TEST_F(SurfaceDrawing, ComposingTellsOfThePageThatIsShown) {
  engine->StartDoc();
  changes = 0;
  for (int page = 2; page <= 100; ++page) engine->NewPage();
  EXPECT_EQ(changes, 1) << "page 1 is complete";
  engine->PutZoomMode(kZoomTwoPages);
  ShowPage(99);
  changes = 0;
  engine->NewPage();
  EXPECT_EQ(changes, 1) << "page 100 is";
}

TEST_F(SurfaceDrawing, TheAreaIsNoChangeByItself) {
  Compose(1);
  PutArea(500, 600);
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(surface->VerticalRange().visible, 600);
}

TEST_F(SurfaceDrawing, AfterTheSurfaceIsGoneNobodyIsTold) {
  Compose(2);
  surface.reset();
  ShowPage(2);
  engine->StartDoc();
  EXPECT_EQ(changes, 0);
}

TEST_F(SurfaceDrawing, OnlyThisEngineHasASurface) {
  EXPECT_NE(MakeSurface(engine), nullptr);
  EXPECT_EQ(MakeSurface(nullptr), nullptr);
}

// --- Scroll bars ------------------------------------------------------------------------------

TEST_F(SurfaceDrawing, ScrollBarsAreThereAsTheModeWantsThem) {
  Compose(1);
  struct Row {
    std::int32_t mode;
    double percent;  // in mode 0
    bool vertical, horizontal;
  };
  PutArea(816, 616);
  for (const Row& row : {
           Row{kZoomPercent, 25, true, false},
           Row{kZoomPercent, 100, true, false},
           Row{kZoomPercent, 101, true, true},
           Row{kZoomPageWidth, 0, true, false},
           Row{kZoomWholePage, 0, false, false},
           Row{kZoomTwoPages, 0, false, false},
           Row{kZoomOverview, 0, false, false},
       }) {
    engine->PutZoomMode(row.mode);
    if (row.mode == kZoomPercent) engine->PutZoom(row.percent);
    EXPECT_EQ(surface->VerticalRange().wanted, row.vertical) << row.mode << " " << row.percent;
    EXPECT_EQ(surface->HorizontalRange().wanted, row.horizontal) << row.mode << " " << row.percent;
  }
}

TEST_F(SurfaceDrawing, ScrollBarsSpanThePageAndItsGaps) {
  Compose(1);
  PutArea(500, 616);
  engine->PutZoom(100);
  surface->ScrollTo(70, 90);
  const ScrollRange vertical = surface->VerticalRange();
  EXPECT_EQ(vertical.value, 90);
  EXPECT_EQ(vertical.maximum, 600);
  EXPECT_EQ(vertical.visible, 616);
  EXPECT_EQ(vertical.step, 40);
  const ScrollRange horizontal = surface->HorizontalRange();
  EXPECT_EQ(horizontal.value, 70);
  EXPECT_EQ(horizontal.maximum, 316);
  EXPECT_EQ(horizontal.visible, 500);
  surface->ScrollTo(-1, 100000);
  EXPECT_EQ(Left(), 0);
  EXPECT_EQ(Top(), 600);
  PutArea(1000, 1232, 2);
  EXPECT_EQ(surface->VerticalRange().step, 80);
  EXPECT_EQ(surface->VerticalRange().maximum, 1200);
}

// --- The menu ---------------------------------------------------------------------------------

class SurfaceMenu : public SurfaceTest {
 protected:
  SurfaceMenu() {
    Compose(20);
    PutArea(416, 400);
  }
};

TEST_F(SurfaceMenu, HasTheTextsOfTheDesign) {
  std::string texts;
  for (const MenuItem& item : surface->Menu()) {
    if (!texts.empty()) texts += '|';
    texts += item.text;
    EXPECT_TRUE(item.visible);
  }
  EXPECT_EQ(texts, "Whole &Page|Page &Width|&Two Pages|Thumb&nail");
}

TEST_F(SurfaceMenu, TheMenuPutsZoomModesAndTellsTheWindow) {
  struct Row {
    const char* key;
    std::int32_t mode;
  };
  for (const Row& row : {Row{"Page &Width", kZoomPageWidth}, Row{"&Two Pages", kZoomTwoPages},
                         Row{"Thumb&nail", kZoomOverview}, Row{"Whole &Page", kZoomWholePage}}) {
    window.events.clear();
    surface->ClickMenu(row.key);
    EXPECT_EQ(engine->GetZoomMode(), row.mode) << row.key;
    EXPECT_THAT(window.events, ElementsAre("after"));
  }
}

TEST_F(SurfaceMenu, AKeyThatTheMenuDoesNotHaveDoesNothing) {
  for (const auto* key : {"", "Whole", "whole &page", "Heel", "Overzicht"}) {
    surface->ClickMenu(key);
  }
  EXPECT_EQ(engine->GetZoomMode(), kZoomWholePage);
  EXPECT_EQ(changes, 0);
  EXPECT_THAT(window.events, IsEmpty());
}

}  // namespace
}  // namespace pagivo::native
