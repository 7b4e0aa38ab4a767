// The preview window with the engine's surface in it, as a user works with them.
#include "engine/native/view/preview_surface.h"

#include <gmock/gmock.h>

#include <functional>

#include "engine/native/native_engine.h"
#include "pagivo/pg_print.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "support/user/headless_user.h"
#include "window/headless/headless_windows.h"
#include "window/key_codes.h"

namespace pagivo {
namespace {

constexpr std::int16_t kKeyWithoutMeaning = 65;  // the letter A

class PreviewSurface : public testing::Test {
 protected:
  ~PreviewSurface() override { print.VsPPEinde(); }

  void Compose(int pages) {
    print.VsPPInit();
    for (int page = 1; page <= pages; ++page) {
      print.VsPPPrint("Pagina " + std::to_string(page));
      print.VsPPNewPage();
    }
    print.VsPPFinish("Rapport");
  }
  // What a user does in the preview shown at that page.
  void Preview(std::int16_t page, const std::function<void(HeadlessUser& user)>& acts) {
    auto& windows = dynamic_cast<HeadlessWindows&>(*CurrentPlatform().windows);
    bool shown = false;
    windows.AddScript([&](Form& form) {
      shown = true;
      HeadlessUser user(form);
      acts(user);
    });
    print.VsPreviewFile(page);
    EXPECT_TRUE(shown);
  }
  static PrintEngine& Engine() { return *PreviewForm().vsPrint(); }
  static std::shared_ptr<native::PreviewSurface> Content() {
    return std::dynamic_pointer_cast<native::PreviewSurface>(
        PreviewForm().PreviewSurface().Content());
  }
  static std::string PageBox() { return PreviewForm().txtPaginanummer().Text(); }
  static std::size_t DrawnBitmaps() {
    const std::size_t before = Content()->Bitmaps().Drawn();
    const std::int32_t width = Content()->HorizontalRange().visible;
    const std::int32_t height = Content()->VerticalRange().visible;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                      static_cast<std::size_t>(height));
    Content()->Draw({width, height, pixels}, {});
    return Content()->Bitmaps().Drawn() - before;
  }
  // How often the view changes meanwhile.
  static int ChangesOf(const std::function<void()>& action) {
    int changes = 0;
    Content()->WhenChanged([&] { ++changes; });
    action();
    Content()->WhenChanged(nullptr);
    return changes;
  }

  PgPrint print;
};

TEST_F(PreviewSurface, TheWindowGivesTheSurfaceItsSize) {
  Compose(3);
  Preview(1, [](HeadlessUser& user) {
    user.Resize({.width = 12020, .height = 9000});
    EXPECT_EQ(Content()->HorizontalRange().visible, (12020 - 20) / 15);
    EXPECT_EQ(Content()->VerticalRange().visible, (9000 - 420) / 15);
  });
}

TEST_F(PreviewSurface, ArrowDownWalksThroughTheDocument) {
  Compose(3);
  Preview(1, [](HeadlessUser& user) {
    Engine().PutZoom(100);
    for (const int page : {1, 2}) {
      EXPECT_EQ(Engine().GetPreviewPage(), page);
      int steps = 0;
      double before = -1;
      while (Engine().GetPreviewPage() == page && steps < 1000) {
        EXPECT_GT(Engine().GetScrollTop(), before) << "each key goes further down";
        before = Engine().GetScrollTop();
        user.Press(kKeyDown);
        ++steps;
      }
      EXPECT_EQ(Engine().GetPreviewPage(), page + 1);
      EXPECT_EQ(Engine().GetScrollTop(), 0);
      EXPECT_GT(steps, 5);
      EXPECT_EQ(PageBox(), std::to_string(page + 1) + "/3");
    }
  });
}

TEST_F(PreviewSurface, ArrowDownStaysOnTheLastRealPage) {
  Compose(3);
  Preview(3, [](HeadlessUser& user) {
    Engine().PutZoom(100);
    Engine().PutScrollTop(32000);
    for (int i = 0; i < 100; ++i) {
      user.Press(kKeyDown);
      ASSERT_EQ(Engine().GetPreviewPage(), 3);
    }
    EXPECT_EQ(PageBox(), "3/3");
  });
}

TEST_F(PreviewSurface, ArrowUpAtTheTopGoesToTheBottomOfThePageBefore) {
  Compose(3);
  Preview(2, [](HeadlessUser& user) {
    Engine().PutZoom(100);
    user.Press(kKeyUp);
    EXPECT_EQ(Engine().GetPreviewPage(), 1);
    EXPECT_EQ(Content()->VerticalRange().value, Content()->VerticalRange().maximum);
    user.Press(kKeyUp);
    EXPECT_EQ(Content()->VerticalRange().value, Content()->VerticalRange().maximum - 40);
  });
}

TEST_F(PreviewSurface, InTheWholePageViewArrowsTurnPages) {
  Compose(3);
  Preview(1, [](HeadlessUser& user) {
    for (const auto& [key, page] : {std::pair{kKeyDown, 2},
                                    {kKeyDown, 3},
                                    {kKeyDown, 3},
                                    {kKeyUp, 2},
                                    {kKeyUp, 1},
                                    {kKeyUp, 1}}) {
      user.Press(key);
      EXPECT_EQ(Engine().GetPreviewPage(), page);
      EXPECT_EQ(PageBox(), std::to_string(page) + "/3");
    }
  });
}

TEST_F(PreviewSurface, PageKeysGoThroughThePairs) {
  Compose(5);
  Preview(1, [](HeadlessUser& user) {
    Content()->ClickMenu("&Two Pages");
    EXPECT_EQ(PageBox(), "1 + 2/5");
    user.Press(kKeyPageDown);
    EXPECT_EQ(PageBox(), "3 + 4/5");
    user.Press(kKeyPageDown);
    EXPECT_EQ(PageBox(), "5/5");
    EXPECT_EQ(Engine().GetZoomMode(), kZoomWholePage) << "the last page has no partner";
    user.Press(kKeyPageDown);
    EXPECT_EQ(PageBox(), "5/5");
  });
}

TEST_F(PreviewSurface, TheEmptyLastPageIsNeverShown) {
  Compose(3);
  Preview(3, [](HeadlessUser& user) {
    for (const std::int16_t key : {kKeyPageDown, kKeyEnd, kKeyRight, kKeyDown}) {
      for (const std::int32_t mode :
           {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
        Engine().PutZoomMode(mode);
        Engine().PutScrollTop(32000);
        user.Press(key);
        EXPECT_LE(Engine().GetPreviewPage(), 3) << "key " << key << " mode " << mode;
      }
    }
    Engine().PutPreviewPage(std::int16_t{1});
    Engine().PutZoomMode(kZoomOverview);
    EXPECT_EQ(DrawnBitmaps(), 3U);
  });
}

TEST_F(PreviewSurface, AClickInTheOverviewOpensThePage) {
  Compose(5);
  Preview(1, [](HeadlessUser& user) {
    user.Resize({.width = 15000, .height = 10000});
    Content()->ClickMenu("Thumb&nail");
    const auto layout = dynamic_cast<native::NativeEngine&>(Engine()).GetPreview()->Layout();
    ASSERT_EQ(layout.pages.size(), 5U);
    const auto& box = layout.pages[3].box;
    const SurfacePoint inside{box.left + 5.0, box.top + 5.0};
    Content()->PressPointer(inside);
    Content()->ReleasePointer(inside);
    EXPECT_EQ(Engine().GetZoomMode(), kZoomWholePage);
    EXPECT_EQ(PageBox(), "4/5");
  });
}

TEST_F(PreviewSurface, ZoomingOutOfAPairNamesTheOnePageThatIsLeft) {
  Compose(5);
  Preview(1, [](HeadlessUser& user) {
    Content()->ClickMenu("&Two Pages");
    user.Press(kKeyPlus);
    EXPECT_EQ(Engine().GetZoomMode(), kZoomPercent);
    EXPECT_EQ(PageBox(), "1/5");
  });
}

TEST_F(PreviewSurface, EveryResizeReturnsToTheWholePage) {
  Compose(2);
  Preview(1, [](HeadlessUser& user) {
    user.ClickToolbarMenu("tbAfdrukken", "P150");
    EXPECT_EQ(Engine().GetZoom(), 150);
    user.Resize({.width = 12000, .height = 9000});
    EXPECT_EQ(Engine().GetZoomMode(), kZoomWholePage);
  });
}

TEST_F(PreviewSurface, AKeyThatChangesNothingDrawsNothing) {
  Compose(6);
  Preview(1, [](HeadlessUser& user) {
    for (const std::int32_t mode :
         {kZoomPercent, kZoomOverview, kZoomTwoPages, kZoomWholePage, kZoomPageWidth}) {
      Engine().PutZoomMode(mode);
      EXPECT_EQ(ChangesOf([&] { user.Press('A'); }), 0) << "mode " << mode;
      EXPECT_EQ(ChangesOf([] { PreviewForm().ZetPaginaNummer(); }), 0) << "mode " << mode;
    }
  });
}

TEST_F(PreviewSurface, AHugeDocumentOpensAtOnce) {
  Compose(32000);
  Preview(31999, [](HeadlessUser& user) {
    EXPECT_EQ(DrawnBitmaps(), 1U);
    EXPECT_EQ(PageBox(), "31999/32000");
    user.Press(kKeyEnd);
    EXPECT_EQ(PageBox(), "32000/32000");
    EXPECT_EQ(DrawnBitmaps(), 1U);
    Content()->ClickMenu("Thumb&nail");
    EXPECT_LE(DrawnBitmaps(), 20U);
  });
}

TEST_F(PreviewSurface, AnEmptyDocumentIsShownAsGround) {
  print.VsPPInit();
  print.VsPPEinde();
  PreviewForm().Load();
  EXPECT_EQ(DrawnBitmaps(), 0U);
  for (const std::int16_t key : {kKeyPageDown, kKeyEnd, kKeyDown, kKeyPlus}) {
    Content()->PressKey(key, 0);
    EXPECT_EQ(Engine().GetPreviewPage(), 1);
  }
}

TEST_F(PreviewSurface, ADocumentMayBeDiscardedWhileItIsShown) {
  Compose(3);
  Preview(1, [this](HeadlessUser& user) {
    const auto content = Content();
    user.Press(kKeyPageDown);
    print.VsPPEinde();
    content->TurnWheel({10, 10}, 0, -1, 0);
    content->PressKey(kKeyPageDown, 0);
    content->ClickMenu("&Two Pages");
    EXPECT_FALSE(content->VerticalRange().wanted);
  });
}

}  // namespace
}  // namespace pagivo
