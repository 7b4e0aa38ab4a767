// NativeEngine's page setup: paper, margins and what follows from the printer.
#include "engine/native/native_engine.h"
#include "engine/native/settings/checked_values.h"

namespace pagivo::native {

// What may be refused comes before anything is changed, and who looks on is told at the end.
void NativeEngine::Apply(const PageSetup& setup) {
  PrinterChoice printers = printers_;
  if (setup.printer) printers.Choose(*setup.printer);
  const bool changesPage = setup.paper != setup_.paper && PageTakesOtherPaper();
  if (changesPage) {
    const PageGeometry geometry = setup.paper.Geometry();
    recorder_->ChangePaper(geometry, OriginOn(geometry));
  }
  setup_.paper = setup.paper;
  setup_.margins = setup.margins;
  printers_ = std::move(printers);
  if (setup.printer) ReadPrintableArea();
  if (changesPage) preview_.PageChanged(document_->PageCount());
}

// Pictures do not fix the page's paper, for a watermark is the first thing on a page.
bool NativeEngine::PageTakesOtherPaper() const noexcept {
  return stage_ == Stage::Composing && recorder_->HasOnlyPictures();
}

// Read once, as pages must not wait for a print server.
void NativeEngine::ReadPrintableArea() {
  printerMedia_ = isPhysicalPage_ ? PrinterMedia() : printers_.Media();
  ApplyOrigin();
}

Point NativeEngine::OriginOn(const PageGeometry& page) const {
  if (isPhysicalPage_) return {};
  const auto [x, y] = PrintableCornerOf(printerMedia_, page.width, page.height);
  return {static_cast<float>(x), static_cast<float>(y)};
}

// Of the page that is drawn on.
void NativeEngine::ApplyOrigin() {
  if (stage_ == Stage::None) return;
  recorder_->SetOrigin(OriginOn(document_->GeometryOf(GetCurrentPage())));
}

// Every setter of the page setup changes a copy, which is applied if the value was a possible one.
template <typename Change>
void NativeEngine::ChangeSetup(Change change) {
  PageSetup setup = setup_;
  change(setup);
  Apply(setup);
}

void NativeEngine::PutDevice(const std::string& name) {
  ChangeSetup([&](PageSetup& setup) { setup.printer = name; });
}

std::int32_t NativeEngine::GetOrientation() {
  return setup_.paper.IsLandscape() ? 1 : 0;
}

void NativeEngine::PutOrientation(std::int32_t orientation) {
  if (orientation != 0 && orientation != 1) ThrowInvalidPropertyValue("Orientation");
  ChangeSetup([&](PageSetup& setup) { setup.paper.PutLandscape(orientation == 1); });
}

void NativeEngine::PutPaperWidth(float width) {
  ChangeSetup([&](PageSetup& setup) { setup.paper.PutPaperWidth(width); });
}

void NativeEngine::PutPaperHeight(float height) {
  ChangeSetup([&](PageSetup& setup) { setup.paper.PutPaperHeight(height); });
}

void NativeEngine::PutPaperSize(std::int32_t code) {
  ChangeSetup([&](PageSetup& setup) { setup.paper.PutCode(code); });
}

// Without a printer every known size is supported.
bool NativeEngine::GetPaperSizes(std::int32_t code) {
  return SupportsPaper(printers_.Media(), code);
}

Variant NativeEngine::GetPageWidth() {
  if (stage_ == Stage::Overlay) return double{document_->GeometryOf(overlayPage_).width};
  return setup_.paper.PageWidth();
}

void NativeEngine::PutPageWidth(double width) {
  ChangeSetup([&](PageSetup& setup) { setup.paper.PutPageWidth(width); });
}

Variant NativeEngine::GetPageHeight() {
  if (stage_ == Stage::Overlay) return double{document_->GeometryOf(overlayPage_).height};
  return setup_.paper.PageHeight();
}

void NativeEngine::PutPageHeight(double height) {
  ChangeSetup([&](PageSetup& setup) { setup.paper.PutPageHeight(height); });
}

void NativeEngine::PutPhysicalPage(const bool& physical) {
  isPhysicalPage_ = physical;
  ReadPrintableArea();
}

void NativeEngine::PutMarginLeft(const Variant& margin) {
  ChangeSetup([&](PageSetup& setup) { setup.margins.left = CheckedLength("MarginLeft", margin); });
}

void NativeEngine::PutMarginTop(const Variant& margin) {
  ChangeSetup([&](PageSetup& setup) { setup.margins.top = CheckedLength("MarginTop", margin); });
}

void NativeEngine::PutMarginRight(const Variant& margin) {
  ChangeSetup(
      [&](PageSetup& setup) { setup.margins.right = CheckedLength("MarginRight", margin); });
}

void NativeEngine::PutMarginBottom(const Variant& margin) {
  ChangeSetup(
      [&](PageSetup& setup) { setup.margins.bottom = CheckedLength("MarginBottom", margin); });
}

}  // namespace pagivo::native
