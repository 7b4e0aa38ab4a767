#include "engine/native/view/page_placement.h"

#include <algorithm>

#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {
namespace {

// Where something begins that is centred when it fits with its gaps, and scrolled when it does not.
std::int32_t Begin(std::int32_t area, std::int32_t extent, std::int32_t gap,
                   std::int32_t scrolled) {
  return extent + 2 * gap <= area ? (area - extent) / 2 : gap - scrolled;
}

SurfaceBox BoxAt(std::int32_t left, std::int32_t top, const PixelSize& size) {
  return {left, top, left + size.width, top + size.height};
}

class Placing {
 public:
  Placing(const PreviewState& state, const ShownPages& shown, PageSource& source)
      : state_(state),
        shown_(shown),
        source_(source),
        area_(state.Area()),
        gap_(PageGap(area_)),
        pixelsPerTwip_(PixelsPerTwip(state.Zoom(shown), area_)) {}

  PageLayout OnePage();
  PageLayout TwoPages();
  PageLayout Overview();

 private:
  PixelSize SizeOf(const PageGeometry& page) const { return PagePixelSize(page, pixelsPerTwip_); }
  std::int32_t CenteredTop(const PixelSize& size) const {
    return Begin(area_.height, size.height, gap_, 0);
  }
  bool IsVisible(std::int32_t page) {
    return page <= source_.PageCount() && (page == state_.Page() || source_.IsAdmitted(page));
  }
  PlacedPage InCell(std::int32_t page, const SurfaceBox& cell) const;

  const PreviewState& state_;
  const ShownPages& shown_;
  PageSource& source_;
  const SurfaceArea& area_;
  std::int32_t gap_;
  double pixelsPerTwip_;
};

PageLayout Placing::OnePage() {
  const PixelSize size = SizeOf(shown_.page);
  const ScrollPosition scrolled = state_.Scrolled(shown_);
  const std::int32_t left = Begin(area_.width, size.width, gap_, scrolled.left);
  const std::int32_t top = Begin(area_.height, size.height, gap_, scrolled.top);
  return {.pages = {{state_.Page(), BoxAt(left, top, size), pixelsPerTwip_}}};
}

// A page without partner keeps its place on the left.
PageLayout Placing::TwoPages() {
  const PixelSize size = SizeOf(shown_.page);
  const PixelSize neighbourSize = SizeOf(shown_.neighbour);
  const std::int32_t page = state_.Page();
  const std::int32_t left = Begin(area_.width, size.width + gap_ + neighbourSize.width, gap_, 0);
  PageLayout layout{.pages = {{page, BoxAt(left, CenteredTop(size), size), pixelsPerTwip_}}};
  if (IsVisible(page + 1)) {
    const SurfaceBox box =
        BoxAt(left + size.width + gap_, CenteredTop(neighbourSize), neighbourSize);
    layout.pages.push_back({page + 1, box, pixelsPerTwip_});
  }
  return layout;
}

PageLayout Placing::Overview() {
  const PixelSize cell =
      PagePixelSize(shown_.first, PixelsPerTwip(OverviewZoom(shown_.first, area_), area_));
  const std::int32_t columns =
      std::max(kOverviewColumns, (area_.width - gap_) / (cell.width + gap_));
  const std::int32_t rows = std::max(kOverviewRows, (area_.height - gap_) / (cell.height + gap_));
  const std::int32_t left = Begin(area_.width, columns * (cell.width + gap_) - gap_, gap_, 0);
  const std::int32_t top = Begin(area_.height, rows * (cell.height + gap_) - gap_, gap_, 0);
  const std::int32_t first = (state_.Page() - 1) / (columns * rows) * (columns * rows) + 1;

  PageLayout layout{.pages = {}, .columns = columns, .rows = rows};
  for (std::int32_t place = 0; place < columns * rows; ++place) {
    if (!IsVisible(first + place)) continue;
    const SurfaceBox box = BoxAt(left + place % columns * (cell.width + gap_),
                                 top + place / columns * (cell.height + gap_), cell);
    layout.pages.push_back(InCell(first + place, box));
  }
  return layout;
}

PlacedPage Placing::InCell(std::int32_t page, const SurfaceBox& cell) const {
  const PageGeometry geometry = source_.GeometryOf(page);
  const double pixelsPerTwip = PixelsPerTwip(OverviewZoomOf(geometry, shown_.first, area_), area_);
  const PixelSize size = PagePixelSize(geometry, pixelsPerTwip);
  const std::int32_t left = cell.left + (cell.Width() - size.width) / 2;
  const std::int32_t top = cell.top + (cell.Height() - size.height) / 2;
  return {page, BoxAt(left, top, size), pixelsPerTwip, page == state_.Page()};
}

}  // namespace

const PlacedPage* PageLayout::At(SurfacePoint point) const noexcept {
  const auto found = std::ranges::find_if(
      pages, [point](const PlacedPage& placed) { return placed.box.Contains(point); });
  return found == pages.end() ? nullptr : &*found;
}

PageLayout LayOutPages(const PreviewState& state, const ShownPages& shown, PageSource& source) {
  if (state.Page() > source.PageCount()) return {};
  Placing placing(state, shown, source);
  switch (state.ZoomMode()) {
    case kZoomOverview:
      return placing.Overview();
    case kZoomTwoPages:
      return placing.TwoPages();
    default:
      return placing.OnePage();
  }
}

}  // namespace pagivo::native
