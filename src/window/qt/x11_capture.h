// Pictures of windows on an X server, of whatever program.
#pragma once

#include <cstdint>

#include "window/window_system.h"

struct xcb_connection_t;

namespace pagivo::qt {

// What the window shows, as far as its ancestors and the screen let it be seen; what covers it
// shows too. `density`: device pixels a logical pixel, which the size counts by. Raises
// ErrorNumber::InvalidArgument when there is no such window, when it shows nothing, and when the
// screen's pixels are no colours.
WindowImage CaptureX11Window(xcb_connection_t& connection, std::uint32_t window, double density);

}  // namespace pagivo::qt
