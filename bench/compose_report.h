// The report composed through PgPrint, as a host does it.
#pragma once

#include <string>

#include "pagivo/pg_print.h"

namespace pagivo::bench {

// Composes and finishes a document of that many report pages. One more page, empty, ends it.
void ComposeReport(PgPrint& print, int pages);

// Composes it and writes it as PDF.
void WriteReportWithPagivo(int pages, const std::string& fileName);

}  // namespace pagivo::bench
