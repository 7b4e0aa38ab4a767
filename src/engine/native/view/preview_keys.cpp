#include "engine/native/view/preview_keys.h"

#include <algorithm>
#include <array>

#include "engine/print_engine.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

struct Row {
  std::int16_t keyCode;
  PreviewCommand command;
};

constexpr std::array kKeys{
    Row{kKeyUp, PreviewCommand::LineUp},      Row{kKeyDown, PreviewCommand::LineDown},
    Row{kKeyLeft, PreviewCommand::LineLeft},  Row{kKeyRight, PreviewCommand::LineRight},
    Row{kKeyPageUp, PreviewCommand::ViewUp},  Row{kKeyPageDown, PreviewCommand::ViewDown},
    Row{kKeyHome, PreviewCommand::FirstPage}, Row{kKeyEnd, PreviewCommand::LastPage},
    Row{kKeyEnter, PreviewCommand::OpenPage}, Row{kKeyNumberPadPlus, PreviewCommand::ZoomIn},
    Row{kKeyPlus, PreviewCommand::ZoomIn},    Row{kKeyNumberPadMinus, PreviewCommand::ZoomOut},
    Row{kKeyMinus, PreviewCommand::ZoomOut},
};

}  // namespace

std::optional<PreviewCommand> CommandOf(std::int16_t keyCode, std::int16_t shift,
                                        std::int32_t zoomMode) noexcept {
  if ((shift & kAltKey) != 0) return std::nullopt;
  const auto* const row = std::ranges::find(kKeys, keyCode, &Row::keyCode);
  if (row == kKeys.end()) return std::nullopt;
  if (row->command == PreviewCommand::OpenPage && zoomMode != kZoomOverview) return std::nullopt;
  return row->command;
}

}  // namespace pagivo::native
