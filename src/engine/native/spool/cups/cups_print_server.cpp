#include "engine/native/spool/cups/cups_print_server.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <utility>

#include "engine/native/spool/print_failures.h"
#include "values/errors.h"

namespace pagivo::native {
namespace {

constexpr std::array<const char*, 1> kNameAttribute{"printer-name"};

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// "Default Balie/concept media=a4"
std::string DefaultIn(const std::string& file) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind;
    std::string printer;
    words >> kind >> printer;
    if (kind == "Default" || kind == "default") return printer;
  }
  return {};
}

// What the environment or the files of lpoptions say; empty when they say nothing. PRINTER=lp is
// what systems set that have only one printer.
std::string DefaultPrinterOfUser() {
  if (std::string name = Variable("LPDEST"); !name.empty()) return name;
  if (std::string name = Variable("PRINTER"); !name.empty() && name != "lp") return name;
  std::string ofUser = DefaultIn(Variable("HOME") + "/.cups/lpoptions");
  return ofUser.empty() ? DefaultIn("/etc/cups/lpoptions") : ofUser;
}

}  // namespace

std::unique_ptr<CupsConnection> CupsPrintServer::Connect() {
  if (Clock::now() < awayUntil_) ThrowNoServer();
  auto connection = std::make_unique<CupsConnection>();
  const bool isReady = connection->IsOpen() && CancelJobs(*connection);
  NoteSilence(*connection);
  if (!isReady) ThrowNoServer();
  return connection;
}

// A server that refuses connections costs no time and may be back at any moment.
void CupsPrintServer::NoteSilence(const CupsConnection& connection) noexcept {
  if (connection.WasSilent()) awayUntil_ = Clock::now() + kAbsence;
}

// A job that the server would not cancel has ended, or is another's.
bool CupsPrintServer::CancelJobs(CupsConnection& connection) {
  while (!cancelled_.empty()) {
    const CupsJob& job = cancelled_.back();
    const auto answer = connection.Ask(CancelJobRequest(job), ResourceOf(job.printerUri));
    if (!answer.isThere) return false;
    cancelled_.pop_back();
  }
  return true;
}

// Also a server that was away a moment ago; one that does not answer as fast as this may be there.
void CupsPrintServer::TellOfCancelledJobs(std::chrono::milliseconds patience) noexcept {
  if (cancelled_.empty()) return;
  IgnoringErrors([&] {
    CupsConnection connection(patience);
    if (connection.IsOpen() && CancelJobs(connection)) awayUntil_ = {};
  });
}

CupsAnswer CupsPrintServer::Ask(const IppMessage& request) {
  const auto connection = Connect();
  CupsAnswer answer = connection->Ask(request, "/");
  NoteSilence(*connection);
  if (!answer.isThere) ThrowNoServer();
  return answer;
}

// A server without any printer answers that it found none.
const std::vector<Printer>& CupsPrintServer::Printers() {
  if (!printers_) {
    const IppMessage request = NewRequest(IPP_OP_CUPS_GET_PRINTERS, {});
    AddRequestedAttributes(request.get(), kPrinterAttributes);
    const CupsAnswer answer = Ask(request);
    printers_ = answer.IsSuccess() ? ReadPrinters(answer.message.get()) : std::vector<Printer>();
  }
  return *printers_;
}

// The environment's and the user's own come before the server's. Either may name an instance, a
// printer with settings, after a slash.
std::string CupsPrintServer::DefaultPrinter() {
  if (!defaultPrinter_) {
    std::string name = DefaultPrinterOfUser();
    if (name.empty()) name = DefaultPrinterOfServer();
    defaultPrinter_ = name.substr(0, name.find('/'));
  }
  return *defaultPrinter_;
}

std::string CupsPrintServer::DefaultPrinterOfServer() {
  const IppMessage request = NewRequest(IPP_OP_CUPS_GET_DEFAULT, {});
  AddRequestedAttributes(request.get(), kNameAttribute);
  const CupsAnswer answer = Ask(request);
  return answer.IsSuccess() ? TextOf(Find(answer.message.get(), kNameAttribute.front()))
                            : std::string();
}

const Printer* CupsPrintServer::FindKnown(const std::string& name) {
  const std::vector<Printer>& printers = Printers();
  const auto found = std::ranges::find(printers, name, &Printer::name);
  return found == printers.end() ? nullptr : &*found;
}

// A printer that is not in the list may have come since it was read.
const Printer& CupsPrintServer::FindPrinter(const std::string& name) {
  const Printer* printer = FindKnown(name);
  if (printer == nullptr) {
    Refresh();
    printer = FindKnown(name);
  }
  if (printer == nullptr) ThrowNoSuchPrinter(name);
  return *printer;
}

const PrinterMedia& CupsPrintServer::MediaOf(const std::string& printer) {
  const auto known = media_.find(printer);
  if (known != media_.end()) return known->second;
  const IppMessage request = NewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, FindPrinter(printer).uri);
  AddRequestedAttributes(request.get(), kMediaAttributes);
  const CupsAnswer answer = Ask(request);
  if (answer.status == IPP_STATUS_ERROR_NOT_FOUND) {
    Refresh();
    ThrowNoSuchPrinter(printer);
  }
  return media_[printer] = answer.IsSuccess() ? ReadMedia(answer.message.get()) : PrinterMedia();
}

void CupsPrintServer::Refresh() noexcept {
  printers_.reset();
  defaultPrinter_.reset();
  media_.clear();
}

// The user is not asked before the job is there: one that was given up while the server makes it
// would stay, empty, with nobody who knows of it.
std::unique_ptr<PrintJob> CupsPrintServer::OpenJob(const JobTicket& ticket,
                                                   const KeepWaiting& keepWaiting) {
  const Printer printer = FindPrinter(ticket.printer);
  auto connection = Connect();
  const CupsAnswer answer =
      connection->Ask(NewJobRequest(printer, ticket), ResourceOf(printer.uri));
  NoteSilence(*connection);
  if (!answer.isThere) ThrowNoServer();
  if (answer.status == IPP_STATUS_ERROR_NOT_FOUND) {
    Refresh();
    ThrowNoSuchPrinter(ticket.printer);
  }
  if (!answer.IsSuccess()) ThrowPrinterRefuses(ticket.printer);
  const int id = ippGetInteger(Find(answer.message.get(), "job-id"), 0);
  return std::make_unique<CupsPrintJob>(
      *this, std::move(connection),
      CupsJob{.printer = printer.name, .printerUri = printer.uri, .id = id}, keepWaiting);
}

std::shared_ptr<PrintServer> MakePrintServer() {
  return std::make_shared<CupsPrintServer>();
}

}  // namespace pagivo::native
