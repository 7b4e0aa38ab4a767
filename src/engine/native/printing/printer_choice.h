// The printers that an engine can choose from, the one that it has chosen, and what is known of
// any.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "engine/native/printing/document_printing.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// What keeps the printer from printing: a sentence in Dutch, empty when all is well.
std::string ConditionOf(const Printer& printer);

// Without a server, or while it cannot be reached, there are no printers. Nothing is asked of the
// server before a function needs it. What is asked about a printer by its name leaves the choice as
// it is.
class PrinterChoice {
 public:
  explicit PrinterChoice(std::shared_ptr<PrintServer> server) : server_(std::move(server)) {}

  // Reads the list anew.
  int Count();
  // From 0; raises ErrorNumber::SubscriptOutOfRange outside the list that was read last.
  std::string Name(int index);
  // The one chosen, else the default printer, else the first; empty when there is none.
  std::string Current();
  // Raises ErrorNumber::PrinterFailure for a printer that does not exist.
  void Choose(const std::string& name);

  // The current printer's address; empty when there is none.
  std::string Port();
  // The current printer's; empty when there is none.
  PrinterMedia Media() { return MediaOf(Current()); }

  // Any printer's address. Raises ErrorNumber::PrinterFailure for a printer that does not exist.
  std::string PortOf(const std::string& name);
  // Any printer's; empty when nothing is known of it.
  PrinterMedia MediaOf(const std::string& name);
  // What keeps any printer from printing; empty when nothing is known.
  std::string ConditionOf(const std::string& name);

  // On the current printer, whatever `request` names. Raises ErrorNumber::PrinterFailure.
  SentJobs Print(const Document& document, PrintRequest request, const PrintWatcher& watcher);

 private:
  const Printer* Find(const std::string& name);
  const Printer& Require(const std::string& name);
  std::string AskOf(const std::string& name, std::string (*question)(const Printer& printer));
  std::string UsualPrinter();

  std::shared_ptr<PrintServer> server_;
  std::string chosen_;  // empty: none yet
};

}  // namespace pagivo::native
