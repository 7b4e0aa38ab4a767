// Which pages are visible on the surface, where, and how large.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "engine/native/view/preview_state.h"

namespace pagivo::native {

// A rectangle of whole device pixels on a surface. Right and bottom are the first pixels outside.
struct SurfaceBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  std::int32_t Width() const noexcept { return right - left; }
  std::int32_t Height() const noexcept { return bottom - top; }
  bool IsEmpty() const noexcept { return left >= right || top >= bottom; }
  bool Contains(SurfacePoint point) const noexcept {
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
  }
  SurfaceBox Grown(std::int32_t pixels) const noexcept {
    return {left - pixels, top - pixels, right + pixels, bottom + pixels};
  }
  SurfaceBox Moved(std::int32_t x, std::int32_t y) const noexcept {
    return {left + x, top + y, right + x, bottom + y};
  }
  friend bool operator==(const SurfaceBox&, const SurfaceBox&) = default;
};

inline SurfaceBox Intersection(const SurfaceBox& one, const SurfaceBox& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top),
          std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
}

// The pages that a layout can choose from.
class PageSource {
 public:
  virtual std::int32_t PageCount() const = 0;
  // Of a page within the count.
  virtual PageGeometry GeometryOf(std::int32_t page) const = 0;
  // Whether a page may stand beside the shown one. Asked only for pages that would be visible.
  virtual bool IsAdmitted(std::int32_t page) = 0;

 protected:
  ~PageSource() = default;
};

struct PlacedPage {
  std::int32_t page = 0;
  SurfaceBox box;  // the paper; it may reach beyond the area
  double pixelsPerTwip = 0;
  bool isChosen = false;  // the shown page among those of the overview
};

struct PageLayout {
  std::vector<PlacedPage> pages;  // from the first to the last
  // The overview has so many pages beside and below each other.
  std::int32_t columns = 1;
  std::int32_t rows = 1;

  // The page at a place of the surface; null where there is none.
  const PlacedPage* At(SurfacePoint point) const noexcept;
};

// The visible pages: the shown one, with its right-hand neighbour in the two-page mode; in the
// overview the screenful that the shown page belongs to. Looks at these pages only, however many
// there are. Without pages nothing is visible.
PageLayout LayOutPages(const PreviewState& state, const ShownPages& shown, PageSource& source);

}  // namespace pagivo::native
