// What NativeSurface does for a key, and the ways through the document that the wheel shares.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "engine/native/native_surface.h"

namespace pagivo::native {
namespace {

// Beyond the end of any page, device pixels.
constexpr double kToTheEnd = 1e6;

std::int32_t Moved(std::int32_t position, double pixels) {
  return position + static_cast<std::int32_t>(std::lround(pixels));
}

}  // namespace

bool NativeSurface::PressKey(std::int16_t keyCode, std::int16_t shift) {
  engine_->RaiseKeyDown(keyCode, shift);
  if (keyCode == 0) return true;
  const auto command = CommandOf(keyCode, shift, engine_->GetZoomMode());
  if (command) Do(*command);
  return command.has_value();
}

void NativeSurface::Do(PreviewCommand command) {
  const double line = Step();
  // A line of what was visible stays so, to read on by.
  const double view = std::max(line, engine_->Preview().Area().height - line);
  switch (command) {
    case PreviewCommand::LineUp:
      ScrollBy(0, -line);
      return;
    case PreviewCommand::LineDown:
      ScrollBy(0, line);
      return;
    case PreviewCommand::LineLeft:
      return ScrollSideways(-line);
    case PreviewCommand::LineRight:
      return ScrollSideways(line);
    case PreviewCommand::ViewUp:
      return ScrollDown(-view);
    case PreviewCommand::ViewDown:
      return ScrollDown(view);
    case PreviewCommand::FirstPage:
      return ShowFirstPage();
    case PreviewCommand::LastPage:
      return ShowLastPage();
    case PreviewCommand::OpenPage:
      return OpenPage(engine_->GetPreviewPage());
    case PreviewCommand::ZoomIn:
      return ZoomInMiddle(Direction::Forward);
    case PreviewCommand::ZoomOut:
      return ZoomInMiddle(Direction::Back);
  }
}

bool NativeSurface::ScrollBy(double right, double down) {
  const ScrollPosition before = engine_->PreviewScroll();
  engine_->ScrollPreview({Moved(before.left, right), Moved(before.top, down)});
  return engine_->PreviewScroll() != before;
}

void NativeSurface::ScrollDown(double pixels) {
  if (!ScrollBy(0, pixels)) TurnView(pixels < 0 ? Direction::Back : Direction::Forward);
}

// A page that is wholly visible from side to side is turned.
void NativeSurface::ScrollSideways(double pixels) {
  if (engine_->MaximumPreviewScroll().left > 0) {
    ScrollBy(pixels, 0);
  } else {
    const bool inPairs = engine_->GetZoomMode() == kZoomTwoPages;
    TurnBy(inPairs ? 2 : 1, pixels < 0 ? Direction::Back : Direction::Forward);
  }
}

void NativeSurface::TurnView(Direction direction) {
  switch (engine_->GetZoomMode()) {
    case kZoomOverview:
      return TurnBy(Layout().columns * Layout().rows, direction);
    case kZoomTwoPages:
      return TurnBy(2, direction);
    default:
      return TurnBy(1, direction);
  }
}

// The page behind begins at its top, the page before at its bottom.
void NativeSurface::TurnBy(std::int32_t pages, Direction direction) {
  const std::int32_t before = engine_->GetPreviewPage();
  const std::int32_t last = LastPage();
  std::int32_t wanted = before + pages * static_cast<std::int32_t>(direction);
  // Pairs stay pairs.
  if (wanted > last && engine_->GetZoomMode() == kZoomTwoPages) return;
  ShowPage(std::clamp(wanted, 1, last));
  if (direction == Direction::Back && engine_->GetPreviewPage() != before) ScrollBy(0, kToTheEnd);
}

void NativeSurface::ShowPage(std::int32_t page) {
  engine_->PutPreviewPage(static_cast<std::int16_t>(page));
}

// The last page that the window admits.
std::int32_t NativeSurface::LastPage() {
  return engine_->AdmittedPage(engine_->GetPageCount());
}

void NativeSurface::ShowFirstPage() {
  ShowPage(1);
  ScrollBy(0, -kToTheEnd);
}

void NativeSurface::ShowLastPage() {
  const std::int32_t last = LastPage();
  const bool isPair = engine_->GetZoomMode() == kZoomTwoPages && last % 2 == 0;
  ShowPage(isPair ? last - 1 : last);
  ScrollBy(0, kToTheEnd);
}

}  // namespace pagivo::native
