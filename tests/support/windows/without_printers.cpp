#include "support/without_printers.h"

namespace pagivo::testing {

const char* const kFailureWithoutPrinters = "Er is geen printer geïnstalleerd";
const char* const kAdviceWithoutPrinters =
    "Voeg een printer toe bij de instellingen van de computer.";

}  // namespace pagivo::testing
