#include "preview/frm_afdrukken.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "preview/watermark_files.h"
#include "support/recording_platform.h"

namespace pagivo::testing {
namespace {

class PreviewWindow : public ::testing::Test {
 protected:
  PrintEngineEvents& Events() {
    form->Load();
    return *platform.Engine().Events();
  }

  RecordingPlatform platform;
  std::shared_ptr<frmAfdrukken> form = std::make_shared<frmAfdrukken>(CurrentPlatform());
};

TEST_F(PreviewWindow, IsDesignedSizableWithItsCaption) {
  EXPECT_EQ(form->Caption(), "Afdrukvoorbeeld");
  EXPECT_TRUE(form->Design().sizable);
  EXPECT_EQ(form->Design().client.width, 9315);
  EXPECT_EQ(form->Design().client.height, 4215);
}

TEST_F(PreviewWindow, MakesItsEngineWhenItIsLoaded) {
  EXPECT_EQ(platform.EnginesMade(), 0);
  form->Load();
  EXPECT_EQ(platform.EnginesMade(), 1);
}

TEST_F(PreviewWindow, ReachingAnyControlLoadsIt) {
  const std::function<void()> reaches[] = {[&] { form->vsPrint(); }, [&] { form->Exporter(); },
                                           [&] { form->tbAfdrukken(); },
                                           [&] { form->imageWatermerk(0); }};
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
  form->Load();
  form.reset();
  EXPECT_EQ(platform.Engine().Events(), nullptr);
}

TEST_F(PreviewWindow, ClosingByTheUserOnlyHidesIt) {
  const std::shared_ptr<PrintEngine> engine = form->vsPrint();
  platform.Windows().AddScript([](Form& shown) {
    shown.Unload(UnloadMode::ControlMenu);
    EXPECT_FALSE(shown.Visible());
  });
  form->ShowModal();
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_EQ(form->vsPrint(), engine);
}

TEST_F(PreviewWindow, EveryOtherUnloadingGoesAhead) {
  for (const UnloadMode mode : {UnloadMode::Code, UnloadMode::SystemShutdown}) {
    form->Load();
    form->Unload(mode);
    EXPECT_FALSE(form->IsLoaded());
  }
}

// --- The engine's page turning ----------------------------------------------------------------

TEST_F(PreviewWindow, TurnsTheEnginesLastPageBackToTheDocuments) {
  struct Turn {
    std::int16_t asked;
    std::int16_t shown;
  };
  PrintEngineEvents& events = Events();
  platform.Engine().Answer("PageCount", std::int16_t{6});
  for (const Turn turn : {Turn{1, 1}, Turn{5, 5}, Turn{6, 5}, Turn{7, 7}, Turn{0, 0}}) {
    std::int16_t page = turn.asked;
    events.BeforePageChange(page);
    EXPECT_EQ(page, turn.shown);
  }
}

TEST_F(PreviewWindow, LeavesThePageWhenTheTurningOverflows) {
  PrintEngineEvents& events = Events();
  constexpr std::int16_t kLowest = std::numeric_limits<std::int16_t>::min();
  platform.Engine().Answer("PageCount", kLowest);
  std::int16_t page = kLowest;
  EXPECT_THROW(events.BeforePageChange(page), Error);
  EXPECT_EQ(page, kLowest);
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
