#include "engine/native/native_engine.h"

#include <utility>

#include "pagivo/error.h"
#include "values/errors.h"

namespace pagivo::native {
namespace {

[[noreturn]] void ThrowNoDocument(const char* description) {
  throw Error(ErrorNumber::NoDocument, description);
}

}  // namespace

NativeEngine::NativeEngine(EngineServices services)
    : services_(std::move(services)),
      document_(std::make_unique<Document>()),
      recorder_(std::make_unique<Recorder>(*document_)),
      printers_(services_.printers) {
  SetStyles(*recorder_);
}

// Nothing of what was cancelled is left for a server that stood still.
NativeEngine::~NativeEngine() {
  if (services_.printers) services_.printers->TellOfCancelledJobs(PrintServer::kPatienceAtEnd);
}

bool NativeEngine::IsComplete() const noexcept {
  return stage_ != Stage::None && stage_ != Stage::Composing;
}

bool NativeEngine::IsWhole() const noexcept {
  return isWhole_ && (!IsDrawing() || LostForWantOfMemory() == lostBeforeDrawing_);
}

void NativeEngine::RequireWhole() const {
  if (!IsWhole()) throw Error(ErrorNumber::OutOfMemory, kLacksSomething);
}

void NativeEngine::RequireNoPrinting() const {
  if (stage_ == Stage::Printing) ThrowNoDocument(kStillPrinting);
}

// The new document is complete in itself before the old one goes. Should memory not suffice for it,
// the old one may not pass for it.
void NativeEngine::StartDoc() {
  RequireNoPrinting();
  isWhole_ = false;
  auto document = std::make_unique<Document>();
  auto recorder = std::make_unique<Recorder>(*document);
  document->SetTitle(documentName_);
  SetStyles(*recorder);
  recorder->BeginPage(setup_.paper.Geometry());
  recorder_ = std::move(recorder);
  document_ = std::move(document);
  stage_ = Stage::Composing;
  isWhole_ = true;
  lostBeforeDrawing_ = LostForWantOfMemory();
  ApplyOrigin();
  position_ = {};
  preview_.DocumentReplaced();
}

void NativeEngine::EndDoc() {
  if (stage_ != Stage::Composing) {
    ThrowNoDocument("Er is geen document dat kan worden afgesloten");
  }
  isWhole_ = IsWhole();
  stage_ = Stage::Complete;
  preview_.ViewChanged();
}

void NativeEngine::NewPage() {
  if (stage_ != Stage::Composing) {
    ThrowNoDocument("Er is geen document waaraan een pagina kan worden toegevoegd");
  }
  if (document_->PageCount() == kMaximumPages) {
    throw Error(
        ErrorNumber::DocumentFull,
        "Een document kan niet meer dan " + std::to_string(kMaximumPages) + " pagina's bevatten");
  }
  recorder_->BeginPage(setup_.paper.Geometry());
  ApplyOrigin();
  position_ = {};
  preview_.PageChanged(document_->PageCount() - 1);
  preview_.PageChanged(document_->PageCount());
}

std::int16_t NativeEngine::GetPageCount() {
  return static_cast<std::int16_t>(document_->PageCount());
}

std::int16_t NativeEngine::GetCurrentPage() {
  return stage_ == Stage::Overlay ? static_cast<std::int16_t>(overlayPage_) : GetPageCount();
}

void NativeEngine::StartOverlay(const std::int16_t& page) {
  RequireNoPrinting();
  if (!IsComplete()) ThrowNoDocument("Er is geen afgesloten document");
  if (page < 1 || page > document_->PageCount()) {
    throw Error(ErrorNumber::PageOutOfRange,
                "Het document heeft geen pagina " + std::to_string(page));
  }
  recorder_->BeginOverlay(page);
  overlayPage_ = page;
  isWhole_ = IsWhole();
  lostBeforeDrawing_ = LostForWantOfMemory();
  stage_ = Stage::Overlay;
  ApplyOrigin();
  position_ = {};
}

void NativeEngine::EndOverlay() {
  if (stage_ != Stage::Overlay) ThrowNoDocument("Er is geen pagina heropend");
  recorder_->EndOverlay();
  isWhole_ = IsWhole();
  stage_ = Stage::Complete;
  preview_.PageChanged(overlayPage_);
}

void NativeEngine::PutDocName(const std::string& name) {
  document_->SetTitle(name);
  documentName_ = name;
}

// The styles in force, for a new recorder; from then on it hears of each change.
void NativeEngine::SetStyles(Recorder& recorder) const {
  recorder.SetFont(font_);
  recorder.SetTextColor(textColor_);
  recorder.SetPen(pen_);
  recorder.SetBrush(brush_);
}

bool NativeEngine::IsDrawing() const noexcept {
  return stage_ == Stage::Composing || stage_ == Stage::Overlay;
}

void NativeEngine::RequireDrawing() const {
  if (!IsDrawing()) ThrowNoDocument("Er is geen document geopend");
}

}  // namespace pagivo::native
