// Showing the engine's own dialogs.
#pragma once

#include <cstdint>
#include <memory>

#include "engine/print_engine.h"
#include "window/window_system.h"

namespace pagivo::native {

// Shows kPrinterSetupDialog or kPageSetupDialog on those windows, modally, and puts what the user
// confirmed into the engine. Whether the user did confirm; never without windows (null). Raises
// ErrorNumber::InvalidPropertyValue for any other number, and the error of an engine whose settings
// cannot be read.
bool ShowEngineDialog(std::int32_t dialog, PrintEngine& engine,
                      const std::shared_ptr<WindowSystem>& windows);

}  // namespace pagivo::native
