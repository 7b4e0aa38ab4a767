#include "engine/native/native_surface.h"

#include <cmath>
#include <utility>

#include "engine/native/view/notice.h"
#include "engine/native/view/surface_painter.h"
#include "engine/native/view/zoom_menu.h"

namespace pagivo::native {
namespace {

// What an arrow scrolls, 96ths of an inch: about two lines of print at 100 percent.
constexpr double kStep = 40;

}  // namespace

NativeSurface::NativeSurface(std::shared_ptr<NativeEngine> engine) : engine_(std::move(engine)) {
  engine_->Observe(this);
}

NativeSurface::~NativeSurface() {
  if (engine_->Observer() == this) engine_->Observe(nullptr);
}

void NativeSurface::ViewChanged() {
  layout_.reset();
  if (changed_) changed_();
}

void NativeSurface::DocumentReplaced() {
  bitmaps_.Clear();
  ViewChanged();
}

void NativeSurface::PutArea(const SurfaceArea& area) {
  const SurfaceArea before = engine_->Preview().Area();
  engine_->PutPreviewArea(area);
  if (engine_->Preview().Area() != before) layout_.reset();
}

const PageLayout& NativeSurface::Layout() const {
  if (!layout_) layout_ = engine_->LayOutPreview();
  return *layout_;
}

void NativeSurface::Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) {
  PaintGround(bitmap, colors);
  const PageLayout& layout = Layout();
  for (const PlacedPage& placed : layout.pages) {
    PaintAround(placed, engine_->Preview().Area().scale, bitmap, colors);
    bitmaps_.Show(engine_->GetDocument(), placed, bitmap);
  }
  if (!engine_->IsWhole()) {
    PaintNotice(kLacksSomething, engine_->Preview().Area().scale, bitmap);
  }
}

std::int32_t NativeSurface::Step() const {
  return static_cast<std::int32_t>(std::ceil(kStep * engine_->Preview().Area().scale));
}

// There only when needed, for a page that is too wide stays so when the bar takes some height.
ScrollRange NativeSurface::HorizontalRange() const {
  const std::int32_t maximum = engine_->MaximumPreviewScroll().left;
  return {.wanted = maximum > 0,
          .value = engine_->PreviewScroll().left,
          .maximum = maximum,
          .visible = engine_->Preview().Area().width,
          .step = Step()};
}

// There in every mode that can scroll: a bar that came and went with the page would change the
// width that the page is fitted into.
ScrollRange NativeSurface::VerticalRange() const {
  return {.wanted = engine_->Preview().Scrolls(),
          .value = engine_->PreviewScroll().top,
          .maximum = engine_->MaximumPreviewScroll().top,
          .visible = engine_->Preview().Area().height,
          .step = Step()};
}

void NativeSurface::ScrollTo(std::int32_t left, std::int32_t top) {
  engine_->ScrollPreview({left, top});
}

std::span<const MenuItem> NativeSurface::Menu() const {
  return ZoomMenu();
}

void NativeSurface::ClickMenu(std::string_view key) {
  if (const auto mode = ZoomModeOf(key)) ShowInMode(*mode);
}

// The window's page box names the visible pages, which the mode decides on too.
void NativeSurface::ShowInMode(std::int32_t mode) {
  engine_->PutZoomMode(mode);
  engine_->RaiseAfterPageChange();
}

void NativeSurface::OpenPage(std::int32_t page) {
  ShowPage(page);
  ShowInMode(kZoomWholePage);
}

std::shared_ptr<SurfaceContent> MakeSurface(const std::shared_ptr<PrintEngine>& engine) {
  auto native = std::dynamic_pointer_cast<NativeEngine>(engine);
  if (!native) return nullptr;
  return std::make_shared<NativeSurface>(std::move(native));
}

}  // namespace pagivo::native
