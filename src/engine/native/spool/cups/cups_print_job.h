// A job of the print server CUPS.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "engine/native/pdf/pdf_writer.h"
#include "engine/native/spool/cups/cups_connection.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

class CupsPrintServer;

// A job that the server has.
struct CupsJob {
  std::string printer;     // its name
  std::string printerUri;  // by which the server knows it
  int id = 0;
};

// Creates a job without documents, at the printer's resource.
IppMessage NewJobRequest(const Printer& printer, const JobTicket& ticket);
IppMessage CancelJobRequest(const CupsJob& job);
// The path of a printer's address.
std::string ResourceOf(const std::string& printerUri);

// Sends the pages as a PDF file while it writes it. The server prints nothing of a job before its
// file is complete. The print server object lives longer than its jobs.
class CupsPrintJob final : public PrintJob {
 public:
  // A server that has taken a job may be silent for so long: a busy one has disks to write.
  static constexpr std::chrono::seconds kPatience{30};

  // The job was created over this connection and has no document yet.
  CupsPrintJob(CupsPrintServer& server, std::unique_ptr<CupsConnection> connection, CupsJob job,
               KeepWaiting keepWaiting);
  ~CupsPrintJob() override;

  void PrintPage(const Document& document, std::int32_t page) override;
  void Finish() override;
  void Cancel() noexcept override;

 private:
  void Begin();
  void Send(std::span<const std::uint8_t> bytes);
  [[noreturn]] void Fail();

  CupsPrintServer& server_;
  std::unique_ptr<CupsConnection> connection_;  // null once the job is finished or failed
  CupsJob job_;
  std::string resource_;
  std::optional<PdfWriter> file_;  // from the first page to the last
  bool isBegun_ = false;
  bool isTakenBack_ = false;
};

}  // namespace pagivo::native
