#include "api/method_table.h"

#include "values/errors.h"
#include "values/process_wide.h"

namespace pagivo {

Variant PgPrint::CallMember(std::string_view name, std::span<Variant> arguments) {
  return ReportingErrors(
      [&] { return CountingLosses([&] { return kMethods.Call(*this, name, arguments); }); });
}

Variant PgPrint::CallMember(std::int32_t dispatchId, std::span<Variant> arguments) {
  return ReportingErrors(
      [&] { return CountingLosses([&] { return kMethods.Call(*this, dispatchId, arguments); }); });
}

PgPrint& PredeclaredPgPrint() {
  return ProcessWide<PgPrint>();
}

}  // namespace pagivo
