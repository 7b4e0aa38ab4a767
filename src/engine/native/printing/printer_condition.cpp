#include "engine/native/printing/printer_condition.h"

#include <array>
#include <string_view>

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

}  // namespace

std::string ConditionOf(const Printer& printer) {
  if (!printer.acceptsJobs) return "Deze printer neemt geen afdruktaken aan";
  const std::string reason(ReasonOf(printer));
  if (printer.state != PrinterState::Stopped) {
    return reason.empty() ? std::string() : "Deze printer meldt: " + reason;
  }
  return "Deze printer staat stil; afdruktaken wachten" + (reason.empty() ? "" : ": " + reason);
}

}  // namespace pagivo::native
