#include "engine/native/spool/print_failures.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {
namespace {

// Pages cannot go to this system's printers yet, so that there are none: everything is as on a
// computer where none is installed.
class WindowsPrintServer final : public PrintServer {
 public:
  const std::vector<Printer>& Printers() override { return printers_; }
  std::string DefaultPrinter() override { return {}; }
  const PrinterMedia& MediaOf(const std::string& printer) override { ThrowNoSuchPrinter(printer); }
  void Refresh() noexcept override {}
  void TellOfCancelledJobs(std::chrono::milliseconds /*patience*/) noexcept override {}
  std::unique_ptr<PrintJob> OpenJob(const JobTicket& ticket,
                                    const KeepWaiting& /*keepWaiting*/) override {
    ThrowNoSuchPrinter(ticket.printer);
  }

 private:
  std::vector<Printer> printers_;
};

}  // namespace

std::shared_ptr<PrintServer> MakePrintServer() {
  return std::make_shared<WindowsPrintServer>();
}

}  // namespace pagivo::native
