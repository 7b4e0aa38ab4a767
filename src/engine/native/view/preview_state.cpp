#include "engine/native/view/preview_state.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/native/raster/bitmap_player.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

constexpr double kGapPixels = 8;

// Growing with the percentage, so that each step looks like the others.
constexpr std::array kZoomSteps{kMinimumZoom, 10.0,  15.0,  25.0,  33.0,  50.0,
                                67.0,         75.0,  100.0, 125.0, 150.0, 200.0,
                                300.0,        400.0, 500.0, 600.0, 800.0, kMaximumZoom};

// Percentages that fitting computes lie beside a step by rounding errors only.
constexpr double kSameStep = 0.01;

double Limited(double percent) {
  return std::clamp(percent, kMinimumZoom, kMaximumZoom);
}

// Device pixels a twip at which so many pages beside (or below) each other, together that many
// twips wide (or high), fill that many pixels.
double Fit(std::int32_t pixels, int pages, double twips, std::int32_t gap) {
  return (pixels - (pages + 1.0) * gap) / twips;
}

double FitWidth(int pages, double twips, const SurfaceArea& area) {
  return Fit(area.width, pages, twips, PageGap(area));
}

double FitHeight(int pages, double twips, const SurfaceArea& area) {
  return Fit(area.height, pages, twips, PageGap(area));
}

double FitTwoPages(const ShownPages& pages, const SurfaceArea& area) {
  return std::min(FitWidth(2, double{pages.page.width} + pages.neighbour.width, area),
                  FitHeight(1, std::max(pages.page.height, pages.neighbour.height), area));
}

}  // namespace

std::int32_t PageGap(const SurfaceArea& area) noexcept {
  return static_cast<std::int32_t>(std::lround(kGapPixels * area.scale));
}

double PixelsPerTwip(double percent, const SurfaceArea& area) noexcept {
  return percent / 100 * area.scale / kTwipsPerPixel;
}

double PercentOf(double pixelsPerTwip, const SurfaceArea& area) noexcept {
  return pixelsPerTwip * kTwipsPerPixel / area.scale * 100;
}

double FittingZoom(std::int32_t mode, const ShownPages& pages, const SurfaceArea& area) noexcept {
  const PageGeometry& page = pages.page;
  switch (mode) {
    case kZoomOverview:
      return OverviewZoomOf(page, pages.first, area);
    case kZoomTwoPages:
      return Limited(PercentOf(FitTwoPages(pages, area), area));
    case kZoomPageWidth:
      return Limited(PercentOf(FitWidth(1, page.width, area), area));
    default:
      return Limited(PercentOf(
          std::min(FitWidth(1, page.width, area), FitHeight(1, page.height, area)), area));
  }
}

double OverviewZoom(const PageGeometry& first, const SurfaceArea& area) noexcept {
  const double fit =
      std::min(FitWidth(kOverviewColumns, kOverviewColumns * double{first.width}, area),
               FitHeight(kOverviewRows, kOverviewRows * double{first.height}, area));
  return Limited(PercentOf(fit, area));
}

double OverviewZoomOf(const PageGeometry& page, const PageGeometry& first,
                      const SurfaceArea& area) noexcept {
  const double share =
      std::min(first.width / double{page.width}, first.height / double{page.height});
  return Limited(OverviewZoom(first, area) * std::min(1.0, share));
}

double ZoomStepAbove(double percent) noexcept {
  const auto* const step = std::ranges::find_if(
      kZoomSteps, [percent](double candidate) { return candidate > percent + kSameStep; });
  return step == kZoomSteps.end() ? kMaximumZoom : *step;
}

double ZoomStepBelow(double percent) noexcept {
  double below = kMinimumZoom;
  for (const double step : kZoomSteps) {
    if (step < percent - kSameStep) below = step;
  }
  return below;
}

// --- What is in force -------------------------------------------------------------------------

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
