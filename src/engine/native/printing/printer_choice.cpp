#include "engine/native/printing/printer_choice.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "engine/native/spool/print_failures.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

struct Reason {
  std::string_view keyword;  // as the standard for print servers names it
  std::string_view text;
};

// The ones that somebody can do something about.
constexpr std::array<Reason, 12> kReasons{{
    {"media-empty", "het papier is op"},
    {"media-needed", "er is ander papier nodig"},
    {"media-jam", "er zit papier vast"},
    {"input-tray-missing", "de papierlade ontbreekt"},
    {"toner-empty", "de toner is op"},
    {"marker-supply-empty", "de inkt is op"},
    {"cover-open", "er staat een klep open"},
    {"door-open", "er staat een klep open"},
    {"interlock-open", "er staat een klep open"},
    {"output-area-full", "de uitvoerlade is vol"},
    {"offline", "de printer staat uit of is niet aangesloten"},
    {"connecting-to-device", "de printer antwoordt niet"},
}};

// A keyword may end in how bad it is.
std::string_view WithoutSeverity(std::string_view keyword) {
  for (const std::string_view severity : {"-error", "-warning", "-report"}) {
    if (keyword.ends_with(severity)) return keyword.substr(0, keyword.size() - severity.size());
  }
  return keyword;
}

std::string_view ReasonOf(const Printer& printer) {
  for (const std::string& stated : printer.stateReasons) {
    for (const Reason& reason : kReasons) {
      if (WithoutSeverity(stated) == reason.keyword) return reason.text;
    }
  }
  return {};
}

// Reads something of the server; an empty value stands for it while the server cannot be reached.
template <typename Read>
auto ReadOrNothing(Read&& read) -> decltype(read()) {
  try {
    return read();
  } catch (const Error&) {
    return {};
  }
}

}  // namespace

std::string ConditionOf(const Printer& printer) {
  if (!printer.acceptsJobs) return "Deze printer neemt geen afdruktaken aan";
  const std::string reason(ReasonOf(printer));
  if (printer.state != PrinterState::Stopped) {
    return reason.empty() ? std::string() : "Deze printer meldt: " + reason;
  }
  return "Deze printer staat stil; afdruktaken wachten" + (reason.empty() ? "" : ": " + reason);
}

int PrinterChoice::Count() {
  if (!server_) return 0;
  server_->Refresh();
  return ReadOrNothing([this] { return static_cast<int>(server_->Printers().size()); });
}

std::string PrinterChoice::Name(int index) {
  if (!server_ || index < 0) ThrowSubscriptOutOfRange();
  const auto& printers = server_->Printers();
  const auto position = static_cast<std::size_t>(index);
  if (position >= printers.size()) ThrowSubscriptOutOfRange();
  return printers[position].name;
}

const Printer* PrinterChoice::Find(const std::string& name) {
  const auto& printers = server_->Printers();
  const auto found = std::ranges::find(printers, name, &Printer::name);
  return found == printers.end() ? nullptr : &*found;
}

// A default printer may be the name of one that is gone.
std::string PrinterChoice::UsualPrinter() {
  std::string name = server_->DefaultPrinter();
  if (!name.empty() && Find(name) != nullptr) return name;
  const auto& printers = server_->Printers();
  return printers.empty() ? std::string() : printers.front().name;
}

std::string PrinterChoice::Current() {
  if (!chosen_.empty() || !server_) return chosen_;
  return ReadOrNothing([this] { return UsualPrinter(); });
}

// A printer that is not in the list may have come since it was read.
const Printer& PrinterChoice::Require(const std::string& name) {
  if (!server_) ThrowNoSuchPrinter(name);
  const Printer* printer = Find(name);
  if (printer == nullptr) {
    server_->Refresh();
    printer = Find(name);
  }
  if (printer == nullptr) ThrowNoSuchPrinter(name);
  return *printer;
}

void PrinterChoice::Choose(const std::string& name) {
  Require(name);
  chosen_ = name;
}

std::string PrinterChoice::AskOf(const std::string& name,
                                 std::string (*question)(const Printer& printer)) {
  if (!server_) return {};
  return ReadOrNothing([&] {
    const Printer* printer = Find(name);
    return printer == nullptr ? std::string() : question(*printer);
  });
}

std::string PrinterChoice::Port() {
  return AskOf(Current(), [](const Printer& printer) { return printer.deviceAddress; });
}

std::string PrinterChoice::PortOf(const std::string& name) {
  return Require(name).deviceAddress;
}

std::string PrinterChoice::ConditionOf(const std::string& name) {
  return AskOf(name, native::ConditionOf);
}

PrinterMedia PrinterChoice::MediaOf(const std::string& name) {
  if (!server_ || name.empty()) return {};
  return ReadOrNothing([&] { return server_->MediaOf(name); });
}

SentJobs PrinterChoice::Print(const Document& document, PrintRequest request,
                              const PrintWatcher& watcher) {
  if (!server_) ThrowNoPrinters();
  request.printer = chosen_.empty() ? UsualPrinter() : chosen_;
  if (request.printer.empty()) ThrowNoPrinters();
  return PrintPages(*server_, document, request, watcher);
}

}  // namespace pagivo::native
