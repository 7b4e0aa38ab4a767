// Following a print job on the screen.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "engine/native/dialogs/print_progress_form.h"

namespace pagivo::native {

// A job that takes longer than half a second gets a window, which goes with the last of this. The
// user acts in it whenever Continues is called; there is neither a thread nor a timer.
class PrintProgressWindow {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  static constexpr std::chrono::milliseconds kAppearsAfter{500};
  // Pages may follow each other much faster than anybody can read.
  static constexpr std::chrono::milliseconds kBetweenLooks{40};

  // Null windows: there is never one.
  PrintProgressWindow(std::shared_ptr<WindowSystem> windows, PrintedDocument document,
                      Clock now = std::chrono::steady_clock::now);
  ~PrintProgressWindow();
  PrintProgressWindow(const PrintProgressWindow&) = delete;
  PrintProgressWindow& operator=(const PrintProgressWindow&) = delete;

  // `page` is printed next; false when the user has cancelled. A window that cannot be shown does
  // not stop the job.
  bool Continues(int page);

 private:
  void Look(int page);

  std::shared_ptr<WindowSystem> windows_;
  PrintedDocument document_;
  Clock now_;
  std::chrono::steady_clock::time_point nextLook_;
  std::shared_ptr<PrintProgressForm> form_;
};

}  // namespace pagivo::native
