#include "api/method_table.h"

#include "values/errors.h"
#include "values/process_wide.h"

namespace pagivo {

namespace {

// A statement whose arguments there is no memory for is as lost to the document as one that cannot
// be drawn.
template <typename Key>
Variant CallByKey(PgPrint& print, Key key, std::span<Variant> arguments) {
  return ReportingErrors([&] {
    try {
      return kMethods.Call(print, key, arguments);
    } catch (...) {
      CountLostStatement();
      throw;
    }
  });
}

}  // namespace

Variant PgPrint::CallMember(std::string_view name, std::span<Variant> arguments) {
  return CallByKey(*this, name, arguments);
}

Variant PgPrint::CallMember(std::int32_t dispatchId, std::span<Variant> arguments) {
  return CallByKey(*this, dispatchId, arguments);
}

PgPrint& PredeclaredPgPrint() {
  return ProcessWide<PgPrint>();
}

}  // namespace pagivo
