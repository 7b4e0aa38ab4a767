// The report composed through PgPrint, as a host does it.
#pragma once

#include "pagivo/pg_print.h"

namespace pagivo::bench {

// Composes and finishes a document of that many report pages. One more page, empty, ends it.
void ComposeReport(PgPrint& print, int pages);

}  // namespace pagivo::bench
