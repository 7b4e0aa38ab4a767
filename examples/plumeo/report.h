// The calculation report, composed through PgPrint.
#pragma once

#include <cstdint>
#include <string>

#include "input.h"
#include "pagivo/pg_print.h"
#include "results.h"

namespace plumeo {

struct ReportOptions {
  std::string pictureFolder;
  std::int16_t watermark = 0;    // 1 to 3; 0 for none
  pagivo::ObjectRef hostForm{};  // the window that the preview is shown over, or null
};

// Composes the whole document and finishes it; it can then be shown, printed or written.
void ComposeReport(pagivo::PgPrint& print, const Project& project, const Results& results,
                   const ReportOptions& options);

}  // namespace plumeo
