#include "support/without_printers.h"

namespace pagivo::testing {

// Tests are given a server that nobody runs.
const char* const kFailureWithoutPrinters = "De afdrukserver is niet bereikbaar";
const char* const kAdviceWithoutPrinters =
    "Controleer of de afdrukserver en het netwerk werken en druk het document daarna opnieuw af.";

}  // namespace pagivo::testing
