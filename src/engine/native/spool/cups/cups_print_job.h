// A job of the print server CUPS.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "engine/native/spool/cups/cups_connection.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// Creates a job without documents, at the printer's resource.
IppMessage NewJobRequest(const Printer& printer, const JobTicket& ticket);
// The path of the printer's address.
std::string ResourceOf(const Printer& printer);

// The server prints nothing of a job before its document is complete.
class CupsPrintJob final : public PrintJob {
 public:
  // How long a server that has taken a job may be silent: a busy one has disks to write.
  static constexpr std::chrono::seconds kPatience{30};

  // Job `id` of the printer was created over this connection and has no document yet.
  CupsPrintJob(std::unique_ptr<CupsConnection> connection, Printer printer, int id,
               KeepWaiting keepWaiting);
  ~CupsPrintJob() override;

  void Write(std::span<const std::uint8_t> bytes) override;
  void Finish() override;
  void Cancel() noexcept override;

 private:
  IppMessage NewJobQuestion(ipp_op_t operation) const;
  void Begin();
  [[noreturn]] void Fail();

  std::unique_ptr<CupsConnection> connection_;  // null once the job is finished or failed
  Printer printer_;
  std::string resource_;
  int id_;
  bool isBegun_ = false;
  bool isTakenBack_ = false;
};

}  // namespace pagivo::native
