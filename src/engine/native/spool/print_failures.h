// What can go wrong with printing. Each function raises ErrorNumber::PrinterFailure with a Dutch
// description of its own.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "pagivo/error.h"

namespace pagivo::native {

class PrintingFailed : public Error {
 public:
  PrintingFailed(const std::string& description, std::string advice)
      : Error(ErrorNumber::PrinterFailure, description), advice_(std::move(advice)) {}

  // What the user can do about it: a sentence in Dutch.
  const std::string& Advice() const noexcept { return advice_; }

 private:
  std::string advice_;
};

// The user has cancelled the printing.
class PrintingCancelled : public Error {
 public:
  PrintingCancelled() : Error(ErrorNumber::PrinterFailure, "Het afdrukken is geannuleerd") {}
};

[[noreturn]] void ThrowNoServer();
[[noreturn]] void ThrowNoPrinters();
[[noreturn]] void ThrowNoSuchPrinter(std::string_view printer);
[[noreturn]] void ThrowPrinterRefuses(std::string_view printer);
// The connection was lost in the middle of a job, which has been taken back.
[[noreturn]] void ThrowConnectionLost(std::string_view printer);
[[noreturn]] void ThrowPrintingCancelled();

}  // namespace pagivo::native
