// What title bar and borders add to a window before the window system tells.
#pragma once

#include <QMargins>

namespace pagivo::qt {

// Logical pixels: those of the last such window that was seen, else a guess.
QMargins ExpectedFrame(bool sizable);
void RememberFrame(bool sizable, const QMargins& frame);

}  // namespace pagivo::qt
