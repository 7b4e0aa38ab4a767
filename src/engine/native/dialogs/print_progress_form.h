// The window that counts pages while they are printed, and its button to stop.
#pragma once

#include <memory>
#include <string>

#include "window/form.h"

namespace pagivo::native {

// What is printed where; all but the printer may be empty.
struct PrintedDocument {
  std::string title;
  std::string printer;
  std::string port;
};

class PrintProgressForm final : public Form {
 public:
  PrintProgressForm(std::shared_ptr<WindowSystem> windows, PrintedDocument document);

  // Of the pages that are printed, from 1.
  void ShowPage(int page);
  // The user has pressed the button, or the window's close box.
  bool IsCancelled() const noexcept { return cancelled_; }

 private:
  void CreateControls() override;
  void OnLoad() override;
  void OnQueryUnload(bool& cancel, UnloadMode mode) override;

  void cancel_Click();

  PrintedDocument document_;
  bool cancelled_ = false;
};

}  // namespace pagivo::native
