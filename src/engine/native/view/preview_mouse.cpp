#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "engine/native/view/preview_input.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

constexpr double kMostNotches = 100;  // at once
constexpr double kRounding = 1e-9;    // of fractions that add up to a whole notch

// What a notch of the wheel scrolls.
constexpr double kStepsPerNotch = 3;

Preview::Direction DirectionOf(int notches) {
  return notches < 0 ? Preview::Direction::Back : Preview::Direction::Forward;
}

}  // namespace

int WheelNotches::Turn(double notches) {
  if (notches * rest_ < 0) rest_ = 0;
  rest_ = std::clamp(rest_ + notches, -kMostNotches, kMostNotches);
  const double whole = std::trunc(rest_ + std::copysign(kRounding, rest_));
  rest_ -= whole;
  return static_cast<int>(whole);
}

void PreviewMouse::TurnWheel(SurfacePoint at, double horizontal, double vertical,
                             std::int16_t shift) {
  if ((shift & kControlKey) != 0) return Zoom(at, vertical);
  if ((shift & kShiftKey) != 0) std::swap(horizontal, vertical);
  const double notch = kStepsPerNotch * preview_.ScrollStep();
  if (horizontal != 0) preview_.ScrollBy(-horizontal * notch, 0);
  if (vertical != 0) ScrollOrTurn(-vertical);
}

void PreviewMouse::Zoom(SurfacePoint at, double notches) {
  const int steps = zooming_.Turn(notches);
  for (int i = 0; i < std::abs(steps); ++i) preview_.ZoomAt(at, DirectionOf(steps));
}

// At the page's end it takes a whole notch to go on, so that a touch pad does not leaf by accident.
void PreviewMouse::ScrollOrTurn(double notches) {
  if (preview_.ScrollBy(0, notches * kStepsPerNotch * preview_.ScrollStep())) {
    return turning_.Reset();
  }
  const int turns = turning_.Turn(notches);
  for (int i = 0; i < std::abs(turns); ++i) preview_.TurnRow(DirectionOf(turns));
}

void PreviewMouse::Press(SurfacePoint at) {
  drag_.reset();
  pressedPage_ = 0;
  if (preview_.ZoomMode() == kZoomOverview) {
    const PlacedPage* placed = preview_.Layout().At(at);
    if (placed != nullptr) pressedPage_ = placed->page;
  } else if (CanDrag()) {
    drag_ = {.from = at, .scrolled = preview_.Scrolled()};
  }
}

void PreviewMouse::Move(SurfacePoint at) {
  if (!drag_) return;
  const auto moved = [](double from, double to) {
    return static_cast<std::int32_t>(std::lround(from - to));
  };
  preview_.ScrollTo({drag_->scrolled.left + moved(drag_->from.x, at.x),
                     drag_->scrolled.top + moved(drag_->from.y, at.y)});
}

// A click is a press and a release on the same page.
void PreviewMouse::Release(SurfacePoint at) {
  drag_.reset();
  const std::int32_t pressed = std::exchange(pressedPage_, 0);
  if (pressed == 0 || preview_.ZoomMode() != kZoomOverview) return;
  const PlacedPage* placed = preview_.Layout().At(at);
  if (placed != nullptr && placed->page == pressed) preview_.OpenPage(pressed);
}

SurfaceCursor PreviewMouse::CursorAt(SurfacePoint at) const {
  if (drag_) return SurfaceCursor::ClosedHand;
  if (preview_.ZoomMode() == kZoomOverview) {
    return preview_.Layout().At(at) != nullptr ? SurfaceCursor::Pointing : SurfaceCursor::Arrow;
  }
  return CanDrag() ? SurfaceCursor::OpenHand : SurfaceCursor::Arrow;
}

}  // namespace pagivo::native
