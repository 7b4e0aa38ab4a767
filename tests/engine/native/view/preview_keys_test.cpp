#include "engine/native/view/preview_keys.h"

#include <gtest/gtest.h>

#include <map>

#include "engine/print_engine.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

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

}  // namespace
}  // namespace pagivo::native
