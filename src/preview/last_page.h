// The page total that users see.
#pragma once

#include <cstdint>

#include "engine/print_engine.h"
#include "values/conversions.h"

namespace pagivo {

// The document's last real page: the engine's last one is empty. Raises Error on overflow.
inline std::int16_t LastPageOf(PrintEngine& engine) {
  return SubtractIntegers(engine.GetPageCount(), 1);
}

}  // namespace pagivo
