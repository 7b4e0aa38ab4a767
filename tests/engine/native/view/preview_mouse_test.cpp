#include <gmock/gmock.h>

#include "engine/native/view/surface_test.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(WheelNotches, WholeOnesCountAtOnce) {
  WheelNotches wheel;
  EXPECT_EQ(wheel.Turn(1), 1);
  EXPECT_EQ(wheel.Turn(-3), -3);
}

TEST(WheelNotches, FractionsAddUp) {
  for (const double direction : {1.0, -1.0}) {
    WheelNotches wheel;
    int whole = 0;
    for (int i = 0; i < 30; ++i) whole += wheel.Turn(0.1 * direction);
    EXPECT_EQ(whole, static_cast<int>(3 * direction));
  }
}

TEST(WheelNotches, TurningBackDiscardsWhatIsNotComplete) {
  WheelNotches wheel;
  EXPECT_EQ(wheel.Turn(0.9), 0);
  EXPECT_EQ(wheel.Turn(-0.2), 0);
  EXPECT_EQ(wheel.Turn(-0.8), -1);
}

TEST(WheelNotches, AResetDiscardsToo) {
  WheelNotches wheel;
  wheel.Turn(0.9);
  wheel.Reset();
  EXPECT_EQ(wheel.Turn(0.2), 0);
}

TEST(WheelNotches, AbsurdTurnsAreLimited) {
  WheelNotches wheel;
  EXPECT_EQ(wheel.Turn(1e300), 100);
}

// --- On a document ----------------------------------------------------------------------------

constexpr SurfacePoint kMiddle{208, 200};

class SurfaceMouse : public SurfaceTest {
 protected:
  static constexpr int kHalfBottom = 216;  // at 50 percent: 600 pixels and the gaps in 400

  SurfaceMouse() {
    Compose(20);
    PutArea(416, 400);
  }
  void Turn(double notches, std::int16_t shift = 0) {
    surface->TurnWheel(kMiddle, 0, notches, shift);
  }
  void ShowAt(double percent, int left, int top) {
    engine->PutZoom(percent);
    ShowPage(10);
    surface->ScrollTo(left, top);
  }
  void Click(SurfacePoint at) {
    surface->PressPointer(at);
    surface->ReleasePointer(at);
  }
  // The page twips that a place of the surface shows.
  SurfacePoint PagePointAt(SurfacePoint at) {
    const PageLayout layout = engine->GetPreview()->Layout();
    const PlacedPage* placed = layout.At(at);
    EXPECT_NE(placed, nullptr);
    if (placed == nullptr) return {};
    return {(at.x - placed->box.left) / placed->pixelsPerTwip,
            (at.y - placed->box.top) / placed->pixelsPerTwip};
  }
};

// --- The wheel --------------------------------------------------------------------------------

TEST_F(SurfaceMouse, TheWheelScrollsAndGoesOnAtTheEnds) {
  struct Row {
    double notches;
    int from;
    int page, top;
  };
  for (const Row& row : {
           Row{-1, 0, 10, 120},
           Row{-0.25, 0, 10, 30},
           Row{-1, 200, 10, kHalfBottom},
           Row{-1, kHalfBottom, 11, 0},
           Row{1, 200, 10, 80},
           Row{1, 30, 10, 0},
           Row{1, 0, 9, kHalfBottom},
       }) {
    ShowAt(50, 0, row.from);
    Turn(row.notches);
    EXPECT_EQ(ShownPage(), row.page) << row.notches << " from " << row.from;
    EXPECT_EQ(Top(), row.top) << row.notches << " from " << row.from;
  }
}

TEST_F(SurfaceMouse, AFineWheelTurnsThePageAfterAWholeNotch) {
  ShowAt(50, 0, kHalfBottom);
  for (int i = 0; i < 9; ++i) Turn(-0.1);
  EXPECT_EQ(ShownPage(), 10);
  Turn(-0.1);
  EXPECT_EQ(ShownPage(), 11);
  EXPECT_EQ(Top(), 0);
}

TEST_F(SurfaceMouse, ScrollingDiscardsAPartOfANotch) {
  ShowAt(50, 0, kHalfBottom);
  Turn(-0.9);
  Turn(0.1);
  Turn(-0.1);
  Turn(-0.9);
  EXPECT_EQ(ShownPage(), 10);
}

TEST_F(SurfaceMouse, TheWheelTurnsViewsThatDoNotScroll) {
  PutArea(840, 624);
  struct Row {
    std::int32_t mode;
    double notches;
    int from, to;
  };
  for (const Row& row : {
           Row{kZoomWholePage, -1, 9, 10},
           Row{kZoomWholePage, 2, 9, 7},
           Row{kZoomTwoPages, -1, 9, 11},
           Row{kZoomTwoPages, 1, 9, 7},
           Row{kZoomOverview, -1, 9, 13},
           Row{kZoomOverview, 1, 9, 5},
           Row{kZoomOverview, -5, 9, 20},
           Row{kZoomOverview, 9, 9, 1},
           Row{kZoomTwoPages, -1, 19, 19},
           Row{kZoomWholePage, -1, 20, 20},
       }) {
    engine->PutZoomMode(row.mode);
    ShowPage(row.from);
    Turn(row.notches);
    EXPECT_EQ(ShownPage(), row.to) << "mode " << row.mode << " by " << row.notches;
  }
}

TEST_F(SurfaceMouse, TheWheelScrollsSidewaysByItselfOrWithShift) {
  ShowAt(100, 0, 50);
  surface->TurnWheel(kMiddle, -1, 0, 0);
  EXPECT_EQ(Left(), 120);
  Turn(-1, kShiftKey);
  EXPECT_EQ(Left(), 240);
  surface->TurnWheel(kMiddle, 0.5, 0, 0);
  EXPECT_EQ(Left(), 180);
  EXPECT_EQ(Top(), 50);
  for (int i = 0; i < 9; ++i) surface->TurnWheel(kMiddle, -1, 0, 0);
  EXPECT_EQ(ShownPage(), 10) << "no page follows sideways";
}

TEST_F(SurfaceMouse, WithControlTheWheelZoomsAtThePointer) {
  for (const double percent : {100.0, 200.0, 400.0}) {
    for (const SurfacePoint at : {SurfacePoint{208, 200}, {40, 350}, {400, 20}}) {
      for (const double notches : {1.0, -1.0}) {
        ShowAt(percent, 300, 500);
        const SurfacePoint before = PagePointAt(at);
        surface->TurnWheel(at, 0, notches, kControlKey);
        EXPECT_EQ(engine->GetZoom(), notches > 0 ? ZoomStepAbove(percent) : ZoomStepBelow(percent));
        const SurfacePoint after = PagePointAt(at);
        const double pixel = 1 / PixelsPerTwip(engine->GetZoom(), engine->GetPreview()->Area());
        if (Left() > 0 && Left() < surface->HorizontalRange().maximum) {
          EXPECT_NEAR(after.x, before.x, pixel) << percent;
        }
        if (Top() > 0 && Top() < Bottom()) {
          EXPECT_NEAR(after.y, before.y, pixel) << percent;
        }
        EXPECT_EQ(ShownPage(), 10);
      }
    }
  }
}

TEST_F(SurfaceMouse, SeveralNotchesAreSeveralSteps) {
  ShowAt(100, 0, 0);
  Turn(3, kControlKey);
  EXPECT_EQ(engine->GetZoom(), 200);
  Turn(-0.5, kControlKey);
  EXPECT_EQ(engine->GetZoom(), 200);
  Turn(-0.5, kControlKey);
  EXPECT_EQ(engine->GetZoom(), 150);
}

TEST_F(SurfaceMouse, ZoomingAtAPageOfSeveralShowsThatPage) {
  PutArea(840, 624);
  engine->PutZoomMode(kZoomOverview);
  ShowPage(1);
  window.events.clear();
  const SurfacePoint onPageSix{300, 450};
  for (int i = 0; i < 6; ++i) surface->TurnWheel(onPageSix, 0, 1, kControlKey);
  EXPECT_EQ(ShownPage(), 6);
  EXPECT_EQ(engine->GetZoomMode(), kZoomPercent);
  EXPECT_THAT(window.events, ElementsAre("after", "after")) << "another page, another mode";
  EXPECT_EQ(engine->GetZoom(), 125);
}

TEST_F(SurfaceMouse, TheWheelIsHarmlessWithoutADocument) {
  const auto empty = std::make_shared<NativeEngine>();
  PreviewSurface blank(empty->GetPreview());
  for (const std::int16_t shift : {std::int16_t{0}, kShiftKey, kControlKey}) {
    blank.TurnWheel(kMiddle, 1, -3, shift);
    blank.PressPointer(kMiddle);
    blank.MovePointer({0, 0});
    blank.ReleasePointer({0, 0});
  }
  EXPECT_EQ(empty->GetPreviewPage(), 1);
  EXPECT_EQ(blank.CursorAt(kMiddle), SurfaceCursor::Arrow);
}

// --- Dragging ---------------------------------------------------------------------------------

TEST_F(SurfaceMouse, DraggingMovesThePageWithThePointer) {
  ShowAt(100, 100, 300);
  const SurfacePoint held = PagePointAt(kMiddle);
  surface->PressPointer(kMiddle);
  surface->MovePointer({kMiddle.x - 30, kMiddle.y - 80});
  EXPECT_EQ(Left(), 130);
  EXPECT_EQ(Top(), 380);
  const SurfacePoint now = PagePointAt({kMiddle.x - 30, kMiddle.y - 80});
  EXPECT_NEAR(now.x, held.x, 1e-6);
  EXPECT_NEAR(now.y, held.y, 1e-6);
  surface->ReleasePointer({kMiddle.x - 30, kMiddle.y - 80});
  surface->MovePointer(kMiddle);
  EXPECT_EQ(Top(), 380) << "released is released";
}

TEST_F(SurfaceMouse, ADragThatOvershootsComesBackWithThePointer) {
  ShowAt(100, 100, 300);
  surface->PressPointer(kMiddle);
  surface->MovePointer({kMiddle.x, kMiddle.y + 5000});
  EXPECT_EQ(Top(), 0);
  surface->MovePointer(kMiddle);
  EXPECT_EQ(Top(), 300);
}

TEST_F(SurfaceMouse, APointerThatIsNotDownMovesNothing) {
  ShowAt(100, 100, 300);
  surface->MovePointer({0, 0});
  surface->MovePointer(kMiddle);
  surface->ReleasePointer(kMiddle);
  EXPECT_EQ(Top(), 300);
}

TEST_F(SurfaceMouse, ThePointerSaysWhatItCanDo) {
  ShowAt(100, 0, 0);
  EXPECT_EQ(surface->CursorAt(kMiddle), SurfaceCursor::OpenHand);
  surface->PressPointer(kMiddle);
  EXPECT_EQ(surface->CursorAt(kMiddle), SurfaceCursor::ClosedHand);
  surface->ReleasePointer(kMiddle);
  EXPECT_EQ(surface->CursorAt(kMiddle), SurfaceCursor::OpenHand);
  for (const std::int32_t mode : {kZoomWholePage, kZoomTwoPages}) {
    engine->PutZoomMode(mode);
    surface->PressPointer(kMiddle);
    EXPECT_EQ(surface->CursorAt(kMiddle), SurfaceCursor::Arrow) << "everything is visible";
    surface->ReleasePointer(kMiddle);
  }
  PutArea(840, 624);
  engine->PutZoomMode(kZoomOverview);
  EXPECT_EQ(surface->CursorAt({100, 100}), SurfaceCursor::Pointing);
  EXPECT_EQ(surface->CursorAt({4, 4}), SurfaceCursor::Arrow);
}

// --- The overview -----------------------------------------------------------------------------

class OverviewClicks : public SurfaceMouse {
 protected:
  OverviewClicks() {
    PutArea(840, 624);
    engine->PutZoomMode(kZoomOverview);
    ShowPage(9);  // to 16
    window.events.clear();
  }
};

TEST_F(OverviewClicks, AClickOpensThePage) {
  Click({300, 450});
  EXPECT_EQ(ShownPage(), 14);
  EXPECT_EQ(engine->GetZoomMode(), kZoomWholePage);
  EXPECT_THAT(window.events, ElementsAre("after", "after"));
}

TEST_F(OverviewClicks, AClickOnTheChosenPageOpensItToo) {
  Click({100, 100});
  EXPECT_EQ(ShownPage(), 9);
  EXPECT_EQ(engine->GetZoomMode(), kZoomWholePage);
}

TEST_F(OverviewClicks, AClickBesideThePagesDoesNothing) {
  Click({212, 100});
  EXPECT_EQ(engine->GetZoomMode(), kZoomOverview);
  EXPECT_THAT(window.events, IsEmpty());
}

TEST_F(OverviewClicks, APressThatEndsElsewhereIsNoClick) {
  surface->PressPointer({100, 100});
  surface->MovePointer({300, 100});
  surface->ReleasePointer({300, 100});
  surface->ReleasePointer({100, 100});
  EXPECT_EQ(engine->GetZoomMode(), kZoomOverview);
}

TEST_F(OverviewClicks, InOtherModesAClickOpensNothing) {
  engine->PutZoomMode(kZoomTwoPages);
  window.events.clear();
  Click({600, 300});
  EXPECT_EQ(engine->GetZoomMode(), kZoomTwoPages);
  EXPECT_EQ(ShownPage(), 9);
}

}  // namespace
}  // namespace pagivo::native
