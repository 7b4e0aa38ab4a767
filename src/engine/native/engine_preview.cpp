// NativeEngine's preview surface.
#include <algorithm>

#include "engine/native/native_engine.h"

namespace pagivo::native {

// An empty document shows page 1, which is blank.
std::int32_t NativeEngine::ClampPage(std::int32_t page) const {
  return std::clamp(page, 1, std::max(1, document_->PageCount()));
}

PageGeometry NativeEngine::GeometryOf(std::int32_t page) const {
  return page <= document_->PageCount() ? document_->GeometryOf(page) : pageSettings_.Geometry();
}

ShownPages NativeEngine::PagesInView() const {
  const std::int32_t page = preview_.Page();
  return {GeometryOf(page), GeometryOf(ClampPage(page + 1)), GeometryOf(1)};
}

void NativeEngine::ViewChanged() {
  if (observer_ != nullptr) observer_->ViewChanged();
}

// Of the many pages of a document few are visible, so most changes of pages concern no observer.
void NativeEngine::PageChanged(std::int32_t page) {
  if (preview_.MayShow(page)) ViewChanged();
}

std::int32_t NativeEngine::AdmittedPage(std::int32_t page) {
  auto wanted = static_cast<std::int16_t>(ClampPage(page));
  if (events_ != nullptr) events_->BeforePageChange(wanted);
  return ClampPage(wanted);
}

std::int16_t NativeEngine::GetPreviewPage() {
  return static_cast<std::int16_t>(preview_.Page());
}

void NativeEngine::PutPreviewPage(const std::int16_t& page) {
  if (ClampPage(page) == preview_.Page()) return;
  const std::int32_t shown = AdmittedPage(page);
  if (shown == preview_.Page()) return;
  preview_.Show(shown);
  ViewChanged();
  RaiseAfterPageChange();
}

double NativeEngine::GetZoom() {
  return preview_.Zoom(PagesInView());
}

// Windows put mode and zoom again after every key, so what is in force already is no change.
void NativeEngine::PutZoom(double percent) {
  if (preview_.ZoomMode() == kZoomPercent && percent == GetZoom()) return;
  preview_.PutZoom(percent);
  ViewChanged();
}

std::int32_t NativeEngine::GetZoomMode() {
  return preview_.ZoomMode();
}

void NativeEngine::PutZoomMode(std::int32_t mode) {
  if (mode == preview_.ZoomMode()) return;
  preview_.PutZoomMode(mode);
  ViewChanged();
}

double NativeEngine::GetScrollTop() {
  return preview_.ScrollTop(PagesInView());
}

void NativeEngine::PutScrollTop(double top) {
  const double before = GetScrollTop();
  preview_.PutScrollTop(top, PagesInView());
  if (GetScrollTop() != before) ViewChanged();
}

void NativeEngine::ScrollPreview(const ScrollPosition& position) {
  const ScrollPosition before = PreviewScroll();
  preview_.ScrollTo(position, PagesInView());
  if (PreviewScroll() != before) ViewChanged();
}

PageLayout NativeEngine::LayOutPreview() {
  class Pages final : public PageSource {
   public:
    explicit Pages(NativeEngine& engine) : engine_(engine) {}
    std::int32_t PageCount() const override { return engine_.document_->PageCount(); }
    PageGeometry GeometryOf(std::int32_t page) const override { return engine_.GeometryOf(page); }
    bool IsAdmitted(std::int32_t page) override { return engine_.AdmittedPage(page) == page; }

   private:
    NativeEngine& engine_;
  };
  Pages pages(*this);
  return LayOutPages(preview_, PagesInView(), pages);
}

void NativeEngine::RaiseKeyDown(std::int16_t& keyCode, std::int16_t shift) {
  if (events_ != nullptr) events_->KeyDown(keyCode, shift);
}

void NativeEngine::RaiseAfterPageChange() {
  if (events_ != nullptr) events_->AfterPageChange();
}

}  // namespace pagivo::native
