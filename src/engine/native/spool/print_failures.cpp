#include "engine/native/spool/print_failures.h"

namespace pagivo::native {
namespace {

std::string Named(std::string_view printer) {
  return "De printer \"" + std::string(printer) + "\"";
}

}  // namespace

void ThrowNoServer() {
  throw PrintingFailed("De afdrukserver is niet bereikbaar",
                       "Controleer of de afdrukserver en het netwerk werken en druk het document "
                       "daarna opnieuw af.");
}

void ThrowNoPrinters() {
  throw PrintingFailed("Er is geen printer geïnstalleerd",
                       "Voeg een printer toe bij de instellingen van de computer.");
}

void ThrowNoSuchPrinter(std::string_view printer) {
  throw PrintingFailed(Named(printer) + " bestaat niet", "Kies een andere printer.");
}

void ThrowPrinterRefuses(std::string_view printer) {
  throw PrintingFailed(Named(printer) + " neemt geen afdruktaken aan",
                       "Kies een andere printer, of vraag de beheerder om deze vrij te geven.");
}

void ThrowConnectionLost(std::string_view printer) {
  throw PrintingFailed(
      "De verbinding met de afdrukserver is verbroken; de afdruktaak voor de printer \"" +
          std::string(printer) + "\" is geannuleerd",
      "Druk het document opnieuw af zodra de afdrukserver weer bereikbaar is.");
}

void ThrowPrintingCancelled() {
  throw PrintingCancelled();
}

}  // namespace pagivo::native
