// Every operation of the contracts with its dispatch id and kind. The engine and the exporter are
// late bound through these tables.
#pragma once

#include "engine/print_engine.h"
#include "values/late_binding.h"

namespace pagivo {

// A property that is read and written has two rows of one name and id.
extern const MemberTable<PrintEngine> kPrintEngineOperations;
extern const MemberTable<PdfExporter> kPdfExporterOperations;

}  // namespace pagivo
