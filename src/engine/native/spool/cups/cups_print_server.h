// The print server CUPS.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/native/spool/cups/cups_connection.h"
#include "engine/native/spool/cups/cups_print_job.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// Lists the queues that the server has; printers that merely announce themselves on the network are
// not looked for, as that takes time. Each question has a connection of its own.
class CupsPrintServer final : public PrintServer {
 public:
  // A silent server counts as being away for so long.
  static constexpr std::chrono::seconds kAbsence{30};

  const std::vector<Printer>& Printers() override;
  std::string DefaultPrinter() override;
  const PrinterMedia& MediaOf(const std::string& printer) override;
  void Refresh() noexcept override;
  void TellOfCancelledJobs(std::chrono::milliseconds patience) noexcept override;
  std::unique_ptr<PrintJob> OpenJob(const JobTicket& ticket,
                                    const KeepWaiting& keepWaiting) override;

  // For jobs: notes whether the server was silent on the connection.
  void NoteSilence(const CupsConnection& connection) noexcept;
  // For jobs: the server is told to cancel the job when it is next told of cancelled jobs.
  void TakeBack(const CupsJob& job) { cancelled_.push_back(job); }

 private:
  // A connection to ask on; raises an error when the server is away.
  std::unique_ptr<CupsConnection> Connect();
  // Raises an error when there is no answer.
  CupsAnswer Ask(const IppMessage& request);
  std::string DefaultPrinterOfServer();
  // False when the server did not answer, and has yet to be told of some.
  bool CancelJobs(CupsConnection& connection);
  const Printer* FindKnown(const std::string& name);
  const Printer& FindPrinter(const std::string& name);

  std::optional<std::vector<Printer>> printers_;
  std::optional<std::string> defaultPrinter_;
  std::map<std::string, PrinterMedia> media_;
  std::vector<CupsJob> cancelled_;  // that the server has yet to be told of
  Clock::time_point awayUntil_;
};

}  // namespace pagivo::native
