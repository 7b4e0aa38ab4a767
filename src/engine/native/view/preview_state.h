// Which page the preview surface shows, how large, and how far it is scrolled.
#pragma once

#include <cstdint>

#include "engine/native/document/document.h"
#include "engine/print_engine.h"

namespace pagivo::native {

// Screen lengths here are twips at 96 dots an inch, so at 100 percent a page twip is one of them.
inline constexpr double kTwipsPerPixel = 15;
// Free space around every page and between pages: 8 pixels.
inline constexpr double kPageGap = 8 * kTwipsPerPixel;
// What Zoom can be, percent; fitting keeps within it too.
inline constexpr double kMinimumZoom = 5;
inline constexpr double kMaximumZoom = 1000;

// The pages that fitting looks at: the shown one and, for two pages side by side, its right-hand
// neighbour (the same again when there is none).
struct ShownPages {
  PageGeometry page;
  PageGeometry neighbour;
};

class PreviewState {
 public:
  // What the window gives the surface; 800 x 600 pixels until then. Not less than a pixel counts.
  void SetViewSize(double width, double height) noexcept;

  std::int32_t Page() const noexcept { return page_; }
  // Shows another page from its top. The caller has clamped it.
  void Show(std::int32_t page) noexcept;

  std::int32_t ZoomMode() const noexcept { return zoomMode_; }
  // Raises ErrorNumber::InvalidPropertyValue outside 0..4.
  void PutZoomMode(std::int32_t mode);

  // The effective percentage in the mode in force.
  double Zoom(const ShownPages& pages) const noexcept;
  // From now on this percentage, in mode kZoomPercent. Raises ErrorNumber::InvalidPropertyValue
  // outside kMinimumZoom..kMaximumZoom.
  void PutZoom(double percent);

  // Page twips above the visible part; never more than what does not fit into the view.
  double ScrollTop(const ShownPages& pages) const noexcept;
  // Clamped. Raises ErrorNumber::InvalidPropertyValue for what is no number.
  void PutScrollTop(double top, const ShownPages& pages);

 private:
  double FittingScale(const ShownPages& pages) const noexcept;
  double MaximumScrollTop(const ShownPages& pages) const noexcept;

  double viewWidth_ = 800 * kTwipsPerPixel;
  double viewHeight_ = 600 * kTwipsPerPixel;
  std::int32_t page_ = 1;
  std::int32_t zoomMode_ = kZoomWholePage;
  double percent_ = 100;
  double scrollTop_ = 0;
};

}  // namespace pagivo::native
