#include "preview/frm_afdrukken.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "preview/embedded_pictures.h"
#include "preview/preview_test.h"
#include "preview/toolbar_design.h"
#include "window/key_codes.h"

namespace pagivo::testing {
namespace {

class PreviewWindow : public PreviewTest {};

TEST_F(PreviewWindow, IsDesignedSizableWithItsCaption) {
  EXPECT_EQ(form->Caption(), "Afdrukvoorbeeld");
  EXPECT_TRUE(form->Design().sizable);
  EXPECT_EQ(form->Design().client.width, 9315);
  EXPECT_EQ(form->Design().client.height, 4215);
}

TEST_F(PreviewWindow, MakesItsEngineWhenItIsLoaded) {
  form->Unload();
  EXPECT_EQ(platform.EnginesMade(), 1);
  form->Load();
  EXPECT_EQ(platform.EnginesMade(), 2);
}

TEST_F(PreviewWindow, ReachingAnyControlLoadsIt) {
  const std::function<void()> reaches[] = {
      [&] { form->vsPrint(); },        [&] { form->Exporter(); },
      [&] { form->tbAfdrukken(); },    [&] { form->imageWatermerk(0); },
      [&] { form->PreviewSurface(); }, [&] { form->txtPaginanummer(); }};
  for (const auto& reach : reaches) {
    form->Unload();
    reach();
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_FALSE(form->Visible());
  }
}

TEST_F(PreviewWindow, UnloadingGivesUpEngineAndEvents) {
  const std::shared_ptr<PrintEngine> engine = form->vsPrint();
  EXPECT_NE(platform.Engine().Events(), nullptr);
  form->Unload();
  EXPECT_EQ(platform.Engine().Events(), nullptr);
  EXPECT_NE(form->vsPrint(), engine);
}

TEST_F(PreviewWindow, ReleasingItLoadedGivesUpItsEvents) {
  auto other = std::make_shared<frmAfdrukken>(CurrentPlatform(), State());
  other->Load();
  EXPECT_NE(platform.Engine().Events(), nullptr);
  other.reset();
  EXPECT_EQ(platform.Engine().Events(), nullptr);
}

TEST_F(PreviewWindow, ClosingByTheUserOnlyHidesIt) {
  const std::shared_ptr<PrintEngine> engine = form->vsPrint();
  platform.Windows().AddScript([](Form& shown, FormUser&) {
    shown.Unload(UnloadMode::ControlMenu);
    EXPECT_FALSE(shown.Visible());
  });
  form->ShowModal();
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_EQ(form->vsPrint(), engine);
}

TEST_F(PreviewWindow, AskedForWhileItIsShownItStaysWithoutAnError) {
  platform.Windows().AddScript([](Form& shown, FormUser&) {
    EXPECT_NO_THROW(ToonVoorbeeld(State().HostForm));
    EXPECT_TRUE(shown.Visible());
  });
  EXPECT_NO_THROW(ToonVoorbeeld(State().HostForm));
  EXPECT_FALSE(form->Visible());
}

TEST_F(PreviewWindow, EveryOtherUnloadingGoesAhead) {
  for (const UnloadMode mode : {UnloadMode::Code, UnloadMode::SystemShutdown}) {
    form->Load();
    form->Unload(mode);
    EXPECT_FALSE(form->IsLoaded());
  }
}

// --- The toolbar ------------------------------------------------------------------------------

TEST_F(PreviewWindow, HasElevenToolbarButtons) {
  struct Expected {
    std::string_view key;
    ToolbarButton::Style style;
    std::string_view toolTip;
    float width = 0;
    bool enabled = true;
  };
  using enum ToolbarButton::Style;
  const Expected expected[] = {
      {"Sluiten", Button, "Afdrukvoorbeeldvenster sluiten"},
      {"", Separator, ""},
      {"Eerste", Button, "Eerste pagina"},
      {"Vorige", Button, "Vorige pagina"},
      {"Paginanummer", Placeholder, "", 600, false},
      {"Volgende", Button, "Volgende pagina"},
      {"Laatste", Button, "Laatste pagina"},
      {"", Separator, ""},
      {"Zoom", DropDown, "Zoom"},
      {"AfdrukkenSep", Separator, ""},
      {"Afdrukken", Button, "Afdrukken"},
  };
  const auto buttons = form->tbAfdrukken().Buttons();
  ASSERT_EQ(buttons.size(), std::size(expected));
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    EXPECT_EQ(buttons[i].key, expected[i].key);
    EXPECT_EQ(buttons[i].style, expected[i].style) << buttons[i].key;
    EXPECT_EQ(buttons[i].toolTip, expected[i].toolTip) << buttons[i].key;
    EXPECT_EQ(buttons[i].width, expected[i].width) << buttons[i].key;
    EXPECT_EQ(buttons[i].enabled, expected[i].enabled) << buttons[i].key;
    EXPECT_TRUE(buttons[i].visible) << buttons[i].key;
  }
}

TEST_F(PreviewWindow, HasTheZoomMenuBehindItsButton) {
  struct Row {
    std::string_view text, key;
    bool visible = true;
  };
  const Row rows[] = {
      {"&Hele pagina", "Heel"},
      {"&Paginabreedte", "Breedte"},
      {"&Twee pagina's", "Twee"},
      {"&Overzicht", "Overzicht", false},
      {"-", "Streep"},
      {"15&0%", "P150"},
      {"&100%", "P100"},
      {"&75%", "P75"},
      {"&50%", "P50"},
      {"&25%", "P25"},
  };
  for (const ToolbarButton& button : form->tbAfdrukken().Buttons()) {
    EXPECT_EQ(button.menu.empty(), button.key != "Zoom") << button.key;
  }
  const auto menu = form->tbAfdrukken().Button("Zoom").menu;
  ASSERT_EQ(menu.size(), std::size(rows));
  for (std::size_t i = 0; i < menu.size(); ++i) {
    EXPECT_EQ(menu[i].text, rows[i].text);
    EXPECT_EQ(menu[i].key, rows[i].key);
    EXPECT_EQ(menu[i].visible, rows[i].visible) << rows[i].key;
  }
}

TEST_F(PreviewWindow, TakesItsImagesFromTheSecondOfTwoLists) {
  for (const ImageList* list : {&kImageList1, &kImageList2}) {
    EXPECT_EQ(list->size, 16);
    EXPECT_THAT(list->keys, ElementsAre("Sluiten", "Eerste", "Vorige", "Volgende", "Laatste",
                                        "Zoom", "Afdrukken"));
  }
  EXPECT_EQ(form->tbAfdrukken().Design().images, &kImageList2);
  EXPECT_EQ(kImageList2.name, "ImageList2");
}

TEST_F(PreviewWindow, HasAnImageForEveryButtonThatShowsOne) {
  for (const ToolbarButton& button : form->tbAfdrukken().Buttons()) {
    const bool shows = button.style == ToolbarButton::Style::Button ||
                       button.style == ToolbarButton::Style::DropDown;
    EXPECT_EQ(std::ranges::count(kImageKeys, button.key), shows ? 1 : 0) << button.key;
  }
}

// --- The page box -----------------------------------------------------------------------------

TEST_F(PreviewWindow, HasItsPageBoxInTheToolbar) {
  const TextBox& box = form->txtPaginanummer();
  EXPECT_EQ(box.Container(), &form->tbAfdrukken());
  EXPECT_EQ(box.Design().placement, (Placement{1080, 60, 600, 330}));
  EXPECT_EQ(box.FontName(), "Tahoma");
  EXPECT_EQ(box.FontSize(), 8.25F);
  EXPECT_EQ(box.Text(), "Text1");
  EXPECT_EQ(box.Left(), form->tbAfdrukken().LeftOf("Paginanummer"));
}

TEST_F(PreviewWindow, PaintingRefreshesThePageBox) {
  Show(12, 3);
  form->Paint();
  EXPECT_EQ(PageBox(), "3/12");
}

TEST_F(PreviewWindow, ThePageBoxIsCurrentWhenTheWindowAppears) {
  Show(12, 4);
  User([this](FormUser&) { EXPECT_EQ(PageBox(), "4/12"); });
  form->ShowModal();
}

TEST_F(PreviewWindow, ThePageBoxIsRepaintedWhenItsTextStaysTheSame) {
  class CountingPeer : public ControlPeer {
   public:
    explicit CountingPeer(int& repaints) : repaints_(repaints) {}
    void Update() override { ++repaints_; }
    void Focus() override {}

   private:
    int& repaints_;
  };
  Show(12, 3);
  form->ZetPaginaNummer();
  int repaints = 0;
  form->txtPaginanummer().Attach(std::make_unique<CountingPeer>(repaints));
  form->ZetPaginaNummer();
  EXPECT_EQ(repaints, 1);
}

// --- Layout -----------------------------------------------------------------------------------

TEST_F(PreviewWindow, ResizingLaysOutTheEngineUnderTheToolbar) {
  form->tbAfdrukken().PutHeight(600);
  form->PutSize({.width = 6000, .height = 5000});
  EXPECT_EQ(form->PreviewSurface().Left(), 20);
  EXPECT_EQ(form->PreviewSurface().Top(), form->tbAfdrukken().Height());
  EXPECT_EQ(form->PreviewSurface().Width(), form->ClientWidth() - 20);
  EXPECT_EQ(form->PreviewSurface().Height(), form->ClientHeight() - form->tbAfdrukken().Height());
}

TEST_F(PreviewWindow, ThePageBoxFollowsItsPlaceholderSidewaysOnly) {
  form->tbAfdrukken().Button("Sluiten").visible = false;
  form->PutWidth(6000);
  const TextBox& box = form->txtPaginanummer();
  EXPECT_EQ(box.Left(), 750);
  EXPECT_EQ(box.Top(), 60);
  EXPECT_EQ(box.Width(), 600);
  EXPECT_EQ(box.Height(), 330);
}

TEST_F(PreviewWindow, WithoutThePlaceholderThePageBoxStaysAndTheRestIsLaidOut) {
  form->tbAfdrukken().Button("Paginanummer").key = "Anders";
  form->PutWidth(6000);
  EXPECT_EQ(form->txtPaginanummer().Left(), 1080);
  EXPECT_EQ(form->PreviewSurface().Width(), form->ClientWidth() - 20);
}

TEST_F(PreviewWindow, EveryResizeReturnsToTheWholePage) {
  form->tbAfdrukken().ClickMenu("P150");
  EXPECT_THAT(DoingsOf([this] { form->PutWidth(6000); }), ElementsAre("put ZoomMode Long 3"));
}

TEST_F(PreviewWindow, TheZoomIsReadOnceTheWholePageIsShown) {
  Engine().ClearLog();
  form->PutWidth(6000);
  EXPECT_THAT(Engine().Log(), ElementsAre("put ZoomMode Long 3", "get Zoom"));
}

TEST_F(PreviewWindow, RemembersTheZoomOfTheResizeWithinItsLimits) {
  struct Row {
    double zoom;
    int remembered;
  };
  float width = 5000;
  for (const Row& row : {Row{29, 30}, Row{30, 30}, Row{62.5, 62}, Row{63.5, 64}, Row{250, 250},
                         Row{251, 250}, Row{0, 30}}) {
    Engine().Answer("Zoom", row.zoom);
    form->PutWidth(++width);
    EXPECT_EQ(form->ZoomPercent(), row.remembered) << row.zoom;
  }
}

TEST_F(PreviewWindow, AFailingEngineDoesNotStopTheLayout) {
  Engine().FailOn("put ZoomMode");
  Engine().FailOn("get Zoom");
  form->PutSize({.width = 6000, .height = 5000});
  EXPECT_EQ(form->PreviewSurface().Width(), form->ClientWidth() - 20);
  EXPECT_EQ(form->ZoomPercent(), 30);
}

TEST_F(PreviewWindow, AResizeWorksOnTheProcessesWindowWhicheverWindowItReaches) {
  const auto other = std::make_shared<frmAfdrukken>(CurrentPlatform(), State());
  other->Load();
  form->PreviewSurface().PutLeft(1);
  other->PreviewSurface().PutLeft(2);
  other->PutWidth(6000);
  EXPECT_EQ(form->PreviewSurface().Left(), 20);
  EXPECT_EQ(other->PreviewSurface().Left(), 2);
}

// --- Keys -------------------------------------------------------------------------------------

TEST_F(PreviewWindow, EscHidesItWhicheverControlHasTheFocus) {
  for (const auto* name : {"txtPaginanummer", "vsPrint"}) {
    User([&](FormUser& user) {
      form->Get(name).Focus();
      user.Press(27);
      EXPECT_FALSE(form->Visible());
      EXPECT_TRUE(EngineHasFocus());
    });
    form->ShowModal();
  }
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(PreviewWindow, OtherKeysLeaveItOpen) {
  User([this](FormUser& user) {
    for (const std::int16_t key : {kKeyEnter, kKeyUp, kKeyDown}) user.Press(key);
    EXPECT_TRUE(form->Visible());
  });
  form->ShowModal();
}

TEST_F(PreviewWindow, ClosingAndShowingAgainShowsTheSameDocument) {
  Show(12, 3);
  const std::shared_ptr<PrintEngine> engine = form->vsPrint();
  User([](FormUser& user) { user.Close(); });
  form->ShowModal();
  User([&](FormUser&) {
    EXPECT_EQ(form->vsPrint(), engine);
    EXPECT_EQ(PageBox(), "3/12");
  });
  form->ShowModal();
}

// --- Watermark pictures -----------------------------------------------------------------------

TEST_F(PreviewWindow, DecodesAWatermarkPictureOnceWhenItIsFirstAskedFor) {
  const ObjectRef last = form->imageWatermerk(2).Picture();
  const ObjectRef first = form->imageWatermerk(0).Picture();
  EXPECT_EQ(Describe(last), "Object decoded 1");
  EXPECT_EQ(Describe(first), "Object decoded 2");
  EXPECT_EQ(form->imageWatermerk(2).Picture(), last);
}

TEST_F(PreviewWindow, HasThreeWatermarkPictures) {
  EXPECT_THROW(form->imageWatermerk(-1), Error);
  EXPECT_THROW(form->imageWatermerk(3), Error);
}

std::uint32_t BigEndian(std::span<const std::uint8_t> bytes) {
  std::uint32_t value = 0;
  for (const std::uint8_t byte : bytes.first(4)) value = value << 8 | byte;
  return value;
}

TEST(WatermarkFiles, ArePngPicturesOfTheDesignedSizeInSixteenColours) {
  constexpr std::string_view kSignature = "\x89PNG\r\n\x1a\n";
  for (const auto& file : kWatermarkFiles) {
    ASSERT_GT(file.size(), 26U);
    EXPECT_TRUE(std::equal(kSignature.begin(), kSignature.end(), file.begin(),
                           [](char expected, std::uint8_t byte) {
                             return static_cast<std::uint8_t>(expected) == byte;
                           }));
    // The header chunk: width, height, bits a pixel, palette.
    EXPECT_EQ(BigEndian(file.subspan(16)), 288U);
    EXPECT_EQ(BigEndian(file.subspan(20)), 396U);
    EXPECT_EQ(file[24], 4);
    EXPECT_EQ(file[25], 3);
  }
}

TEST(WatermarkFiles, DifferFromEachOther) {
  EXPECT_FALSE(std::ranges::equal(kWatermarkFiles[0], kWatermarkFiles[1]));
  EXPECT_FALSE(std::ranges::equal(kWatermarkFiles[1], kWatermarkFiles[2]));
  EXPECT_FALSE(std::ranges::equal(kWatermarkFiles[0], kWatermarkFiles[2]));
}

}  // namespace
}  // namespace pagivo::testing
