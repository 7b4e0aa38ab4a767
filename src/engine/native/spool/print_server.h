// What the engine needs of a print server, whichever it is.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/native/spool/media.h"

namespace pagivo::native {

enum class PrinterState : std::uint8_t { Idle, Printing, Stopped };

struct Printer {
  std::string name;
  std::string uri;            // by which the server takes jobs for it
  std::string deviceAddress;  // where the printer is, as the server says it
  PrinterState state = PrinterState::Idle;
  // Keywords such as "media-empty"; empty when there is nothing to tell.
  std::vector<std::string> stateReasons;
  bool acceptsJobs = true;
};

struct JobTicket {
  std::string printer;
  std::string title;  // UTF-8; may be empty
  int copies = 1;     // each a whole set of the pages
  MediaSize size;     // the paper's
  // As the printer knows the paper; without them the printer chooses.
  std::optional<MediaMargins> margins;
};

// Asked many times a second while a server is silent; false ends the waiting.
using KeepWaiting = std::function<bool()>;

// A job whose document is being sent. Left before Finish it is cancelled: nothing is printed.
// Functions raise ErrorNumber::PrinterFailure (see print_failures.h) but for Cancel.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  // The next bytes of the document, a PDF file.
  virtual void Write(std::span<const std::uint8_t> bytes) = 0;
  // The document is complete; the server has accepted the job when this returns.
  virtual void Finish() = 0;
  // Takes the job back, accepted or not, when the server is next told of cancelled jobs. What is on
  // paper already stays there.
  virtual void Cancel() noexcept = 0;
};

// A print server and what has been read from it. Nothing is asked before it is needed; what was
// read is kept until Refresh. A server that does not answer is waited for at most two seconds, and
// then taken as being away for a while, so that the next question costs nothing. Functions raise
// ErrorNumber::PrinterFailure when the server cannot be reached. References stay good until the
// next call.
class PrintServer {
 public:
  virtual ~PrintServer() = default;

  // In the server's order.
  virtual const std::vector<Printer>& Printers() = 0;
  // Of the user or else of the server; empty when neither has one.
  virtual std::string DefaultPrinter() = 0;
  // Raises an error for a printer that does not exist.
  virtual const PrinterMedia& MediaOf(const std::string& printer) = 0;
  // Forgets what was read.
  virtual void Refresh() noexcept = 0;

  // How long to try at the end of a document or of the process, and while a user waits who has
  // cancelled.
  static constexpr std::chrono::milliseconds kPatienceAtEnd{2000};
  static constexpr std::chrono::milliseconds kPatienceOfUser{50};
  // Tells the server of the jobs that were cancelled, for so long at most; a job that it did not
  // answer to is told of again, here and before anything else is asked. Costs nothing when there is
  // no such job.
  virtual void TellOfCancelledJobs(std::chrono::milliseconds patience) noexcept = 0;

  // Opens a job for the printer of that name, which need not have been listed.
  virtual std::unique_ptr<PrintJob> OpenJob(const JobTicket& ticket,
                                            const KeepWaiting& keepWaiting) = 0;
};

}  // namespace pagivo::native
