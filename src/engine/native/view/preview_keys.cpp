#include <algorithm>
#include <array>

#include "engine/native/view/preview_input.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using Direction = Preview::Direction;

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

void Do(Preview& preview, PreviewCommand command) {
  const double line = preview.ScrollStep();
  // A line of what was visible stays so, to read on by.
  const double view = std::max(line, preview.Area().height - line);
  switch (command) {
    case PreviewCommand::LineUp:
      preview.ScrollBy(0, -line);
      return;
    case PreviewCommand::LineDown:
      preview.ScrollBy(0, line);
      return;
    case PreviewCommand::LineLeft:
      return preview.ScrollSideways(-line);
    case PreviewCommand::LineRight:
      return preview.ScrollSideways(line);
    case PreviewCommand::ViewUp:
      return preview.ScrollDown(-view);
    case PreviewCommand::ViewDown:
      return preview.ScrollDown(view);
    case PreviewCommand::FirstPage:
      return preview.ShowFirstPage();
    case PreviewCommand::LastPage:
      return preview.ShowLastPage();
    case PreviewCommand::OpenPage:
      return preview.OpenPage(preview.Page());
    case PreviewCommand::ZoomIn:
      return preview.ZoomInMiddle(Direction::Forward);
    case PreviewCommand::ZoomOut:
      return preview.ZoomInMiddle(Direction::Back);
  }
}

}  // namespace

std::optional<PreviewCommand> CommandOf(std::int16_t keyCode, std::int16_t shift,
                                        std::int32_t zoomMode) noexcept {
  if ((shift & kAltKey) != 0) return std::nullopt;
  const auto* const row = std::ranges::find(kKeys, keyCode, &Row::keyCode);
  if (row == kKeys.end()) return std::nullopt;
  if (row->command == PreviewCommand::OpenPage && zoomMode != kZoomOverview) return std::nullopt;
  return row->command;
}

bool PressPreviewKey(Preview& preview, std::int16_t keyCode, std::int16_t shift) {
  preview.RaiseKeyDown(keyCode, shift);
  if (keyCode == 0) return true;
  const auto command = CommandOf(keyCode, shift, preview.ZoomMode());
  if (command) Do(preview, *command);
  return command.has_value();
}

}  // namespace pagivo::native
