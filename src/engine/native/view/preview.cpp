#include "engine/native/view/preview.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {
namespace {

// What an arrow scrolls, 96ths of an inch: about two lines of print at 100 percent.
constexpr double kScrollStep = 40;

// Beyond the end of any page, device pixels.
constexpr double kToTheEnd = 1e6;

std::int32_t Rounded(double count) {
  return static_cast<std::int32_t>(std::lround(count));
}

}  // namespace

// --- Telling and being told ---------------------------------------------------------------------

void Preview::Observe(PreviewObserver* observer) {
  observer_ = observer;
  layout_.reset();
}

void Preview::StopObserving(const PreviewObserver& observer) noexcept {
  if (observer_ == &observer) observer_ = nullptr;
}

void Preview::DocumentReplaced() {
  state_.Show(1);
  layout_.reset();
  if (observer_ != nullptr) observer_->DocumentReplaced();
}

void Preview::PageChanged(std::int32_t page) {
  if (state_.MayShow(page)) ViewChanged();
}

void Preview::ViewChanged() {
  layout_.reset();
  if (observer_ != nullptr) observer_->ViewChanged();
}

void Preview::RaiseKeyDown(std::int16_t& keyCode, std::int16_t shift) {
  if (events_ != nullptr) events_->KeyDown(keyCode, shift);
}

void Preview::RaiseAfterPageChange() {
  if (events_ != nullptr) events_->AfterPageChange();
}

// The page that BeforePageChange makes of it, within the document.
std::int32_t Preview::AdmittedPage(std::int32_t page) {
  auto wanted = static_cast<std::int16_t>(Clamp(page));
  if (events_ != nullptr) events_->BeforePageChange(wanted);
  return Clamp(wanted);
}

// --- What is visible ----------------------------------------------------------------------------

// An empty document shows page 1, which is blank.
std::int32_t Preview::Clamp(std::int32_t page) const {
  return std::clamp(page, 1, std::max(1, PageCount()));
}

PageGeometry Preview::GeometryOf(std::int32_t page) const {
  return page <= PageCount() ? source_.GetDocument().GeometryOf(page) : source_.BlankPage();
}

ShownPages Preview::PagesInView() const {
  return {GeometryOf(Page()), GeometryOf(Clamp(Page() + 1)), GeometryOf(1)};
}

void Preview::PutArea(const SurfaceArea& area) {
  const SurfaceArea before = state_.Area();
  state_.PutArea(area);
  if (state_.Area() != before) layout_.reset();
}

const PageLayout& Preview::Layout() {
  if (!layout_) layout_ = LayOutPages(state_, PagesInView(), *this);
  return *layout_;
}

std::int32_t Preview::ScrollStep() const {
  return static_cast<std::int32_t>(std::ceil(kScrollStep * Area().scale));
}

void Preview::PutZoomMode(std::int32_t mode) {
  if (mode == ZoomMode()) return;
  state_.PutZoomMode(mode);
  ViewChanged();
}

void Preview::ShowInMode(std::int32_t mode) {
  PutZoomMode(mode);
  RaiseAfterPageChange();
}

void Preview::OpenPage(std::int32_t page) {
  ShowPage(page);
  ShowInMode(kZoomWholePage);
}

// --- Zooming and scrolling ----------------------------------------------------------------------

void Preview::PutZoom(double percent) {
  if (ZoomMode() == kZoomPercent && percent == Zoom()) return;
  state_.PutZoom(percent);
  ViewChanged();
}

void Preview::ZoomAt(SurfacePoint at, Direction direction) {
  const PageLayout layout = Layout();
  if (layout.pages.empty()) return;
  const PlacedPage* under = layout.At(at);
  const PlacedPage& placed = under != nullptr ? *under : layout.pages.front();
  const double x = (at.x - placed.box.left) / placed.pixelsPerTwip;
  const double y = (at.y - placed.box.top) / placed.pixelsPerTwip;

  const double percent = PercentOf(placed.pixelsPerTwip, Area());
  const bool changesMode = ZoomMode() != kZoomPercent;
  ShowPage(placed.page);
  PutZoom(direction == Direction::Forward ? ZoomStepAbove(percent) : ZoomStepBelow(percent));
  const double scale = PixelsPerTwip(Zoom(), Area());
  const double gap = PageGap(Area());
  ScrollTo({Rounded(gap + x * scale - at.x), Rounded(gap + y * scale - at.y)});
  if (changesMode) RaiseAfterPageChange();
}

void Preview::ZoomInMiddle(Direction direction) {
  ZoomAt({Area().width / 2.0, Area().height / 2.0}, direction);
}

void Preview::PutScrollTop(double top) {
  const double before = ScrollTop();
  state_.PutScrollTop(top, PagesInView());
  if (ScrollTop() != before) ViewChanged();
}

void Preview::ScrollTo(const ScrollPosition& position) {
  const ScrollPosition before = Scrolled();
  state_.ScrollTo(position, PagesInView());
  if (Scrolled() != before) ViewChanged();
}

bool Preview::ScrollBy(double right, double down) {
  const ScrollPosition before = Scrolled();
  ScrollTo({before.left + Rounded(right), before.top + Rounded(down)});
  return Scrolled() != before;
}

void Preview::ScrollDown(double pixels) {
  if (!ScrollBy(0, pixels)) TurnView(pixels < 0 ? Direction::Back : Direction::Forward);
}

// A page that is wholly visible from side to side is turned.
void Preview::ScrollSideways(double pixels) {
  if (MaximumScroll().left > 0) {
    ScrollBy(pixels, 0);
  } else {
    const bool inPairs = ZoomMode() == kZoomTwoPages;
    TurnBy(inPairs ? 2 : 1, pixels < 0 ? Direction::Back : Direction::Forward);
  }
}

// --- Turning ------------------------------------------------------------------------------------

void Preview::ShowPage(std::int32_t page) {
  if (Clamp(page) == Page()) return;
  const std::int32_t shown = AdmittedPage(page);
  if (shown == Page()) return;
  state_.Show(shown);
  ViewChanged();
  RaiseAfterPageChange();
}

void Preview::TurnView(Direction direction) {
  switch (ZoomMode()) {
    case kZoomOverview:
      return TurnBy(Layout().columns * Layout().rows, direction);
    case kZoomTwoPages:
      return TurnBy(2, direction);
    default:
      return TurnBy(1, direction);
  }
}

void Preview::TurnRow(Direction direction) {
  if (ZoomMode() == kZoomOverview) {
    TurnBy(Layout().columns, direction);
  } else {
    TurnView(direction);
  }
}

// The page behind begins at its top, the page before at its bottom.
void Preview::TurnBy(std::int32_t pages, Direction direction) {
  const std::int32_t before = Page();
  const std::int32_t last = LastPage();
  const std::int32_t wanted = before + pages * static_cast<std::int32_t>(direction);
  // Pairs stay pairs.
  if (wanted > last && ZoomMode() == kZoomTwoPages) return;
  ShowPage(std::clamp(wanted, 1, last));
  if (direction == Direction::Back && Page() != before) ScrollBy(0, kToTheEnd);
}

void Preview::ShowFirstPage() {
  ShowPage(1);
  ScrollBy(0, -kToTheEnd);
}

void Preview::ShowLastPage() {
  const std::int32_t last = LastPage();
  const bool isPair = ZoomMode() == kZoomTwoPages && last % 2 == 0;
  ShowPage(isPair ? last - 1 : last);
  ScrollBy(0, kToTheEnd);
}

}  // namespace pagivo::native
