// What keys and mouse do in a preview.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/native/view/preview.h"

namespace pagivo::native {

// --- Keys (preview_keys.cpp) ------------------------------------------------------------------

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

// The window hears of the key first; what it leaves of it does what the key means. Returns whether
// anybody had a use for the key.
bool PressPreviewKey(Preview& preview, std::int16_t keyCode, std::int16_t shift);

// --- Mouse (preview_mouse.cpp) ----------------------------------------------------------------

// Makes whole notches out of the fractions that fine wheels and touch pads report.
class WheelNotches {
 public:
  // Returns the notches that are complete now. Turning back discards what is not complete.
  int Turn(double notches);
  void Reset() noexcept { rest_ = 0; }

 private:
  double rest_ = 0;
};

// Wheel and pointer over a preview, which outlives this.
class PreviewMouse {
 public:
  explicit PreviewMouse(Preview& preview) : preview_(preview) {}

  // As SurfaceContent has them.
  void TurnWheel(SurfacePoint at, double horizontal, double vertical, std::int16_t shift);
  void Press(SurfacePoint at);
  void Move(SurfacePoint at);
  void Release(SurfacePoint at);
  SurfaceCursor CursorAt(SurfacePoint at) const;

 private:
  // Where the pointer went down, and how far the page was scrolled then.
  struct Drag {
    SurfacePoint from;
    ScrollPosition scrolled;
  };

  void Zoom(SurfacePoint at, double notches);
  void ScrollOrTurn(double notches);
  bool CanDrag() const { return preview_.MaximumScroll() != ScrollPosition{}; }

  Preview& preview_;
  std::optional<Drag> drag_;
  std::int32_t pressedPage_ = 0;  // of the overview; 0 for none
  WheelNotches turning_;
  WheelNotches zooming_;
};

}  // namespace pagivo::native
