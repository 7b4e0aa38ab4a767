#include "engine/native/view/preview_state.h"

#include <algorithm>
#include <cmath>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

// The overview shows this many pages beside and below each other.
constexpr double kOverviewColumns = 4;
constexpr double kOverviewRows = 2;

}  // namespace

void PreviewState::SetViewSize(double width, double height) noexcept {
  viewWidth_ = std::max(width, kTwipsPerPixel);
  viewHeight_ = std::max(height, kTwipsPerPixel);
}

void PreviewState::Show(std::int32_t page) noexcept {
  page_ = page;
  scrollTop_ = 0;
}

void PreviewState::PutZoomMode(std::int32_t mode) {
  if (mode < kZoomPercent || mode > kZoomPageWidth) ThrowInvalidPropertyValue("ZoomMode");
  zoomMode_ = mode;
}

void PreviewState::PutZoom(double percent) {
  const bool isPossible = percent >= kMinimumZoom && percent <= kMaximumZoom;
  if (!isPossible) ThrowInvalidPropertyValue("Zoom");
  percent_ = percent;
  zoomMode_ = kZoomPercent;
}

double PreviewState::Zoom(const ShownPages& pages) const noexcept {
  if (zoomMode_ == kZoomPercent) return percent_;
  return std::clamp(100 * FittingScale(pages), kMinimumZoom, kMaximumZoom);
}

double PreviewState::FittingScale(const ShownPages& pages) const noexcept {
  const PageGeometry& page = pages.page;
  const auto fit = [](double view, double columns, double extent) {
    return (view - (columns + 1) * kPageGap) / extent;
  };
  switch (zoomMode_) {
    case kZoomOverview:
      return std::min(fit(viewWidth_, kOverviewColumns, kOverviewColumns * page.width),
                      fit(viewHeight_, kOverviewRows, kOverviewRows * page.height));
    case kZoomTwoPages:
      return std::min(fit(viewWidth_, 2, page.width + pages.neighbour.width),
                      fit(viewHeight_, 1, std::max(page.height, pages.neighbour.height)));
    case kZoomPageWidth:
      return fit(viewWidth_, 1, page.width);
    default:
      return std::min(fit(viewWidth_, 1, page.width), fit(viewHeight_, 1, page.height));
  }
}

double PreviewState::ScrollTop(const ShownPages& pages) const noexcept {
  return std::min(scrollTop_, MaximumScrollTop(pages));
}

void PreviewState::PutScrollTop(double top, const ShownPages& pages) {
  if (std::isnan(top)) ThrowInvalidPropertyValue("ScrollTop");
  scrollTop_ = std::clamp(top, 0.0, MaximumScrollTop(pages));
}

double PreviewState::MaximumScrollTop(const ShownPages& pages) const noexcept {
  if (zoomMode_ != kZoomPercent && zoomMode_ != kZoomPageWidth) return 0;
  const double visible = (viewHeight_ - 2 * kPageGap) / (Zoom(pages) / 100);
  return std::max(0.0, pages.page.height - visible);
}

}  // namespace pagivo::native
