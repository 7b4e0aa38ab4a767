// What NativeSurface does for wheel and pointer.
#include <cmath>
#include <cstdlib>
#include <utility>

#include "engine/native/native_surface.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

// What a notch of the wheel scrolls.
constexpr double kStepsPerNotch = 3;

}  // namespace

void NativeSurface::TurnWheel(SurfacePoint at, double horizontal, double vertical,
                              std::int16_t shift) {
  if ((shift & kControlKey) != 0) {
    const int notches = zooming_.Turn(vertical);
    for (int i = 0; i < std::abs(notches); ++i) {
      ZoomAt(at, notches < 0 ? Direction::Back : Direction::Forward);
    }
    return;
  }
  if ((shift & kShiftKey) != 0) std::swap(horizontal, vertical);
  if (horizontal != 0) ScrollBy(-horizontal * kStepsPerNotch * Step(), 0);
  if (vertical != 0) TurnWheelDown(-vertical);
}

// At the page's end it takes a whole notch to go on, so that a touch pad does not leaf by accident.
void NativeSurface::TurnWheelDown(double notches) {
  if (ScrollBy(0, notches * kStepsPerNotch * Step())) return turning_.Reset();
  const int turns = turning_.Turn(notches);
  for (int i = 0; i < std::abs(turns); ++i) {
    const Direction direction = turns < 0 ? Direction::Back : Direction::Forward;
    if (engine_->GetZoomMode() == kZoomOverview) {
      TurnBy(Layout().columns, direction);
    } else {
      TurnView(direction);
    }
  }
}

// The place of the page under the pointer stays there as far as the page can be scrolled.
void NativeSurface::ZoomAt(SurfacePoint at, Direction direction) {
  const PageLayout layout = Layout();
  if (layout.pages.empty()) return;
  const PlacedPage* under = layout.At(at);
  const PlacedPage& placed = under != nullptr ? *under : layout.pages.front();
  const double x = (at.x - placed.box.left) / placed.pixelsPerTwip;
  const double y = (at.y - placed.box.top) / placed.pixelsPerTwip;

  const PreviewState& preview = engine_->Preview();
  const double percent = PercentOf(placed.pixelsPerTwip, preview.Area());
  const bool changesMode = engine_->GetZoomMode() != kZoomPercent;
  ShowPage(placed.page);
  engine_->PutZoom(direction == Direction::Forward ? ZoomStepAbove(percent)
                                                   : ZoomStepBelow(percent));
  const double scale = PixelsPerTwip(engine_->GetZoom(), preview.Area());
  const double gap = PageGap(preview.Area());
  engine_->ScrollPreview({static_cast<std::int32_t>(std::lround(gap + x * scale - at.x)),
                          static_cast<std::int32_t>(std::lround(gap + y * scale - at.y))});
  if (changesMode) engine_->RaiseAfterPageChange();
}

void NativeSurface::ZoomInMiddle(Direction direction) {
  const SurfaceArea& area = engine_->Preview().Area();
  ZoomAt({area.width / 2.0, area.height / 2.0}, direction);
}

bool NativeSurface::CanDrag() const {
  return engine_->MaximumPreviewScroll() != ScrollPosition{};
}

void NativeSurface::PressPointer(SurfacePoint at) {
  drag_.reset();
  pressedPage_ = 0;
  if (engine_->GetZoomMode() == kZoomOverview) {
    const PlacedPage* placed = Layout().At(at);
    if (placed != nullptr) pressedPage_ = placed->page;
  } else if (CanDrag()) {
    drag_ = {.from = at, .scrolled = engine_->PreviewScroll()};
  }
}

void NativeSurface::MovePointer(SurfacePoint at) {
  if (!drag_) return;
  const auto moved = [](double from, double to) {
    return static_cast<std::int32_t>(std::lround(from - to));
  };
  engine_->ScrollPreview({drag_->scrolled.left + moved(drag_->from.x, at.x),
                          drag_->scrolled.top + moved(drag_->from.y, at.y)});
}

// A click is a press and a release on the same page.
void NativeSurface::ReleasePointer(SurfacePoint at) {
  drag_.reset();
  const std::int32_t pressed = std::exchange(pressedPage_, 0);
  if (pressed == 0 || engine_->GetZoomMode() != kZoomOverview) return;
  const PlacedPage* placed = Layout().At(at);
  if (placed != nullptr && placed->page == pressed) OpenPage(pressed);
}

SurfaceCursor NativeSurface::CursorAt(SurfacePoint at) const {
  if (drag_) return SurfaceCursor::ClosedHand;
  if (engine_->GetZoomMode() == kZoomOverview) {
    return Layout().At(at) != nullptr ? SurfaceCursor::Pointing : SurfaceCursor::Arrow;
  }
  return CanDrag() ? SurfaceCursor::OpenHand : SurfaceCursor::Arrow;
}

}  // namespace pagivo::native
