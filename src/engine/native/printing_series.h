// One print command: the jobs of all its copies, the window that follows them and what became of
// them.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>

#include "engine/native/setup/print_progress.h"
#include "engine/native/spool/document_printing.h"
#include "engine/print_series.h"

namespace pagivo::native {

// Every copy is sent for itself, so that copies come out as whole sets. The user's cancelling takes
// back all of them; a failure only the copy that failed, and none is sent after it.
class PrintingSeries {
 public:
  // Sends one copy while the watcher lets it.
  using SendCopy = std::function<SentJobs(const PrintWatcher& watcher)>;

  // Null windows: nothing is shown. Null server: there are no printers, and every copy fails.
  PrintingSeries(std::shared_ptr<WindowSystem> windows, std::shared_ptr<PrintServer> server,
                 PrintedDocument document, std::int32_t copies);

  // Passes on the error of a copy, the same one for every copy after it.
  void Print(const SendCopy& send);
  // Returns when the user has read of a failure.
  PrintCommandOutcome End();

 private:
  void Send(const SendCopy& send);
  void Note(std::int16_t result, const std::exception& reason);
  void TakeBack() noexcept;

  std::shared_ptr<PrintServer> server_;
  PrintProgressWindow window_;
  PrintCommandOutcome outcome_;
  std::string advice_;
  std::exception_ptr ending_;  // what ended the series before its last copy
  std::int32_t copy_ = 0;
  SentJobs jobs_;
};

}  // namespace pagivo::native
