// Following a print command on the screen.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "engine/native/setup/print_progress_form.h"

namespace pagivo::native {

// A print command that takes longer than half a second gets one window, which goes with the last of
// this. The user acts in it whenever Continues is called; there is neither a thread nor a timer.
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

  // The page of `progress` is printed next; false when the user has cancelled. A window that cannot
  // be shown does not stop the printing.
  bool Continues(const SeriesProgress& progress);
  // The window says why the printing failed, and stays until the user closes it; it comes when it
  // was not there yet. Returns then, and at once where no window can be shown.
  void TellFailure(const SeriesFailure& failure);

 private:
  PrintProgressForm& MakeForm();
  bool IsCancelled() const noexcept;
  void Look(const SeriesProgress& progress);

  std::shared_ptr<WindowSystem> windows_;
  PrintedDocument document_;
  Clock now_;
  std::chrono::steady_clock::time_point nextLook_;
  std::shared_ptr<PrintProgressForm> form_;
};

}  // namespace pagivo::native
