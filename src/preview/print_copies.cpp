#include "preview/print_copies.h"

#include "engine/print_series.h"
#include "state/module_state.h"
#include "values/errors.h"

namespace pagivo {

namespace {

// Null when the engine knows none, or is printing for another command.
PrintSeries* BeginSeries(PrintEngine& engine, std::int32_t copies) {
  auto* series = dynamic_cast<PrintSeries*>(&engine);
  if (series == nullptr) return nullptr;
  PrintSeries* begun = nullptr;
  IgnoringErrors([&] {
    series->BeginSeries(copies);
    begun = series;
  });
  return begun;
}

}  // namespace

void PrintCopies(PrintEngine& engine, const PageRange& pages, std::int32_t copies) {
  if (copies < 1) return;
  PrintSeries* series = BeginSeries(engine, copies);
  for (std::int32_t copy = 1; copy <= copies; ++copy) {
    IgnoringErrors([&] { engine.PrintDoc(false, pages.from, pages.to); });
  }
  if (series == nullptr) return;
  IgnoringErrors([&] { State().PrintOutcome = series->EndSeries(); });
}

}  // namespace pagivo
