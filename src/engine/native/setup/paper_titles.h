// What paper sizes are called in a list.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "window/window_system.h"

namespace pagivo::native {

struct PaperName {
  std::int32_t code = 0;
  std::string_view name;  // Dutch
};

// Every known paper size once, in the order of a list: common ones first, related ones together.
std::span<const PaperName> PaperNames();

// `A4 (210 × 297 mm)`, with the size rounded to whole millimetres. A code without a name is a size
// of the host's own.
std::string PaperTitle(std::int32_t code, const Extent& size);

}  // namespace pagivo::native
