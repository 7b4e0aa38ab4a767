#include "engine/native/view/zoom_menu.h"

#include <gtest/gtest.h>

#include <string>

#include "engine/print_engine.h"

namespace pagivo::native {
namespace {

TEST(ZoomMenu, HasTheTextsOfTheDesign) {
  std::string texts;
  for (const MenuItem& item : ZoomMenu()) {
    if (!texts.empty()) texts += '|';
    texts += item.text;
    EXPECT_TRUE(item.visible);
  }
  EXPECT_EQ(texts, "Whole &Page|Page &Width|&Two Pages|Thumb&nail");
}

TEST(ZoomMenu, ItsItemsStandForZoomModes) {
  const auto items = ZoomMenu();
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(ZoomModeOf(items[0].key), kZoomWholePage);
  EXPECT_EQ(ZoomModeOf(items[1].key), kZoomPageWidth);
  EXPECT_EQ(ZoomModeOf(items[2].key), kZoomTwoPages);
  EXPECT_EQ(ZoomModeOf(items[3].key), kZoomOverview);
}

TEST(ZoomMenu, OtherKeysStandForNothing) {
  for (const auto* key : {"", "Whole", "whole &page", "Heel"}) {
    EXPECT_EQ(ZoomModeOf(key), std::nullopt) << key;
  }
}

}  // namespace
}  // namespace pagivo::native
