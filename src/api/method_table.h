// The methods of PgPrint as late-bound callers see them.
#pragma once

#include "pagivo/pg_print.h"
#include "values/late_binding.h"

namespace pagivo {

// The first method's dispatch id; those of the others follow it one by one.
inline constexpr std::int32_t kFirstDispatchId = 0x60030000;

// Has all 73 methods, in the order of the interface.
extern const MemberTable<PgPrint> kMethods;

}  // namespace pagivo
