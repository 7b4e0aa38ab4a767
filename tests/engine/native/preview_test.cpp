#include <initializer_list>
#include <vector>

#include "engine/native/engine_test.h"

namespace pagivo::native {
namespace {

// A window that notes its events and may turn pages away.
class Window final : public PrintEngineEvents {
 public:
  std::vector<std::string> events;
  std::int16_t turnAway = 0;  // asks for `instead` when this page is about to be shown
  std::int16_t instead = 0;

  void KeyDown(std::int16_t&, std::int16_t) override {}
  void BeforePageChange(std::int16_t& page) override {
    events.push_back("before " + std::to_string(page));
    if (page == turnAway) page = instead;
  }
  void AfterPageChange() override { events.emplace_back("after"); }
};

// An area for an A4 page at 100 percent, on a screen so dense that pixels round nothing.
constexpr SurfaceArea kFittingA4{
    .width = 11906 + 2 * 120, .height = 16838 + 2 * 120, .scale = kTwipsPerPixel};

class PreviewTest : public EngineTest {
 protected:
  PreviewTest() {
    engine->SetEvents(&window);
    engine->StartDoc();
    for (int page = 2; page <= 6; ++page) engine->NewPage();
    engine->EndDoc();
  }
  void Show(std::int16_t page) { engine->PutPreviewPage(page); }

  Window window;
};

TEST_F(PreviewTest, ShowsThePageThatIsPut) {
  Show(4);
  EXPECT_EQ(engine->GetPreviewPage(), 4);
}

TEST_F(PreviewTest, BelowOneMeansPageOneAndAboveTheCountTheLast) {
  for (const std::int16_t page : std::initializer_list<std::int16_t>{0, -1, -32768}) {
    Show(3);
    Show(page);
    EXPECT_EQ(engine->GetPreviewPage(), 1) << page;
  }
  for (const std::int16_t page : std::initializer_list<std::int16_t>{7, 32767}) {
    Show(3);
    Show(page);
    EXPECT_EQ(engine->GetPreviewPage(), 6) << page;
  }
}

TEST_F(PreviewTest, EveryChangeIsAnnouncedBeforeAndAfter) {
  Show(3);
  Show(9);
  EXPECT_EQ(window.events, (std::vector<std::string>{"before 3", "after", "before 6", "after"}));
}

TEST_F(PreviewTest, ThePageShownAlreadyIsNoChange) {
  Show(1);
  Show(0);
  EXPECT_TRUE(window.events.empty());
}

TEST_F(PreviewTest, TheHandlerMayChangeThePage) {
  window.turnAway = 6;
  window.instead = 5;
  Show(6);
  EXPECT_EQ(engine->GetPreviewPage(), 5);
  Show(6);
  EXPECT_EQ(engine->GetPreviewPage(), 5);
  EXPECT_EQ(window.events, (std::vector<std::string>{"before 6", "after", "before 6"}))
      << "the page that stays shown does not change";
}

TEST_F(PreviewTest, TheHandlersPageIsClampedAgain) {
  window.turnAway = 3;
  window.instead = -7;
  Show(2);
  Show(3);
  EXPECT_EQ(engine->GetPreviewPage(), 1);
  window.instead = 30000;
  Show(3);
  EXPECT_EQ(engine->GetPreviewPage(), 6);
}

TEST_F(PreviewTest, WithoutAWindowPagesChangeAllTheSame) {
  engine->SetEvents(nullptr);
  Show(5);
  EXPECT_EQ(engine->GetPreviewPage(), 5);
  EXPECT_TRUE(window.events.empty());
}

TEST_F(PreviewTest, ANewDocumentShowsItsFirstPageWithoutAnEvent) {
  Show(5);
  window.events.clear();
  engine->StartDoc();
  EXPECT_EQ(engine->GetPreviewPage(), 1);
  EXPECT_TRUE(window.events.empty());
}

TEST_F(PreviewTest, AnEmptyEngineShowsPageOne) {
  NativeEngine fresh;
  fresh.PutPreviewPage(std::int16_t{3});
  EXPECT_EQ(fresh.GetPreviewPage(), 1);
  EXPECT_GT(fresh.GetZoom(), 0);
}

TEST_F(PreviewTest, ZoomReadsTheEffectivePercentageInEveryMode) {
  engine->GetPreview()->PutArea(kFittingA4);
  EXPECT_NEAR(engine->GetZoom(), 100, 1e-9);
  for (const std::int32_t mode : {kZoomOverview, kZoomTwoPages}) {
    engine->PutZoomMode(mode);
    EXPECT_EQ(engine->GetZoomMode(), mode);
    EXPECT_LT(engine->GetZoom(), 60);
  }
  engine->PutZoomMode(kZoomPageWidth);
  EXPECT_NEAR(engine->GetZoom(), 100, 1e-9);
  engine->PutZoomMode(kZoomPercent);
  engine->PutZoom(75);
  EXPECT_EQ(engine->GetZoom(), 75);
}

TEST_F(PreviewTest, FittingFollowsTheShownPagesOwnPaper) {
  engine->StartDoc();
  engine->NewPage();
  engine->PutOrientation(1);
  engine->EndDoc();
  engine->GetPreview()->PutArea(kFittingA4);
  EXPECT_NEAR(engine->GetZoom(), 100, 1e-9);
  Show(2);
  EXPECT_NEAR(engine->GetZoom(), 100 * 11906.0 / 16838, 1e-4);
}

TEST_F(PreviewTest, ChangingThePageScrollsToItsTop) {
  engine->PutZoom(150);
  engine->PutScrollTop(32000);
  EXPECT_GT(engine->GetScrollTop(), 0);
  EXPECT_LT(engine->GetScrollTop(), 16838);
  Show(2);
  EXPECT_EQ(engine->GetScrollTop(), 0);
}

TEST_F(PreviewTest, BadZoomsAreErrors) {
  ExpectInvalidValue([&] { engine->PutZoomMode(5); });
  ExpectInvalidValue([&] { engine->PutZoom(0); });
}

TEST_F(PreviewTest, AScreenPixelIs15Twips) {
  EXPECT_EQ(engine->GetTwipsPerPixelX(), 15);
  EXPECT_EQ(engine->GetTwipsPerPixelY(), 15);
}

using PrintersTest = EngineTest;

TEST_F(PrintersTest, ThereAreNone) {
  EXPECT_EQ(engine->GetNDevices(), 0);
  EXPECT_EQ(engine->GetDevice(), "");
  EXPECT_EQ(engine->GetPort(), "");
  ExpectError(ErrorNumber::SubscriptOutOfRange, [&] { engine->GetDevices(0); });
}

TEST_F(PrintersTest, AnUnknownPrinterCannotBeChosen) {
  ExpectError(ErrorNumber::PrinterFailure, [&] { engine->PutDevice("Laser"); });
  EXPECT_EQ(engine->GetDevice(), "");
}

TEST_F(PrintersTest, CopiesAreAtLeastOne) {
  engine->PutCopies(32767);
  EXPECT_EQ(engine->GetCopies(), 32767);
  for (const std::int16_t copies : std::initializer_list<std::int16_t>{0, -1, -32768}) {
    ExpectInvalidValue([&] { engine->PutCopies(copies); });
  }
  EXPECT_EQ(engine->GetCopies(), 32767);
}

TEST_F(PrintersTest, PrintingSaysWhatIsMissing) {
  ExpectError(ErrorNumber::NoDocument, [&] { engine->PrintDoc(false, 1, 1); });
  engine->StartDoc();
  ExpectError(ErrorNumber::NoDocument, [&] { engine->PrintDoc(false, 1, 1); });
  engine->EndDoc();
  ExpectError(ErrorNumber::PrinterFailure, [&] { engine->PrintDoc(false, 1, 1); });
}

}  // namespace
}  // namespace pagivo::native
