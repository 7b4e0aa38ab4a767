// The methods of PgPrint as late-bound callers see them.
#pragma once

#include "pagivo/pg_print.h"
#include "values/late_binding.h"

namespace pagivo {

// The first method's; the others follow it one by one.
inline constexpr std::int32_t kFirstDispatchId = 0x60030000;

// All 73, in interface order.
extern const MemberTable<PgPrint> kMethods;

}  // namespace pagivo
