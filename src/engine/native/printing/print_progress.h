// The window that follows a print command: it counts copies and pages, has a button to stop, and
// says why printing failed.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "window/form.h"
#include "window/surface.h"

namespace pagivo::native {

// What is printed and where. Each of these may be empty; the printer is when there is none.
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

// A bar that is filled from the left as far as the work is done.
class ProgressBar final : public StillContent {
 public:
  // From 0 to 1.
  void PutDone(double done);
  double Done() const noexcept { return done_; }

  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) override;

 private:
  double done_ = 0;
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

// Follows a print command on the screen. A command that takes longer than half a second gets one
// window, which goes when this object goes. The user acts in it whenever Continues is called; there
// is neither a thread nor a timer.
class PrintProgressWindow {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  static constexpr std::chrono::milliseconds kAppearsAfter{500};
  // Pages may follow each other much faster than anybody can read.
  static constexpr std::chrono::milliseconds kBetweenLooks{40};

  // With null windows no window is ever shown.
  PrintProgressWindow(std::shared_ptr<WindowSystem> windows, PrintedDocument document,
                      Clock now = std::chrono::steady_clock::now);
  ~PrintProgressWindow();
  PrintProgressWindow(const PrintProgressWindow&) = delete;
  PrintProgressWindow& operator=(const PrintProgressWindow&) = delete;

  // Call it before the page of `progress` is printed, and while the server is silent. False when
  // the user has cancelled. A window that cannot be shown does not stop the printing.
  bool Continues(const SeriesProgress& progress);
  // Says in the window why the printing failed, and returns when the user has closed it. The window
  // appears for that when it was not there yet. Returns at once where no window can be shown.
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
