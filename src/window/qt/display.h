// Whether Qt would find a display.
#pragma once

namespace pagivo::qt {

// Qt ends the process when there is none, so this is asked beforehand: whether one of the platforms
// that the environment names can be reached and has its plug-in.
bool HasDisplay();

}  // namespace pagivo::qt
