#include "engine/native/dialogs/print_progress.h"

#include <algorithm>
#include <utility>

#include "values/errors_ignored.h"

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

bool PrintProgressWindow::Continues(int page) {
  if (!windows_ || now_() < nextLook_) return true;
  IgnoringErrors([&] { Look(page); });
  nextLook_ = now_() + kBetweenLooks;
  return !form_ || !form_->IsCancelled();
}

void PrintProgressWindow::Look(int page) {
  const bool isFirst = form_ == nullptr;
  if (isFirst) form_ = std::make_shared<PrintProgressForm>(windows_, document_);
  form_->ShowPage(std::max(page, 1));
  if (isFirst) form_->Open();
  form_->HandleEvents();
}

}  // namespace pagivo::native
