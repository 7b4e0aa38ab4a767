// Colours as the host gives them.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/native/document/display_list.h"

namespace pagivo::native {

// 0x00BBGGRR stands for itself, 0x800000nn for the window system's colour nn (0 to 30 but 25), in
// its usual light scheme so that a document does not depend on the machine. Nothing for any other
// value.
std::optional<Color> ResolveColor(std::int32_t value);

}  // namespace pagivo::native
