// NativeEngine's paper and margins.
#include "engine/native/checked_values.h"
#include "engine/native/native_engine.h"

namespace pagivo::native {

// Pictures do not fix the page's paper, for a watermark is the first thing on a page.
void NativeEngine::ApplyPaper() {
  if (stage_ != Stage::Composing || !recorder_->HasOnlyPictures()) return;
  const PageGeometry geometry = pageSettings_.Geometry();
  recorder_->ChangePaper(geometry, OriginOn(geometry));
  preview_.PageChanged(document_->PageCount());
}

std::int32_t NativeEngine::GetOrientation() {
  return pageSettings_.IsLandscape() ? 1 : 0;
}

void NativeEngine::PutOrientation(std::int32_t orientation) {
  if (orientation != 0 && orientation != 1) ThrowInvalidPropertyValue("Orientation");
  pageSettings_.PutLandscape(orientation == 1);
  ApplyPaper();
}

void NativeEngine::PutPaperWidth(float width) {
  pageSettings_.PutPaperWidth(width);
  ApplyPaper();
}

void NativeEngine::PutPaperHeight(float height) {
  pageSettings_.PutPaperHeight(height);
  ApplyPaper();
}

void NativeEngine::PutPaperSize(std::int32_t code) {
  pageSettings_.PutPaperSize(code);
  ApplyPaper();
}

// Without a printer every known size is supported.
bool NativeEngine::GetPaperSizes(std::int32_t code) {
  return SupportsPaper(printers_.Media(), code);
}

Variant NativeEngine::GetPageWidth() {
  if (stage_ == Stage::Overlay) return double{document_->GeometryOf(overlayPage_).width};
  return pageSettings_.PageWidth();
}

void NativeEngine::PutPageWidth(double width) {
  pageSettings_.PutPageWidth(width);
  ApplyPaper();
}

Variant NativeEngine::GetPageHeight() {
  if (stage_ == Stage::Overlay) return double{document_->GeometryOf(overlayPage_).height};
  return pageSettings_.PageHeight();
}

void NativeEngine::PutPageHeight(double height) {
  pageSettings_.PutPageHeight(height);
  ApplyPaper();
}

void NativeEngine::PutPhysicalPage(const bool& physical) {
  isPhysicalPage_ = physical;
  ReadPrintableArea();
}

void NativeEngine::PutMarginLeft(const Variant& margin) {
  margins_.left = CheckedLength("MarginLeft", margin);
}

void NativeEngine::PutMarginTop(const Variant& margin) {
  margins_.top = CheckedLength("MarginTop", margin);
}

void NativeEngine::PutMarginRight(const Variant& margin) {
  margins_.right = CheckedLength("MarginRight", margin);
}

void NativeEngine::PutMarginBottom(const Variant& margin) {
  margins_.bottom = CheckedLength("MarginBottom", margin);
}

}  // namespace pagivo::native
