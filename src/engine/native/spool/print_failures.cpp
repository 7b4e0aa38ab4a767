#include "engine/native/spool/print_failures.h"

#include <string>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

[[noreturn]] void Throw(const std::string& description) {
  throw Error(ErrorNumber::PrinterFailure, description);
}

std::string Named(std::string_view printer) {
  return "De printer \"" + std::string(printer) + "\"";
}

}  // namespace

void ThrowNoServer() {
  Throw("De afdrukserver is niet bereikbaar");
}

void ThrowNoPrinters() {
  Throw("Er is geen printer geïnstalleerd");
}

void ThrowNoSuchPrinter(std::string_view printer) {
  Throw(Named(printer) + " bestaat niet");
}

void ThrowPrinterRefuses(std::string_view printer) {
  Throw(Named(printer) + " neemt geen afdruktaken aan");
}

void ThrowConnectionLost(std::string_view printer) {
  Throw("De verbinding met de afdrukserver is verbroken; de afdruktaak voor de printer \"" +
        std::string(printer) + "\" is geannuleerd");
}

void ThrowPrintingCancelled() {
  Throw("Het afdrukken is geannuleerd");
}

}  // namespace pagivo::native
