// The print server CUPS.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/native/spool/cups/cups_connection.h"
#include "engine/native/spool/cups/printer_attributes.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// Lists the queues that the server has; printers that merely announce themselves on the network are
// not looked for, as that takes time. Each question has a connection of its own.
class CupsPrintServer final : public PrintServer {
 public:
  // How long a silent server is taken as being away.
  static constexpr std::chrono::seconds kAbsence{30};

  const std::vector<Printer>& Printers() override;
  std::string DefaultPrinter() override;
  const PrinterMedia& MediaOf(const std::string& printer) override;
  void Refresh() noexcept override;
  std::unique_ptr<PrintJob> OpenJob(const JobTicket& ticket,
                                    const KeepWaiting& keepWaiting) override;

 private:
  // A connection to ask on; raises an error when the server is away.
  std::unique_ptr<CupsConnection> Connect();
  void NoteSilence(const CupsConnection& connection);
  // Raises an error when there is no answer.
  CupsAnswer Ask(IppMessage request);
  const Printer* FindKnown(const std::string& name);
  const Printer& FindPrinter(const std::string& name);

  std::optional<std::vector<Printer>> printers_;
  std::optional<std::string> defaultPrinter_;
  std::map<std::string, PrinterMedia> media_;
  Clock::time_point awayUntil_;
};

}  // namespace pagivo::native
