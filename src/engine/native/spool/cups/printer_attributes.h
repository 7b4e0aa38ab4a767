// From a print server's attributes to values.
#pragma once

#include <cups/cups.h>

#include <vector>

#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// What to ask for, and what to make of the answer.
extern const std::vector<const char*> kPrinterAttributes;
std::vector<Printer> ReadPrinters(ipp_t* answer);

extern const std::vector<const char*> kMediaAttributes;
PrinterMedia ReadMedia(ipp_t* answer);

}  // namespace pagivo::native
