// What an engine may offer beside the contract: a print command as one whole.
#pragma once

#include <cstdint>
#include <string>

#include "pagivo/print_outcome.h"

namespace pagivo {

// What PrintReport tells.
struct PrintCommandOutcome {
  std::int16_t result = kNothingPrinted;
  std::string description;
  std::string printer;
  std::int32_t copies = 0;
  std::int32_t printedCopies = 0;
};

class PrintSeries {
 public:
  // Every PrintDoc until EndSeries prints one of so many copies. The user follows and stops them
  // all as one; after a failure or the user's cancelling every further PrintDoc raises that error
  // again. Raises ErrorNumber::NoDocument within another series.
  virtual void BeginSeries(std::int32_t copies) = 0;
  // Tells the user of a failure and returns when that has been read. Nothing without a series.
  virtual PrintCommandOutcome EndSeries() = 0;

 protected:
  ~PrintSeries() = default;
};

}  // namespace pagivo
