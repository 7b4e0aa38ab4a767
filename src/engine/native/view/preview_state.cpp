#include "engine/native/view/preview_state.h"

#include <algorithm>
#include <cmath>

#include "engine/native/raster/bitmap_player.h"
#include "pagivo/error.h"

namespace pagivo::native {

void PreviewState::PutArea(const SurfaceArea& area) noexcept {
  const bool hasScale = std::isfinite(area.scale) && area.scale > 0;
  area_ = {.width = std::max(area.width, 1),
           .height = std::max(area.height, 1),
           .scale = hasScale ? area.scale : 1};
}

void PreviewState::Show(std::int32_t page) noexcept {
  page_ = page;
  scrollTop_ = 0;
}

bool PreviewState::MayShow(std::int32_t page) const noexcept {
  switch (zoomMode_) {
    case kZoomOverview:
      return true;
    case kZoomTwoPages:
      return page == page_ || page == page_ + 1;
    default:
      return page == page_;
  }
}

void PreviewState::PutZoomMode(std::int32_t mode) {
  if (mode < kZoomPercent || mode > kZoomPageWidth) ThrowInvalidPropertyValue("ZoomMode");
  zoomMode_ = mode;
}

bool PreviewState::Scrolls() const noexcept {
  return zoomMode_ == kZoomPercent || zoomMode_ == kZoomPageWidth;
}

void PreviewState::PutZoom(double percent) {
  const bool isPossible = percent >= kMinimumZoom && percent <= kMaximumZoom;
  if (!isPossible) ThrowInvalidPropertyValue("Zoom");
  percent_ = percent;
  zoomMode_ = kZoomPercent;
}

double PreviewState::Zoom(const ShownPages& pages) const noexcept {
  return zoomMode_ == kZoomPercent ? percent_ : FittingZoom(zoomMode_, pages, area_);
}

double PreviewState::PageScale(const ShownPages& pages) const noexcept {
  return PixelsPerTwip(Zoom(pages), area_);
}

double PreviewState::ScrollTop(const ShownPages& pages) const noexcept {
  return std::min(scrollTop_, MaximumScroll(pages).top / PageScale(pages));
}

void PreviewState::PutScrollTop(double top, const ShownPages& pages) {
  if (std::isnan(top)) ThrowInvalidPropertyValue("ScrollTop");
  scrollTop_ = std::clamp(top, 0.0, MaximumScroll(pages).top / PageScale(pages));
}

ScrollPosition PreviewState::MaximumScroll(const ShownPages& pages) const noexcept {
  if (!Scrolls()) return {};
  const PixelSize page = PagePixelSize(pages.page, PageScale(pages));
  const std::int32_t gaps = 2 * PageGap(area_);
  return {std::max(0, page.width + gaps - area_.width),
          std::max(0, page.height + gaps - area_.height)};
}

ScrollPosition PreviewState::Scrolled(const ShownPages& pages) const noexcept {
  const ScrollPosition maximum = MaximumScroll(pages);
  const double top = ScrollTop(pages) * PageScale(pages);
  return {static_cast<std::int32_t>(std::lround(scrollLeft_ * maximum.left)),
          std::min(static_cast<std::int32_t>(std::lround(top)), maximum.top)};
}

void PreviewState::ScrollTo(const ScrollPosition& position, const ShownPages& pages) noexcept {
  const ScrollPosition maximum = MaximumScroll(pages);
  if (maximum.left > 0) {
    scrollLeft_ = 1.0 * std::clamp(position.left, 0, maximum.left) / maximum.left;
  }
  scrollTop_ = std::clamp(position.top, 0, maximum.top) / PageScale(pages);
}

}  // namespace pagivo::native
