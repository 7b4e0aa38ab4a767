// What can go wrong with printing. Each raises ErrorNumber::PrinterFailure with a Dutch description
// of its own.
#pragma once

#include <string_view>

namespace pagivo::native {

[[noreturn]] void ThrowNoServer();
[[noreturn]] void ThrowNoPrinters();
[[noreturn]] void ThrowNoSuchPrinter(std::string_view printer);
[[noreturn]] void ThrowPrinterRefuses(std::string_view printer);
// In the middle of a job, which has been taken back.
[[noreturn]] void ThrowConnectionLost(std::string_view printer);
[[noreturn]] void ThrowPrintingCancelled();

}  // namespace pagivo::native
