// The window that counts copies and pages while they are printed, and its button to stop. It also
// says why printing failed.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/native/setup/progress_bar.h"
#include "window/form.h"

namespace pagivo::native {

// What is printed where; each may be empty, the printer when there is none.
struct PrintedDocument {
  std::string title;
  std::string printer;
  std::string port;
};

// How far a print command is; everything counts from 1.
struct SeriesProgress {
  std::int32_t copy = 1;
  std::int32_t copies = 1;
  std::int32_t page = 1;  // of the pages of one copy
  std::int32_t pages = 1;
};

struct SeriesFailure {
  std::string cause;   // in Dutch
  std::string advice;  // what can be done; may be empty
  std::int32_t copies = 1;
  std::int32_t printedCopies = 0;
};

class PrintProgressForm final : public Form {
 public:
  PrintProgressForm(std::shared_ptr<WindowSystem> windows, PrintedDocument document);

  void ShowProgress(const SeriesProgress& progress);
  // From now on the button closes the window.
  void ShowFailure(const SeriesFailure& failure);
  // The user has pressed the button, or the window's close box.
  bool IsCancelled() const noexcept { return cancelled_; }

 private:
  void CreateControls() override;
  void OnLoad() override;
  void OnQueryUnload(bool& cancel, UnloadMode mode) override;

  void cancel_Click();

  PrintedDocument document_;
  std::shared_ptr<ProgressBar> bar_;
  bool cancelled_ = false;
  bool tellsFailure_ = false;
};

}  // namespace pagivo::native
