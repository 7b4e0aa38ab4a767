#include <gmock/gmock.h>

#include <map>

#include "engine/native/view/preview_input.h"
#include "engine/native/view/surface_test.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using testing::ElementsAre;

const std::map<std::int16_t, PreviewCommand> kMeanings{
    {38, PreviewCommand::LineUp},    {40, PreviewCommand::LineDown}, {37, PreviewCommand::LineLeft},
    {39, PreviewCommand::LineRight}, {33, PreviewCommand::ViewUp},   {34, PreviewCommand::ViewDown},
    {36, PreviewCommand::FirstPage}, {35, PreviewCommand::LastPage}, {107, PreviewCommand::ZoomIn},
    {187, PreviewCommand::ZoomIn},   {109, PreviewCommand::ZoomOut}, {189, PreviewCommand::ZoomOut},
};

TEST(PreviewKeys, EachHasItsMeaningAndOthersHaveNone) {
  for (std::int16_t key = -1; key < 300; ++key) {
    const auto command = CommandOf(key, 0, kZoomWholePage);
    if (const auto meaning = kMeanings.find(key); meaning != kMeanings.end()) {
      EXPECT_EQ(command, meaning->second) << key;
    } else {
      EXPECT_EQ(command, std::nullopt) << key;
    }
  }
}

TEST(PreviewKeys, EnterOpensAPageOfTheOverviewOnly) {
  EXPECT_EQ(CommandOf(13, 0, kZoomOverview), PreviewCommand::OpenPage);
  for (const std::int32_t mode : {kZoomPercent, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
    EXPECT_EQ(CommandOf(13, 0, mode), std::nullopt) << mode;
  }
}

TEST(PreviewKeys, ShiftAndControlMakeNoDifferenceButAltDoes) {
  for (const auto& [key, command] : kMeanings) {
    for (const std::int16_t shift : {kShiftKey, kControlKey}) {
      EXPECT_EQ(CommandOf(key, shift, kZoomPercent), command) << key;
    }
    EXPECT_EQ(CommandOf(key, kAltKey, kZoomPercent), std::nullopt) << key;
  }
}

// --- On a document ----------------------------------------------------------------------------

class PreviewKeysPressed : public SurfaceTest {
 protected:
  PreviewKeysPressed() {
    Compose(20);
    PutArea(416, 400);  // a page's width at 50 percent, two thirds of its height
  }
  bool Press(std::int16_t keyCode, std::int16_t shift = 0) {
    return surface->PressKey(keyCode, shift);
  }
  // Page 10, scrolled down by so many pixels.
  void ShowAt(double percent, int top) {
    engine->PutZoom(percent);
    ShowPage(10);
    surface->ScrollTo(0, top);
  }
};

TEST_F(PreviewKeysPressed, TheWindowHearsOfEachKeyFirst) {
  Press(kKeyPageDown, kShiftKey);
  ASSERT_FALSE(window.events.empty());
  EXPECT_EQ(window.events.front(), "key 34 1");
  window.events.clear();
  EXPECT_FALSE(Press('A'));
  EXPECT_THAT(window.events, ElementsAre("key 65 0"));
}

TEST_F(PreviewKeysPressed, AKeyThatTheWindowConsumesDoesNothingMore) {
  window.consumes = kKeyPageDown;
  EXPECT_TRUE(Press(kKeyPageDown)) << "it has had its use";
  EXPECT_EQ(ShownPage(), 1);
}

TEST_F(PreviewKeysPressed, KeysScrollAndTurnPages) {
  constexpr int kBottom = 216;  // of 600 pixels and the gaps in 400
  struct Row {
    std::int16_t key;
    int from;  // pixels above the view, on page 10 at 50 percent
    int page, top;
  };
  for (const Row& row : {
           Row{kKeyDown, 0, 10, 40},
           Row{kKeyDown, 200, 10, kBottom},
           Row{kKeyDown, kBottom, 10, kBottom},
           Row{kKeyUp, 100, 10, 60},
           Row{kKeyUp, 30, 10, 0},
           Row{kKeyUp, 0, 10, 0},
           Row{kKeyPageDown, 0, 10, kBottom},
           Row{kKeyPageDown, kBottom, 11, 0},
           Row{kKeyPageUp, kBottom, 10, 0},
           Row{kKeyPageUp, 0, 9, kBottom},
           Row{kKeyHome, 100, 1, 0},
           Row{kKeyEnd, 100, 20, kBottom},
           Row{kKeyLeft, 100, 9, kBottom},
           Row{kKeyRight, 100, 11, 0},
       }) {
    ShowAt(50, row.from);
    EXPECT_TRUE(Press(row.key));
    EXPECT_EQ(ShownPage(), row.page) << "key " << row.key << " from " << row.from;
    EXPECT_EQ(Top(), row.top) << "key " << row.key << " from " << row.from;
  }
}

TEST_F(PreviewKeysPressed, AViewLeavesALineToReadOnBy) {
  ShowAt(100, 100);
  Press(kKeyPageDown);
  EXPECT_EQ(Top(), 100 + 400 - 40);
  Press(kKeyPageUp);
  EXPECT_EQ(Top(), 100);
}

TEST_F(PreviewKeysPressed, LinesGrowWithTheScale) {
  PutArea(832, 800, 2);
  ShowAt(50, 0);
  Press(kKeyDown);
  EXPECT_EQ(Top(), 80);
}

TEST_F(PreviewKeysPressed, APageThatIsTooWideScrollsSideways) {
  ShowAt(100, 0);
  for (const auto& [key, left] :
       {std::pair{kKeyRight, 40}, {kKeyRight, 80}, {kKeyLeft, 40}, {kKeyLeft, 0}, {kKeyLeft, 0}}) {
    Press(key);
    EXPECT_EQ(Left(), left);
    EXPECT_EQ(ShownPage(), 10);
  }
}

TEST_F(PreviewKeysPressed, ViewsThatDoNotScrollTurn) {
  PutArea(840, 624);  // an overview of four by two
  struct Row {
    std::int32_t mode;
    std::int16_t key;
    int from, to;
  };
  for (const Row& row : {
           Row{kZoomWholePage, kKeyPageDown, 9, 10},
           Row{kZoomWholePage, kKeyPageUp, 9, 8},
           Row{kZoomWholePage, kKeyRight, 9, 10},
           Row{kZoomWholePage, kKeyLeft, 9, 8},
           Row{kZoomTwoPages, kKeyPageDown, 9, 11},
           Row{kZoomTwoPages, kKeyPageUp, 9, 7},
           Row{kZoomTwoPages, kKeyRight, 9, 11},
           Row{kZoomTwoPages, kKeyLeft, 9, 7},
           Row{kZoomTwoPages, kKeyPageUp, 2, 1},
           Row{kZoomTwoPages, kKeyEnd, 9, 19},
           Row{kZoomOverview, kKeyPageDown, 9, 17},
           Row{kZoomOverview, kKeyPageUp, 9, 1},
           Row{kZoomOverview, kKeyRight, 9, 10},
           Row{kZoomOverview, kKeyLeft, 9, 8},
           Row{kZoomOverview, kKeyPageDown, 17, 20},
           Row{kZoomOverview, kKeyPageUp, 5, 1},
           Row{kZoomOverview, kKeyEnd, 9, 20},
           Row{kZoomOverview, kKeyHome, 9, 1},
       }) {
    engine->PutZoomMode(row.mode);
    ShowPage(row.from);
    Press(row.key);
    EXPECT_EQ(ShownPage(), row.to) << "mode " << row.mode << " key " << row.key;
  }
}

TEST_F(PreviewKeysPressed, TheDocumentEndsAtTheLastPageThatTheWindowAdmits) {
  for (const std::int32_t mode : {kZoomWholePage, kZoomPageWidth, kZoomOverview}) {
    engine->PutZoomMode(mode);
    ShowPage(20);
    surface->ScrollTo(0, 100000);
    Press(kKeyPageDown);
    EXPECT_EQ(ShownPage(), 20) << mode;
    EXPECT_EQ(Top(), Bottom()) << mode;
  }
}

TEST_F(PreviewKeysPressed, TheDocumentBeginsAtItsFirstPage) {
  for (const std::int32_t mode : {kZoomWholePage, kZoomPageWidth, kZoomTwoPages, kZoomOverview}) {
    engine->PutZoomMode(mode);
    ShowPage(1);
    Press(kKeyPageUp);
    EXPECT_EQ(ShownPage(), 1) << mode;
    EXPECT_EQ(Top(), 0) << mode;
  }
}

TEST_F(PreviewKeysPressed, PairsStayPairsAtTheEnd) {
  engine->PutZoomMode(kZoomTwoPages);
  ShowPage(19);
  Press(kKeyPageDown);
  EXPECT_EQ(ShownPage(), 19) << "with page 20 beside it";
  Compose(5);
  ShowPage(3);
  Press(kKeyPageDown);
  EXPECT_EQ(ShownPage(), 5) << "which stands alone";
  Press(kKeyHome);
  Press(kKeyEnd);
  EXPECT_EQ(ShownPage(), 5);
}

TEST_F(PreviewKeysPressed, PageChangesOfTheUserRunTheWindowsEvents) {
  ShowPage(3);
  window.events.clear();
  Press(kKeyPageDown);
  EXPECT_THAT(window.events, ElementsAre("key 34 0", "after"));
  EXPECT_THAT(window.asked, testing::Contains(4));
}

TEST_F(PreviewKeysPressed, EnterOpensTheChosenPageOfTheOverview) {
  EXPECT_FALSE(Press(kKeyEnter));
  engine->PutZoomMode(kZoomOverview);
  ShowPage(7);
  window.events.clear();
  EXPECT_TRUE(Press(kKeyEnter));
  EXPECT_EQ(ShownPage(), 7);
  EXPECT_EQ(engine->GetZoomMode(), kZoomWholePage);
  EXPECT_THAT(window.events, ElementsAre("key 13 0", "after"));
}

TEST_F(PreviewKeysPressed, PlusAndMinusZoomByAStep) {
  engine->PutZoom(100);
  for (const auto& [key, percent] : {std::pair{kKeyPlus, 125.0},
                                     {kKeyNumberPadPlus, 150.0},
                                     {kKeyMinus, 125.0},
                                     {kKeyNumberPadMinus, 100.0}}) {
    EXPECT_TRUE(Press(key));
    EXPECT_EQ(engine->GetZoom(), percent);
    EXPECT_EQ(engine->GetZoomMode(), kZoomPercent);
  }
}

TEST_F(PreviewKeysPressed, ZoomingStopsAtItsLimits) {
  for (int i = 0; i < 30; ++i) Press(kKeyPlus);
  EXPECT_EQ(engine->GetZoom(), kMaximumZoom);
  for (int i = 0; i < 30; ++i) Press(kKeyMinus);
  EXPECT_EQ(engine->GetZoom(), kMinimumZoom);
}

TEST_F(PreviewKeysPressed, ZoomingFromAFittedPageGoesToTheNextStepAndTellsTheWindow) {
  engine->PutZoomMode(kZoomTwoPages);
  ShowPage(3);
  const double fitted = engine->GetZoom();
  window.events.clear();
  Press(kKeyPlus);
  EXPECT_EQ(engine->GetZoom(), ZoomStepAbove(fitted));
  EXPECT_EQ(ShownPage(), 3);
  EXPECT_THAT(window.events, ElementsAre("key 187 0", "after"));
}

TEST_F(PreviewKeysPressed, WithoutADocumentEveryKeyIsHarmless) {
  const auto empty = std::make_shared<NativeEngine>();
  PreviewSurface blank(empty->GetPreview());
  for (const std::int32_t mode :
       {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
    for (std::int16_t key = 1; key < 256; ++key) {
      empty->PutZoomMode(mode);
      blank.PressKey(key, 0);
      EXPECT_EQ(empty->GetPreviewPage(), 1);
    }
  }
}

TEST_F(PreviewKeysPressed, AnErrorOfTheWindowIsPassedOn) {
  class Failing final : public PrintEngineEvents {
   public:
    void KeyDown(std::int16_t&, std::int16_t) override {
      throw Error(ErrorNumber::InvalidArgument, "nee");
    }
    void BeforePageChange(std::int16_t&) override {}
    void AfterPageChange() override {}
  } failing;
  engine->SetEvents(&failing);
  ExpectError(ErrorNumber::InvalidArgument, [this] { Press(kKeyPageDown); });
  EXPECT_EQ(ShownPage(), 1);
}

}  // namespace
}  // namespace pagivo::native
