// What the keys do on the preview surface.
#pragma once

#include <cstdint>
#include <optional>

namespace pagivo::native {

enum class PreviewCommand : std::uint8_t {
  LineUp,
  LineDown,
  LineLeft,
  LineRight,
  ViewUp,
  ViewDown,
  FirstPage,
  LastPage,
  OpenPage,  // of the overview
  ZoomIn,
  ZoomOut,
};

// Nothing for a key without a meaning in that zoom mode, or with Alt.
std::optional<PreviewCommand> CommandOf(std::int16_t keyCode, std::int16_t shift,
                                        std::int32_t zoomMode) noexcept;

}  // namespace pagivo::native
