#include "engine/native/setup/print_progress.h"

#include <utility>

#include "values/errors.h"

namespace pagivo::native {

PrintProgressWindow::PrintProgressWindow(std::shared_ptr<WindowSystem> windows,
                                         PrintedDocument document, Clock now)
    : windows_(std::move(windows)),
      document_(std::move(document)),
      now_(std::move(now)),
      nextLook_(now_() + kAppearsAfter) {}

PrintProgressWindow::~PrintProgressWindow() {
  if (form_) IgnoringErrors([this] { form_->Unload(); });
}

bool PrintProgressWindow::Continues(const SeriesProgress& progress) {
  if (!windows_ || now_() < nextLook_) return !IsCancelled();
  IgnoringErrors([&] { Look(progress); });
  nextLook_ = now_() + kBetweenLooks;
  return !IsCancelled();
}

bool PrintProgressWindow::IsCancelled() const noexcept {
  return form_ && form_->IsCancelled();
}

PrintProgressForm& PrintProgressWindow::MakeForm() {
  if (!form_) form_ = std::make_shared<PrintProgressForm>(windows_, document_);
  return *form_;
}

void PrintProgressWindow::Look(const SeriesProgress& progress) {
  MakeForm().ShowProgress(progress);
  if (!form_->Visible()) form_->Open();
  form_->HandleEvents();
}

void PrintProgressWindow::TellFailure(const SeriesFailure& failure) {
  if (!windows_) return;
  IgnoringErrors([&] {
    MakeForm().ShowFailure(failure);
    if (!form_->Visible()) form_->Open();
    form_->AwaitHiding();
  });
}

}  // namespace pagivo::native
