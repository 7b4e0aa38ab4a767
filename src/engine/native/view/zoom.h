// How large pages are shown: the limits, fitting into an area, and the steps of zooming in and out.
#pragma once

#include <cstdint>

#include "engine/native/document/document.h"
#include "engine/print_engine.h"
#include "window/surface.h"

namespace pagivo::native {

// A 96th of an inch, which is a pixel of a screen of 96 dots an inch. At 100 percent a page twip is
// a twip of the screen.
inline constexpr double kTwipsPerPixel = 15;

// What Zoom can be, percent; fitting keeps within it too.
inline constexpr double kMinimumZoom = 5;
inline constexpr double kMaximumZoom = 1000;

// The overview fits this many pages beside and below each other, and more where there is room.
inline constexpr std::int32_t kOverviewColumns = 4;
inline constexpr std::int32_t kOverviewRows = 2;

// The pages that fitting looks at: the shown one; for two pages side by side its right-hand
// neighbour (the same again when there is none); for the overview, whose cells must not change with
// the page that is chosen, the document's first.
struct ShownPages {
  PageGeometry page;
  PageGeometry neighbour;
  PageGeometry first;
};

// The free space around every page and between pages, device pixels: 8 at 96 dots an inch.
std::int32_t PageGap(const SurfaceArea& area) noexcept;

// Device pixels of a page twip at that percentage, and back.
double PixelsPerTwip(double percent, const SurfaceArea& area) noexcept;
double PercentOf(double pixelsPerTwip, const SurfaceArea& area) noexcept;

// The percentage at which the mode's pages fit into the area, within the limits. In the overview
// that of the shown page, which is smaller than the others' when its paper is larger than the first
// page's. `mode` is not kZoomPercent.
double FittingZoom(std::int32_t mode, const ShownPages& pages, const SurfaceArea& area) noexcept;
// The percentage of the overview's pages that are no larger than the first.
double OverviewZoom(const PageGeometry& first, const SurfaceArea& area) noexcept;
// That of a page of the overview, fitted into the cell of the first page.
double OverviewZoomOf(const PageGeometry& page, const PageGeometry& first,
                      const SurfaceArea& area) noexcept;

// The next step above or below a percentage; itself at the limits.
double ZoomStepAbove(double percent) noexcept;
double ZoomStepBelow(double percent) noexcept;

}  // namespace pagivo::native
