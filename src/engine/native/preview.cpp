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
  return {GeometryOf(page), GeometryOf(ClampPage(page + 1))};
}

std::int16_t NativeEngine::GetPreviewPage() {
  return static_cast<std::int16_t>(preview_.Page());
}

void NativeEngine::PutPreviewPage(const std::int16_t& page) {
  auto wanted = static_cast<std::int16_t>(ClampPage(page));
  if (wanted == preview_.Page()) return;
  if (events_ != nullptr) events_->BeforePageChange(wanted);
  const std::int32_t shown = ClampPage(wanted);
  if (shown == preview_.Page()) return;
  preview_.Show(shown);
  if (events_ != nullptr) events_->AfterPageChange();
}

double NativeEngine::GetZoom() {
  return preview_.Zoom(PagesInView());
}
void NativeEngine::PutZoom(double percent) {
  preview_.PutZoom(percent);
}
std::int32_t NativeEngine::GetZoomMode() {
  return preview_.ZoomMode();
}
void NativeEngine::PutZoomMode(std::int32_t mode) {
  preview_.PutZoomMode(mode);
}
double NativeEngine::GetScrollTop() {
  return preview_.ScrollTop(PagesInView());
}
void NativeEngine::PutScrollTop(double top) {
  preview_.PutScrollTop(top, PagesInView());
}

}  // namespace pagivo::native
