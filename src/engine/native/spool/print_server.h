// What the engine needs of a print server, whichever it is.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/native/spool/media.h"

namespace pagivo::native {

class Document;

enum class PrinterState : std::uint8_t { Idle, Printing, Stopped };

struct Printer {
  std::string name;
  std::string uri;            // where the server takes jobs for it
  std::string deviceAddress;  // where the printer is, in the server's words
  PrinterState state = PrinterState::Idle;
  // Keywords such as "media-empty"; empty when there is nothing to tell.
  std::vector<std::string> stateReasons;
  bool acceptsJobs = true;
};

struct JobTicket {
  std::string printer;
  std::string title;  // UTF-8; may be empty
  int copies = 1;     // whole sets of the pages
  MediaSize size;     // of the paper
  // The margins of the paper as the printer knows it; without them the printer chooses.
  std::optional<MediaMargins> margins;
};

// A job asks this many times a second while its server is silent; false ends the waiting.
using KeepWaiting = std::function<bool()>;

// A job that takes the pages of one document, and one page at least. How they go to the printer, as
// a file or drawn on it, is the job's own affair. A job that goes before Finish is cancelled:
// nothing of it is printed. All functions but Cancel raise ErrorNumber::PrinterFailure (see
// print_failures.h).
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  // Prints the document's page of this number next. The page has the ticket's paper, upright or
  // turned. The document stays as it is, and where it is, until the job is finished or gone.
  virtual void PrintPage(const Document& document, std::int32_t page) = 0;
  // There are no more pages. The server has accepted the job when this returns.
  virtual void Finish() = 0;
  // Takes the job back, accepted or not; the server hears of it when it is next told of cancelled
  // jobs. What is on paper already stays there.
  virtual void Cancel() noexcept = 0;
};

// A print server and what has been read from it. Nothing is asked before it is needed, and what was
// read is kept until Refresh. A server that does not answer is waited for at most two seconds and
// then counts as being away for a while, so that the next question costs nothing. All functions
// raise ErrorNumber::PrinterFailure when the server cannot be reached, but for those that are
// noexcept. References stay good until the next call.
class PrintServer {
 public:
  virtual ~PrintServer() = default;

  // The printers, in the server's order.
  virtual const std::vector<Printer>& Printers() = 0;
  // The name of the user's default printer, or else the server's; empty when neither has one.
  virtual std::string DefaultPrinter() = 0;
  // The paper that the printer takes. Raises an error for a printer that does not exist.
  virtual const PrinterMedia& MediaOf(const std::string& printer) = 0;
  // Forgets what was read.
  virtual void Refresh() noexcept = 0;

  // How long the server is tried at the end of a document or of the process, and while a user waits
  // who has cancelled.
  static constexpr std::chrono::milliseconds kPatienceAtEnd{2000};
  static constexpr std::chrono::milliseconds kPatienceOfUser{50};
  // Tells the server of the jobs that were cancelled, and takes no longer than this for it. The
  // server is told again of a job for which it did not answer, here and before anything else is
  // asked. Costs nothing when there is no such job.
  virtual void TellOfCancelledJobs(std::chrono::milliseconds patience) noexcept = 0;

  // Opens a job for the printer of that name, which need not have been listed.
  virtual std::unique_ptr<PrintJob> OpenJob(const JobTicket& ticket,
                                            const KeepWaiting& keepWaiting) = 0;
};

// The print server of this system: the one of the folder that is built beside this one.
std::shared_ptr<PrintServer> MakePrintServer();

}  // namespace pagivo::native
