// The program's window. Built without windows, the program has none and says so.
#pragma once

#include "input.h"
#include "report.h"
#include "results.h"

namespace plumeo {

// Has this program and its preview appear on the display. Throws when there is none.
void UseWindows();

// After UseWindows: shows the outcomes and returns when the user has closed the window.
void RunMainWindow(const Project& project, const Results& results, const ReportOptions& options);

}  // namespace plumeo
