#include "engine/native/view/preview_surface.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/native/view/surface_painter.h"

namespace pagivo::native {
namespace {

constexpr std::string_view kMenuText = "Whole &Page|Page &Width|&Two Pages|Thumb&nail";

// In the order of the text.
constexpr std::array kModes{kZoomWholePage, kZoomPageWidth, kZoomTwoPages, kZoomOverview};

using Items = std::array<MenuItem, kModes.size()>;

// An item's text is its key too.
constexpr Items SplitMenu() {
  Items items;
  std::string_view rest = kMenuText;
  for (MenuItem& item : items) {
    const std::string_view text = rest.substr(0, rest.find('|'));
    item = {.text = text, .key = text};
    rest.remove_prefix(std::min(text.size() + 1, rest.size()));
  }
  return items;
}

constexpr Items kItems = SplitMenu();

}  // namespace

PreviewSurface::PreviewSurface(std::shared_ptr<Preview> preview)
    : preview_(std::move(preview)), mouse_(*preview_) {
  preview_->Observe(this);
}

PreviewSurface::~PreviewSurface() {
  preview_->StopObserving(*this);
}

void PreviewSurface::ViewChanged() {
  if (changed_) changed_();
}

void PreviewSurface::DocumentReplaced() {
  bitmaps_.Clear();
  ViewChanged();
}

void PreviewSurface::Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) {
  const PageLayout& layout = preview_->Layout();
  PaintGround(bitmap, colors, layout.pages.size() == 1 ? layout.pages.front().box : SurfaceBox());
  const double scale = preview_->Area().scale;
  const PreviewSource& source = preview_->Source();
  for (const PlacedPage& placed : layout.pages) {
    PaintAround(placed, scale, bitmap, colors);
    bitmaps_.Show(source.GetDocument(), placed, bitmap);
  }
  const std::string_view notice = source.Notice();
  if (!notice.empty()) PaintNotice(notice, scale, bitmap);
}

// There only when needed, for a page that is too wide stays so when the bar takes some height.
ScrollRange PreviewSurface::HorizontalRange() const {
  const std::int32_t maximum = preview_->MaximumScroll().left;
  return {.wanted = maximum > 0,
          .value = preview_->Scrolled().left,
          .maximum = maximum,
          .visible = preview_->Area().width,
          .step = preview_->ScrollStep()};
}

// There in every mode that can scroll: a bar that came and went with the page would change the
// width that the page is fitted into.
ScrollRange PreviewSurface::VerticalRange() const {
  return {.wanted = preview_->Scrolls(),
          .value = preview_->Scrolled().top,
          .maximum = preview_->MaximumScroll().top,
          .visible = preview_->Area().height,
          .step = preview_->ScrollStep()};
}

std::span<const MenuItem> PreviewSurface::Menu() const {
  return kItems;
}

void PreviewSurface::ClickMenu(std::string_view key) {
  for (std::size_t i = 0; i < kItems.size(); ++i) {
    if (kItems[i].key == key) return preview_->ShowInMode(kModes[i]);
  }
}

}  // namespace pagivo::native
