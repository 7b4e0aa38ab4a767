// How a dialog reaches the print engine, which belongs to a window above it.
#pragma once

#include <functional>
#include <memory>

#include "engine/print_engine.h"

namespace pagivo {

// The engine of the present preview window; makes a window when there is none. Asked anew at every
// use, so that a window discarded meanwhile does no harm.
using EngineSource = std::function<std::shared_ptr<PrintEngine>()>;

}  // namespace pagivo
