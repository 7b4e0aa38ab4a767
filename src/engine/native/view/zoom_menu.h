// The preview's own menu of zoom modes.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "window/control_design.h"

namespace pagivo::native {

std::span<const MenuItem> ZoomMenu() noexcept;

// The zoom mode that an item stands for; nothing for a key that the menu does not have.
std::optional<std::int32_t> ZoomModeOf(std::string_view menuKey) noexcept;

}  // namespace pagivo::native
