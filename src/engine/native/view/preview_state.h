// Which page a preview shows, how large, and how far it is scrolled: what is in force, the limits,
// fitting into an area, and the steps of zooming in and out.
#pragma once

#include <cstdint>

#include "engine/native/document/document.h"
#include "engine/print_engine.h"
#include "values/measures.h"
#include "window/surface.h"

namespace pagivo::native {

// --- Zoom -------------------------------------------------------------------------------------

// A 96th of an inch, which is a pixel of a screen of 96 dots an inch. At 100 percent a page twip is
// a twip of the screen.

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

// --- Page, zoom and scroll position in force --------------------------------------------------

// Device pixels to the left of and above the visible part of the page and the gap around it.
struct ScrollPosition {
  std::int32_t left = 0;
  std::int32_t top = 0;
  friend bool operator==(const ScrollPosition&, const ScrollPosition&) = default;
};

class PreviewState {
 public:
  const SurfaceArea& Area() const noexcept { return area_; }
  // What the window gives the surface; 800 x 600 pixels at 96 dots an inch until then. Not less
  // than a pixel counts, and a scale that is no positive number counts as 1.
  void PutArea(const SurfaceArea& area) noexcept;

  std::int32_t Page() const noexcept { return page_; }
  // Shows another page from its top. The caller has clamped it.
  void Show(std::int32_t page) noexcept;
  // Whether a page could be among the visible ones.
  bool MayShow(std::int32_t page) const noexcept;

  std::int32_t ZoomMode() const noexcept { return zoomMode_; }
  // Raises ErrorNumber::InvalidPropertyValue outside 0..4.
  void PutZoomMode(std::int32_t mode);
  // Whether a page larger than the area scrolls: in modes kZoomPercent and kZoomPageWidth.
  bool Scrolls() const noexcept;

  // The effective percentage in the mode in force.
  double Zoom(const ShownPages& pages) const noexcept;
  // Puts this percentage in force, in mode kZoomPercent. Raises ErrorNumber::InvalidPropertyValue
  // outside kMinimumZoom..kMaximumZoom.
  void PutZoom(double percent);

  // Page twips above the visible part; never more than what does not fit into the area.
  double ScrollTop(const ShownPages& pages) const noexcept;
  // Goes as far as the page does. Raises ErrorNumber::InvalidPropertyValue for what is no number.
  void PutScrollTop(double top, const ShownPages& pages);

  // How far it is scrolled, and how far it can be: {0, 0} when everything is visible. A page that
  // is wider than the area is shown from its middle until it is scrolled sideways; after that it
  // keeps its place between the two edges at every zoom.
  ScrollPosition Scrolled(const ShownPages& pages) const noexcept;
  ScrollPosition MaximumScroll(const ShownPages& pages) const noexcept;
  // Scrolls there, as far as the page goes.
  void ScrollTo(const ScrollPosition& position, const ShownPages& pages) noexcept;

 private:
  double PageScale(const ShownPages& pages) const noexcept;

  SurfaceArea area_{.width = 800, .height = 600};
  std::int32_t page_ = 1;
  std::int32_t zoomMode_ = kZoomWholePage;
  double percent_ = 100;
  double scrollTop_ = 0;     // page twips
  double scrollLeft_ = 0.5;  // of what there is to scroll
};

}  // namespace pagivo::native
