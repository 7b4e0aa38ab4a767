// One print command: the jobs of all its copies, the window that follows them, and what became of
// them.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>

#include "engine/native/printing/document_printing.h"
#include "engine/native/printing/print_progress.h"
#include "engine/print_engine.h"

namespace pagivo::native {

// Every copy is sent for itself, so that copies come out as whole sets. When the user cancels, all
// of them are taken back. When a copy fails, only that one is, and no copy is sent after it.
class PrintingSeries {
 public:
  // Sends one copy for as long as the watcher lets it.
  using SendCopy = std::function<SentJobs(const PrintWatcher& watcher)>;

  // With null windows nothing is shown. With a null server there are no printers, and every copy
  // fails.
  PrintingSeries(std::shared_ptr<WindowSystem> windows, std::shared_ptr<PrintServer> server,
                 PrintedDocument document, std::int32_t copies);

  // Sends the next copy and passes on its error. Every copy after that raises the same error.
  void Print(const SendCopy& send);
  // Tells the user of a failure, and returns when the user has read of it.
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
