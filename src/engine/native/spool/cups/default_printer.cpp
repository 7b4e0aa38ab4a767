#include "engine/native/spool/cups/default_printer.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace pagivo::native {
namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// "Default Balie/concept media=a4"
std::string DefaultIn(const std::string& file) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind;
    std::string printer;
    words >> kind >> printer;
    if (kind == "Default" || kind == "default") return printer;
  }
  return {};
}

}  // namespace

// PRINTER=lp is what systems set that have only one printer.
std::string DefaultPrinterOfUser() {
  if (std::string name = Variable("LPDEST"); !name.empty()) return name;
  if (std::string name = Variable("PRINTER"); !name.empty() && name != "lp") return name;
  std::string ofUser = DefaultIn(Variable("HOME") + "/.cups/lpoptions");
  return ofUser.empty() ? DefaultIn("/etc/cups/lpoptions") : ofUser;
}

}  // namespace pagivo::native
