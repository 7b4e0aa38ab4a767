// Showing the dialogs that set up an engine's pages and printer.
#pragma once

#include <cstdint>
#include <memory>

#include "engine/native/settings/page_setup.h"
#include "window/window_system.h"

namespace pagivo::native {

// Shows kPrinterSetupDialog or kPageSetupDialog on those windows, modally, and applies what the
// user confirmed. Answers whether the user did confirm; never without windows (null). Raises
// ErrorNumber::InvalidPropertyValue for any other number. `owner` outlives the showing.
bool ShowSetupDialog(std::int32_t dialog, PageSetupOwner& owner,
                     const std::shared_ptr<WindowSystem>& windows);

}  // namespace pagivo::native
