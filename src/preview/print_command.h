// The print command that the host and the preview window have in common.
#pragma once

#include <cstdint>

#include "engine/print_engine.h"

namespace pagivo {

// Both inclusive.
struct PageRange {
  std::int16_t from = 0;
  std::int16_t to = 0;
};

// Prints the pages so many times, a job for each copy so that they come out collated. An engine
// that knows series prints them as one and tells its outcome; any other engine leaves `outcome` as
// it is. Errors are ignored.
void PrintCopies(PrintEngine& engine, const PageRange& pages, std::int32_t copies,
                 PrintCommandOutcome& outcome);

}  // namespace pagivo
