#include "engine/native/view/zoom.h"

#include <algorithm>
#include <array>
#include <cmath>

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

}  // namespace pagivo::native
