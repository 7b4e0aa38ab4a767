// What became of the last print command, for hosts that want to know: the methods of PgPrint ignore
// the errors of printing.
//
//   print.VsPrintFile(2);
//   pagivo::PrintReport report;
//   if (report.PrintOutcome() == pagivo::kPrintingFailed) Log(report.Description());
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/export.h"
#include "pagivo/object.h"
#include "pagivo/variant.h"

namespace pagivo {

// PrintOutcome.
inline constexpr std::int16_t kNothingPrinted = 0;  // no print command has ended yet
inline constexpr std::int16_t kPrinted = 1;         // the print server has taken every copy
inline constexpr std::int16_t kPrintingCancelled = 2;
inline constexpr std::int16_t kPrintingFailed = 3;

// A print command is one VsPrintFile, or one print from the preview window, with all its copies.
// Every report tells of the last one of the process, however many there are; a command for no copy
// at all is none. Nothing here raises an error, but for late-bound callers who ask for another
// member.
class PAGIVO_EXPORT PrintReport : public Object {
 public:
  PrintReport() = default;

  virtual std::int16_t PrintOutcome();
  // Why it was cancelled or failed: a sentence in Dutch, ready to be shown. Empty when it printed.
  virtual std::string Description();
  // The printer's name; empty when there was none.
  virtual std::string Printer();
  // How many copies the command was for.
  virtual std::int16_t Copies();
  // How many of them the print server has taken. After a failure the copies before it are printed;
  // those of a command that was cancelled are taken back, as far as they are not on paper.
  virtual std::int16_t PrintedCopies();

  // Late binding: each of the functions above as a property, or as a method without arguments.
  // Raises ErrorNumber::UnknownMember for any other name.
  Variant GetMember(std::string_view name) override;
  Variant CallMember(std::string_view name, std::span<Variant> arguments) override;
};

}  // namespace pagivo
